// The screen frmjournal, "History of Changes": the journal's actions in a list, newest first,
// the filters by portfolio and symbol, and "Restore". It mirrors FrmJournal and forwards the
// user's actions to it.
#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;
class QTreeWidget;

namespace ostravel {

class FrmJournal;
class Program;

class FrmJournalForm : public QDialog {
    Q_OBJECT
public:
    explicit FrmJournalForm(Program& program, QWidget* parent = nullptr);
    ~FrmJournalForm() override;

    void refresh();

protected:
    void reject() override;

private:
    Program& m_program;
    FrmJournal& m_state;
    QComboBox* m_Combo1;
    QComboBox* m_Combo2;
    QTreeWidget* m_lstchanges;
    QPushButton* m_cmdrestore;
    QPushButton* m_cmdclose;
};

}  // namespace ostravel
