#include "ledger/ui/frmnewsymbol_view.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include "context/program.h"
#include "ledger/frmnewsymbol.h"
#include "ledger/ui/ledger_screen.h"
#include "widgets/control_binding.h"

namespace ostravel {

frmnewsymbol::frmnewsymbol(Program& program, QWidget* parent) : QDialog(parent), m_state(program.module<NewSymbol>()) {
    setObjectName(QStringLiteral("frmnewsymbol"));
    setWindowTitle(NewSymbol::kCaption);

    m_txtnewsymbol = makeTextBox(QStringLiteral("txtnewsymbol"), m_state.txtnewsymbol, this, false);
    m_txtnewstock = makeTextBox(QStringLiteral("txtnewstock"), m_state.txtnewstock, this, false);
    m_Text1 = makeTextBox(QStringLiteral("Text1"), m_state.Text1, this, false);
    m_Command1 = new QPushButton(m_state.Command1.caption, this);
    m_Command1->setObjectName(QStringLiteral("Command1"));
    m_Command1->setAutoDefault(false);
    auto* hint = new QLabel(NewSymbol::kHint, this);
    hint->setObjectName(QStringLiteral("Label4"));
    hint->setWordWrap(true);

    auto* fields = new QGridLayout;
    fields->addWidget(new QLabel(QStringLiteral("NSE Symbol"), this), 0, 0);
    fields->addWidget(m_txtnewsymbol, 0, 1);
    fields->addWidget(new QLabel(QStringLiteral("Stock Name"), this), 1, 0);
    fields->addWidget(m_txtnewstock, 1, 1);
    fields->addWidget(m_Command1, 1, 2);
    fields->addWidget(new QLabel(QStringLiteral("Yahoo Symbol "), this), 2, 0);
    fields->addWidget(m_Text1, 2, 1);

    m_cmdadd = new QPushButton(m_state.cmdadd.caption, this);
    m_cmdadd->setObjectName(QStringLiteral("cmdadd"));
    m_cmdadd->setDefault(true);
    auto* cmdclose = new QPushButton(m_state.cmdclose.caption, this);
    cmdclose->setObjectName(QStringLiteral("cmdclose"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdadd);
    buttons->addWidget(cmdclose);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(hint);
    layout->addLayout(buttons);

    connect(m_cmdadd, &QPushButton::clicked, this, [this] {
        m_state.cmdadd_Click();
        refresh();
    });
    connect(cmdclose, &QPushButton::clicked, this, [this] { m_state.cmdclose_Click(); });

    m_state.closeView = [view = QPointer<frmnewsymbol>(this)] {
        if (!view)
            return;
        view->m_unloaded = true;
        view->done(QDialog::Rejected);
    };
    refresh();
}

frmnewsymbol::~frmnewsymbol() {
    if (!m_unloaded) {
        m_state.closeView = nullptr;
        m_state.unload();
    }
}

void frmnewsymbol::refresh() {
    mirror(m_txtnewsymbol, m_state.txtnewsymbol);
    mirror(m_txtnewstock, m_state.txtnewstock);
    mirror(m_Text1, m_state.Text1);
    m_cmdadd->setEnabled(m_state.cmdadd.enabled);
    m_Command1->setEnabled(m_state.Command1.enabled);
    takeFocus(this, m_state.focus);
}

void frmnewsymbol::reject() {
    m_state.cmdclose_Click();
}

}  // namespace ostravel
