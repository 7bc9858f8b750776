// The screen Technical, "Technical Date": the day, the three buttons and the grid. It mirrors
// Technical and forwards the clicks to it.
#pragma once

#include <QWidget>

class QDateEdit;
class QTableWidget;

namespace ostravel {

class Program;
class Technical;

class TechnicalForm : public QWidget {
    Q_OBJECT
public:
    explicit TechnicalForm(Program& program, QWidget* parent = nullptr);

    void refresh();

private:
    Program& m_program;
    Technical& m_state;
    QDateEdit* m_DTPicker1;
    QTableWidget* m_MSFlexGrid1;
};

}  // namespace ostravel
