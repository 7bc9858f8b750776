// The quick start screen: the help text and "Show This screen at Startup".
#pragma once

#include <QWidget>

class QCheckBox;
class QTextBrowser;

namespace ostravel {

class Program;

class quick : public QWidget {
    Q_OBJECT
public:
    explicit quick(Program& program, QWidget* parent = nullptr);
    static bool wantedAtStart(Program& program);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Program& m_program;
    QTextBrowser* m_RichTextBox1;
    QCheckBox* m_Check1;
};

}  // namespace ostravel
