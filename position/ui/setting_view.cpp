#include "position/ui/setting_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "context/program.h"
#include "position/setting.h"
#include "widgets/control_binding.h"
#include "widgets/flexgrid.h"
#include "widgets/help_panel.h"

namespace ostravel {

namespace {

QLabel* caption(const char* text, QWidget* parent) {
    return new QLabel(QString::fromUtf8(text), parent);
}

}  // namespace

SettingForm::SettingForm(Program& program, QWidget* parent) : QDialog(parent), m_state(program.module<Setting>()) {
    setObjectName(QStringLiteral("setting"));
    setModal(true);

    auto* Frame1 = new QGroupBox(QStringLiteral("Position Management Setting"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto box = [&](const char* name, TextBox& state) {
        QLineEdit* edit = makeTextBox(QString::fromLatin1(name), state, Frame1, true);
        m_boxes.append({edit, &state});
        return edit;
    };
    auto* grid = new QGridLayout(Frame1);
    grid->addWidget(caption("Buy", Frame1), 0, 1, Qt::AlignHCenter);
    grid->addWidget(caption("Sell", Frame1), 0, 2, Qt::AlignHCenter);
    grid->addWidget(caption("Min Trades Rs.", Frame1), 1, 0);
    grid->addWidget(box("txtmbuy", m_state.txtmbuy), 1, 1);
    grid->addWidget(box("txtmsell", m_state.txtmsell), 1, 2);
    grid->addWidget(caption("Min Trades shares", Frame1), 2, 0);
    grid->addWidget(box("txtmtbuy", m_state.txtmtbuy), 2, 1);
    grid->addWidget(box("txtmtsell", m_state.txtmtsell), 2, 2);
    grid->addWidget(caption("Beginning Cash ", Frame1), 3, 0);
    grid->addWidget(box("txtbcash", m_state.txtbcash), 3, 1);
    grid->addWidget(caption("Advanced Buy Resistance", Frame1), 4, 0);
    grid->addWidget(box("txtbuyres", m_state.txtbuyres), 4, 1);
    grid->addWidget(caption("Advanced Sell Resistance", Frame1), 5, 0);
    grid->addWidget(box("txtsellres", m_state.txtsellres), 5, 1);

    m_cmdok = new QPushButton(QStringLiteral("OK"), this);
    m_cmdok->setObjectName(QStringLiteral("cmdok"));
    m_cmdok->setDefault(true);
    m_cmdhelp = new QPushButton(this);
    m_cmdhelp->setObjectName(QStringLiteral("cmdhelp"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdok);
    buttons->addWidget(m_cmdhelp);

    m_helpArea = new HelpPanel(this, Setting::kHelpExtraTwips, program.reporter(),
                               QStringLiteral("(Form) SettingForm::Sub Form_Load"),
                               QStringLiteral("help/PositionManagement.rtf"));
    m_helpArea->load();

    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(Frame1);
    layout->addLayout(buttons);
    layout->addWidget(m_helpArea);

    m_state.unload = [this] { accept(); };
    m_state.Form_Load();
    connect(m_cmdok, &QPushButton::clicked, this, [this] {
        m_state.cmdok_Click();
        refresh();
    });
    connect(m_cmdhelp, &QPushButton::clicked, this, &SettingForm::cmdhelp_Click);
    refresh();
}

SettingForm::~SettingForm() {
    m_state.unload = nullptr;
}

void SettingForm::refresh() {
    setWindowTitle(m_state.caption);
    for (const auto& [edit, box] : m_boxes) mirror(edit, *box);
    m_cmdhelp->setText(m_state.cmdhelp.caption);
    m_cmdhelp->setEnabled(m_state.cmdhelp.enabled);
    m_helpArea->mirror(m_state.helpShown);
}

void SettingForm::cmdhelp_Click() {
    m_state.cmdhelp_Click();
    refresh();
}

}  // namespace ostravel
