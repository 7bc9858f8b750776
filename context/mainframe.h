// MDIForm1 as state: the current selection of the whole program, its caption and status bar,
// and the procedures of the frame that work on them.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace ostravel {

class Program;

struct ComboState {
    QStringList items;
    QString text;
};

class MainFrame {
public:
    static inline const QString kCaption = QStringLiteral("Ostravel - A Friendly Stock Consultant");
    static inline const QString kSimulation = QStringLiteral("Simulation");
    static constexpr int kPanels = 6;

    explicit MainFrame(Program& program);

    QString caption = kCaption;
    ComboState cmbportfolio;
    ComboState Cmbequityname;
    QString cmbequity;  // the current stock code, as a rule with ".NS"
    QString panel6;     // the status bar's panel that the program writes; the others show the clock
    bool OnlineFlag = false;
    QString historyFileName;

    // The overview refills itself when the portfolio changes; set by the screen that shows it.
    std::function<void()> selectportfolio;
    // The frame's window shows this state again after a screen has written it; set by the window.
    std::function<void()> mirror;

    // Asks the window, when there is one, to show the state again.
    void showChanges() {
        if (mirror)
            mirror();
    }

    // cmbequity without the ".NS" suffix, as every lookup wants it.
    QString equitySymbol() const;

    void MDIForm_Load();
    void cmbportfolio_Change();
    void Cmbequityname_Click();
    void cmbequity_Change();

    // The close button: refused with its message unless the close comes from Exit.
    bool MDIForm_QueryUnload(bool fromExit);

    // File - Exit: compacts first, then asks; true when the user chose to end the program.
    bool Exit();

private:
    Program& m_program;
};

}  // namespace ostravel
