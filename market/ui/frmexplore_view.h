// frmexplore: the navigator side bar, a QToolBox of groups whose items open a screen of the
// program or a page about the stock in work. Enter on an item does what a click does.
#pragma once

#include <QWidget>

namespace ostravel {

class Program;

class FrmExploreForm : public QWidget {
    Q_OBJECT
public:
    explicit FrmExploreForm(Program& program, QWidget* parent = nullptr);

private:
    Program& m_program;
};

}  // namespace ostravel
