#include "market/ui/frmproxy_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "market/frmproxy.h"

namespace ostravel {

FrmProxyForm::FrmProxyForm(FrmProxy& state, QWidget* parent) : QDialog(parent), m_state(state) {
    setObjectName(QStringLiteral("frmProxy"));
    setWindowTitle(FrmProxy::kCaption);
    setModal(true);

    m_chkProxy = new QCheckBox(QStringLiteral("Use HTTP Proxy"), this);
    m_chkProxy->setObjectName(QStringLiteral("chkProxy"));
    m_txtProxyIP = new QLineEdit(this);
    m_txtProxyIP->setObjectName(QStringLiteral("txtProxyIP"));
    m_txtProxyPort = new QLineEdit(this);
    m_txtProxyPort->setObjectName(QStringLiteral("txtProxyPort"));
    m_Cmdsave = new QPushButton(m_state.Cmdsave.caption, this);
    m_Cmdsave->setObjectName(QStringLiteral("Cmdsave"));
    auto* cmdCancel = new QPushButton(m_state.cmdCancel.caption, this);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    auto* adress = new QLabel(QStringLiteral("Adress"), this);
    adress->setBuddy(m_txtProxyIP);
    auto* port = new QLabel(QStringLiteral("Port"), this);
    port->setBuddy(m_txtProxyPort);
    auto* layout = new QGridLayout(this);
    layout->addWidget(m_chkProxy, 0, 0, 1, 2);
    layout->addWidget(adress, 1, 0);
    layout->addWidget(port, 1, 1);
    layout->addWidget(m_txtProxyIP, 2, 0);
    layout->addWidget(m_txtProxyPort, 2, 1);
    layout->addWidget(m_Cmdsave, 3, 0);
    layout->addWidget(cmdCancel, 3, 1);
    m_txtProxyPort->setMaximumWidth(80);

    m_state.Form_Load();
    refresh();
    connect(m_chkProxy, &QCheckBox::clicked, this, [this](bool checked) {
        m_state.chkProxy_Click(checked);
        refresh();
    });
    connect(m_txtProxyIP, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_state.txtProxyIP_Change(text);
        refresh();
    });
    connect(m_txtProxyPort, &QLineEdit::textEdited, this, [this](const QString& text) {
        m_state.txtProxyPort_Change(text);
        refresh();
    });
    connect(m_Cmdsave, &QPushButton::clicked, this, [this] {
        m_state.Cmdsave_Click();
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void FrmProxyForm::refresh() {
    m_chkProxy->setChecked(m_state.chkProxy);
    const std::pair<QLineEdit*, const ProxyBox*> boxes[] = {{m_txtProxyIP, &m_state.txtProxyIP},
                                                            {m_txtProxyPort, &m_state.txtProxyPort}};
    for (const auto& [edit, box] : boxes) {
        if (edit->text() != box->text)
            edit->setText(box->text);
        edit->setEnabled(box->enabled);
        QPalette colours = edit->palette();
        colours.setColor(QPalette::Base, palette().color(box->windowColour ? QPalette::Base : QPalette::Button));
        edit->setPalette(colours);
    }
    m_Cmdsave->setEnabled(m_state.Cmdsave.enabled);
}

}  // namespace ostravel
