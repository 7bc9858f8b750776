// CRegister: the program's registry key \Software\Ostravel\Settings, kept in QSettings under
// the organisation "Ostravel", group "Settings"; and the proxy values that live there.
#pragma once

#include <QString>

namespace ostravel {

inline const QString kSettingsKey = QStringLiteral("\\Software\\Ostravel\\Settings");

class CRegister {
public:
    // The stored text, or `defaultValue` unless a non-empty value was read. One leading and one
    // trailing "\" of the key are dropped.
    QString REGGetSetting(const QString& key, const QString& valueName, const QString& defaultValue) const;
    void REGSaveSetting(const QString& key, const QString& valueName, const QString& text);
    // Deletes the value, or the whole key when no value name is given.
    void REGDeleteSetting(const QString& key, const QString& valueName = {});
};

// The three proxy values as frmProxy keeps them.
struct ProxySettings {
    QString ip;
    QString port;
    bool use = false;

    // The proxy in force: on, with an address; the port 80 when none is given.
    bool active() const { return use && !ip.trimmed().isEmpty(); }
    int portNumber() const;
};

ProxySettings readProxySettings();

}  // namespace ostravel
