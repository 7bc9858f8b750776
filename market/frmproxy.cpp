#include "market/frmproxy.h"

#include "market/cregister.h"

namespace ostravel {

void FrmProxy::applyEnableRule() {
    for (ProxyBox* box : {&txtProxyIP, &txtProxyPort}) {
        box->enabled = chkProxy;
        box->windowColour = chkProxy;
    }
}

void FrmProxy::Form_Load() {
    applyEnableRule();
    const ProxySettings proxy = readProxySettings();
    chkProxy = proxy.use;
    txtProxyIP.text = proxy.ip;
    txtProxyPort.text = proxy.port;
    // Filling the check box runs its click, which applies the rule to the stored state.
    applyEnableRule();
    Cmdsave.enabled = false;
}

void FrmProxy::chkProxy_Click(bool checked) {
    chkProxy = checked;
    applyEnableRule();
    Cmdsave.enabled = true;
}

void FrmProxy::txtProxyIP_Change(const QString& text) {
    txtProxyIP.text = text;
    Cmdsave.enabled = true;
}

void FrmProxy::txtProxyPort_Change(const QString& text) {
    txtProxyPort.text = text;
    Cmdsave.enabled = true;
}

void FrmProxy::Cmdsave_Click() {
    CRegister reg;
    reg.REGSaveSetting(kSettingsKey, QStringLiteral("Proxy IP"), txtProxyIP.text);
    reg.REGSaveSetting(kSettingsKey, QStringLiteral("Proxy Port"), txtProxyPort.text);
    reg.REGSaveSetting(kSettingsKey, QStringLiteral("Proxy Use"), chkProxy ? QStringLiteral("1") : QStringLiteral("0"));
    Cmdsave.enabled = false;
}

}  // namespace ostravel
