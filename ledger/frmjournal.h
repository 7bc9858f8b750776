// The screen frmjournal ("History of Changes") as state: the journal's actions, newest first,
// filtered by portfolio and symbol, each with the rows it added, changed or deleted; and the
// restore of the rows that one action deleted.
#pragma once

#include <vector>

#include "context/controls.h"
#include "ledger/form_state.h"
#include "store/journal.h"

namespace ostravel {

class Program;

class FrmJournal : public FormState<FrmJournal> {
public:
    static inline const QString kCaption = QStringLiteral("History of Changes");
    static inline const QString kAll = QStringLiteral("(All)");
    static inline const QStringList kHeadings = {QStringLiteral("When"), QStringLiteral("Action"),
                                                 QStringLiteral("Portfolio"), QStringLiteral("Symbol"),
                                                 QStringLiteral("What")};

    // One action as the list shows it, with a line for each row it touched.
    struct ActionLine {
        QStringList cells;  // under kHeadings
        QStringList rows;   // "Deleted holding INFY of Growth", and each changed figure
        bool restorable = false;
    };

    explicit FrmJournal(Program& program);

    ComboBox Combo1;  // portfolio filter
    ComboBox Combo2;  // symbol filter
    std::vector<ActionLine> lines;
    int selected = -1;  // index into lines
    Button cmdrestore{QStringLiteral("Restore"), false};
    Button cmdclose{QStringLiteral("Close")};

    void Form_Load();
    // A filter chosen: the list again.
    void Combo_Click();
    void select(int index);
    // Asks, then puts back the rows the chosen action deleted, in one unit of work, or says
    // which row stands in the way.
    void cmdrestore_Click();
    void cmdclose_Click() { unload(); }

private:
    void reload();
    void fillLines();

    std::vector<JournalAction> m_actions;
    std::vector<std::size_t> m_shown;  // the action of each line, in m_actions
};

}  // namespace ostravel
