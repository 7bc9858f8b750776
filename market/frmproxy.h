// The proxy settings dialog frmProxy as state: the three values of the registry key, the enable
// rule of the two boxes, and Save that is only offered after a change.
#pragma once

#include "context/controls.h"

namespace ostravel {

struct ProxyBox {
    QString text;
    bool enabled = false;
    // On: the system's colour for text areas; off: the button face.
    bool windowColour = false;
};

class FrmProxy {
public:
    static inline const QString kCaption = QStringLiteral("Proxy Settings");

    bool chkProxy = false;  // "Use HTTP Proxy"
    ProxyBox txtProxyIP;    // under "Adress"
    ProxyBox txtProxyPort;  // under "Port"
    Button Cmdsave{QStringLiteral("&Save"), false};
    Button cmdCancel{QStringLiteral("&Cancel")};

    // The enable rule, then the three values from the registry.
    void Form_Load();
    void chkProxy_Click(bool checked);
    void txtProxyIP_Change(const QString& text);
    void txtProxyPort_Change(const QString& text);
    // Stores the three values; the dialog then closes.
    void Cmdsave_Click();

private:
    void applyEnableRule();
};

}  // namespace ostravel
