#include "market/newsbar.h"

#include <QFile>

#include "market/hosts.h"
#include "market/openurl.h"
#include "runtime/apppath.h"

namespace ostravel {

namespace {

QString oneLine(const QByteArray& text) {
    return QString::fromUtf8(text).simplified();
}

}  // namespace

QString newsText() {
    if (!serviceHost(QStringLiteral("news")).host.isEmpty()) {
        const QString fromHost = oneLine(OpenURL(serviceBase(QStringLiteral("news")) + QLatin1Char('/') + kNewsFile));
        if (!fromHost.isEmpty())
            return fromHost;
    }
    QFile file(appFile(kNewsFile));
    return file.open(QIODevice::ReadOnly) ? oneLine(file.readAll()) : QString();
}

void NewsBar::Form_Load(int formWidth, int labelWidth) {
    Label1Left = formWidth;
    Label1Width = labelWidth;
    closed = false;
}

bool NewsBar::Timer1_Timer() {
    if (Label1Left + Label1Width <= 0) {
        closed = true;
        return false;
    }
    Label1Left -= kStepTwips / kTwipsPerPixel;
    return true;
}

}  // namespace ostravel
