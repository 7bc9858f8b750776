// The dialog frmnewsymbol, "Add New Stocksymbol": a stock's symbol, name and quote code for the
// symbol list. It mirrors NewSymbol and forwards the user's actions to it.
#pragma once

#include <QDialog>
#include <utility>

class QLineEdit;
class QPushButton;

namespace ostravel {

class NewSymbol;
class Program;

class frmnewsymbol : public QDialog {
    Q_OBJECT
public:
    explicit frmnewsymbol(Program& program, QWidget* parent = nullptr);
    ~frmnewsymbol() override;

    void refresh();
    void reject() override;

private:
    NewSymbol& m_state;
    QLineEdit* m_txtnewsymbol;
    QLineEdit* m_txtnewstock;
    QLineEdit* m_Text1;
    QPushButton* m_cmdadd;
    QPushButton* m_Command1;
    bool m_unloaded = false;  // the state has unloaded and closed this screen
};

}  // namespace ostravel
