#include "market/cregister.h"

#include <QSettings>
#include <memory>

#include "runtime/vbmath.h"

namespace ostravel {

namespace {

// "\Software\Ostravel\Settings" is the group "Settings" of the organisation "Ostravel".
QString groupOf(const QString& key) {
    QString normalised = key;
    if (normalised.startsWith(QLatin1Char('\\')))
        normalised.remove(0, 1);
    if (normalised.endsWith(QLatin1Char('\\')))
        normalised.chop(1);
    const QString prefix = QStringLiteral("Software\\Ostravel");
    if (normalised.startsWith(prefix, Qt::CaseInsensitive))
        normalised.remove(0, prefix.size());
    while (normalised.startsWith(QLatin1Char('\\'))) normalised.remove(0, 1);
    normalised.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return normalised;
}

std::unique_ptr<QSettings> settings() {
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Ostravel"));
}

QString valuePath(const QString& key, const QString& valueName) {
    const QString group = groupOf(key);
    return group.isEmpty() ? valueName : group + QLatin1Char('/') + valueName;
}

}  // namespace

QString CRegister::REGGetSetting(const QString& key, const QString& valueName, const QString& defaultValue) const {
    const QString value = settings()->value(valuePath(key, valueName)).toString();
    return value.isEmpty() ? defaultValue : value;
}

void CRegister::REGSaveSetting(const QString& key, const QString& valueName, const QString& text) {
    const auto store = settings();
    store->setValue(valuePath(key, valueName), text);
    store->sync();
}

void CRegister::REGDeleteSetting(const QString& key, const QString& valueName) {
    const auto store = settings();
    store->remove(valueName.isEmpty() ? groupOf(key) : valuePath(key, valueName));
    store->sync();
}

int ProxySettings::portNumber() const {
    const double number = Val(port);
    return number >= 1 && number <= 65535 ? static_cast<int>(number) : 80;
}

ProxySettings readProxySettings() {
    const CRegister reg;
    ProxySettings proxy;
    proxy.ip = reg.REGGetSetting(kSettingsKey, QStringLiteral("Proxy IP"), {});
    proxy.port = reg.REGGetSetting(kSettingsKey, QStringLiteral("Proxy Port"), {});
    proxy.use = Val(reg.REGGetSetting(kSettingsKey, QStringLiteral("Proxy Use"), QStringLiteral("0"))) != 0;
    return proxy;
}

}  // namespace ostravel
