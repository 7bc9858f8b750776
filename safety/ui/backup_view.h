// The screen FRM_BACK_UP, "Back up Database ...": the folder box, the button that opens
// frm_sel_path, "Back UP", and the stage text and progress bar of the running backup. It
// mirrors BackUp and forwards the user's actions to it.
#pragma once

#include <QWidget>

#include "safety/backup.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace ostravel {

class Program;

class FRM_BACK_UP : public QWidget {
    Q_OBJECT
public:
    explicit FRM_BACK_UP(Program& program, QWidget* parent = nullptr);

    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Command1_Click();

    Program& m_program;
    BackUp m_state;
    QLineEdit* m_Text2;
    QPushButton* m_Command1;
    QPushButton* m_but_gen_rpt;
    QLabel* m_Label3;
    QProgressBar* m_ProgressBar1;
};

}  // namespace ostravel
