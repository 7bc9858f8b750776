#include "position/ui/websetting_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "context/program.h"
#include "position/websetting.h"
#include "widgets/control_binding.h"

namespace ostravel {

namespace {

QLabel* caption(const char* text, QWidget* parent) {
    return new QLabel(QString::fromUtf8(text), parent);
}

// Each tab holds one frame with the tab's controls.
QGroupBox* frameOn(QWidget* tab, const char* name) {
    auto* frame = new QGroupBox(tab);
    frame->setObjectName(QString::fromLatin1(name));
    auto* layout = new QVBoxLayout(tab);
    layout->addWidget(frame);
    layout->addStretch();
    return frame;
}

}  // namespace

WebSettingForm::WebSettingForm(Program& program, QWidget* parent)
    : QDialog(parent), m_state(program.module<WebSetting>()) {
    setObjectName(QStringLiteral("websetting"));
    setWindowTitle(QStringLiteral("Configuration Setting"));
    setModal(true);

    m_SSTab1 = new QTabWidget(this);
    m_SSTab1->setObjectName(QStringLiteral("SSTab1"));
    m_SSTab1->setUsesScrollButtons(false);  // all three tabs in sight
    m_SSTab1->addTab(positionTab(), QStringLiteral("Position Management setting"));
    m_SSTab1->addTab(serviceTab(), QStringLiteral("Quote and History Service"));
    m_SSTab1->addTab(userTab(), QStringLiteral("User Information"));

    auto button = [this](const char* name, const char* text) {
        auto* b = new QPushButton(QString::fromUtf8(text), this);
        b->setObjectName(QString::fromLatin1(name));
        b->setAutoDefault(false);
        return b;
    };
    QPushButton* cmdok = button("cmdok", "OK");
    QPushButton* cmdCancel = button("cmdCancel", "Cancel");
    QPushButton* cmdapply = button("cmdapply", "Apply");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdok);
    buttons->addWidget(cmdCancel);
    buttons->addWidget(cmdapply);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_SSTab1);
    layout->addLayout(buttons);

    m_state.unload = [this] { accept(); };
    m_state.Form_Load();
    m_state.currentTab = m_SSTab1->currentIndex();  // a fresh load opens on the first tab
    connect(m_SSTab1, &QTabWidget::currentChanged, this, [this](int tab) { m_state.currentTab = tab; });
    connect(cmdok, &QPushButton::clicked, this, [this] { press(&WebSetting::cmdok_Click); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { press(&WebSetting::cmdCancel_Click); });
    connect(cmdapply, &QPushButton::clicked, this, [this] { press(&WebSetting::cmdapply_Click); });
    refresh();
}

WebSettingForm::~WebSettingForm() {
    m_state.unload = nullptr;
}

QLineEdit* WebSettingForm::box(const char* name, TextBox& state, QWidget* parent, bool numeric) {
    QLineEdit* edit = makeTextBox(QString::fromLatin1(name), state, parent, numeric);
    m_boxes.append({edit, &state});
    return edit;
}

QComboBox* WebSettingForm::combo(const char* name, ComboBox& state, QWidget* parent, const char* toolTip) {
    QComboBox* c = makeComboBox(QString::fromLatin1(name), state, parent);
    c->setToolTip(QString::fromUtf8(toolTip));
    m_combos.append({c, &state});
    return c;
}

QWidget* WebSettingForm::positionTab() {
    auto* tab = new QWidget;
    QGroupBox* Frame1 = frameOn(tab, "Frame1");
    auto* grid = new QGridLayout(Frame1);
    grid->addWidget(caption("  Sell", Frame1), 0, 1);
    grid->addWidget(caption("   Buy", Frame1), 0, 2);
    const struct {
        const char* caption;
        const char* sell;
        TextBox* sellBox;
        const char* buy;
        TextBox* buyBox;
    } rows[] = {
        {"Min Trade Rs.", "txtmsell", &m_state.txtmsell, "txtmbuy", &m_state.txtmbuy},
        {"Min share for trade", "txtmtsell", &m_state.txtmtsell, "txtmtbuy", &m_state.txtmtbuy},
        {"Broker Comission( In %)", "txtfeesell", &m_state.txtfeesell, "txtfeebuy", &m_state.txtfeebuy},
        {"Resistance(10%)", "txtsellres", &m_state.txtsellres, "txtbuyres", &m_state.txtbuyres},
    };
    int row = 1;
    for (const auto& r : rows) {
        grid->addWidget(caption(r.caption, Frame1), row, 0);
        grid->addWidget(box(r.sell, *r.sellBox, Frame1, true), row, 1);
        grid->addWidget(box(r.buy, *r.buyBox, Frame1, true), row, 2);
        ++row;
    }
    grid->addWidget(caption("Cash(Recommended 50%)", Frame1), row, 0);
    grid->addWidget(box("txtcashper", m_state.txtcashper, Frame1, true), row, 1);
    ++row;
    grid->addWidget(caption("Begining Shares", Frame1), row, 0);
    grid->addWidget(box("txtbshares", m_state.txtbshares, Frame1, true), row, 1);
    return tab;
}

QWidget* WebSettingForm::serviceTab() {
    auto* tab = new QWidget;
    QGroupBox* Frame2 = frameOn(tab, "Frame2");
    auto* form = new QFormLayout(Frame2);
    form->addRow(caption("Genral Qoute Services", Frame2),
                 combo("cmbgqs", m_state.cmbgqs, Frame2, "Select the source of the Current Price "));
    form->addRow(caption("History Service", Frame2),
                 combo("cmbhs", m_state.cmbhs, Frame2, "Select the source of the history price"));
    form->addRow(caption("Seconds Allowed for Qoute", Frame2),
                 combo("Combo3", m_state.Combo3, Frame2, "Increase ot Decrease the time form getting history"));
    return tab;
}

QWidget* WebSettingForm::userTab() {
    auto* tab = new QWidget;
    QGroupBox* Frame3 = frameOn(tab, "Frame3");
    auto* form = new QFormLayout(Frame3);
    form->addRow(caption("User Last Name", Frame3), box("txtlastname", m_state.txtlastname, Frame3, false));
    form->addRow(caption("User First name", Frame3), box("txtfirstname", m_state.txtfirstname, Frame3, false));
    form->addRow(caption("User Email Address", Frame3), box("txtemail", m_state.txtemail, Frame3, false));
    m_Check2 = new QCheckBox(QStringLiteral("Show Quick Start Screen at startup"), Frame3);
    m_Check2->setObjectName(QStringLiteral("Check2"));
    connect(m_Check2, &QCheckBox::toggled, this, [this](bool on) { m_state.Check2 = on ? 1 : 0; });
    form->addRow(m_Check2);
    return tab;
}

void WebSettingForm::press(void (WebSetting::*button)()) {
    (m_state.*button)();
    refresh();
}

void WebSettingForm::refresh() {
    for (const auto& [edit, state] : m_boxes) mirror(edit, *state);
    for (const auto& [c, state] : m_combos) mirror(c, *state);
    m_Check2->setChecked(m_state.Check2 != 0);
    if (m_SSTab1->currentIndex() != m_state.currentTab)
        m_SSTab1->setCurrentIndex(m_state.currentTab);
}

}  // namespace ostravel
