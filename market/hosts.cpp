#include "market/hosts.h"

#include <QFile>
#include <QSettings>

#include "runtime/apppath.h"

namespace ostravel {

namespace {

const QString kHostsFile = QStringLiteral("hosts.ini");

const char* const kTemplate =
    "; Ostravel's service hosts. Each value is a host or host:port; the port is 80 when absent.\n"
    "; An empty value leaves that service unused: a fetch from it ends with \"Unknown host\".\n"
    ";   history  daily price history (/table.csv)\n"
    ";   quote    quotes (/d/quotes.csv)\n"
    ";   bhav     the exchange's day files (/content/historical/EQUITIES/...)\n"
    ";   chart, finance, news, site, forum  web pages the program opens\n"
    "[Hosts]\n"
    "history=\n"
    "quote=\n"
    "bhav=\n"
    "chart=\n"
    "finance=\n"
    "news=\n"
    "site=\n"
    "forum=\n"
    "\n"
    "; Sites that only the navigator opens, each a host or host:port: the exchanges' pages (nse,\n"
    "; bse), the brokers', the quote service's local news and the news agency's charts.\n"
    "[Sites]\n"
    "nse=\n"
    "bse=\n"
    "icicidirect=\n"
    "icicidirectnews=\n"
    "sharekhan=\n"
    "motilaloswal=\n"
    "investmentz=\n"
    "indiabulls=\n"
    "localnews=\n"
    "agencychart=\n"
    "\n"
    "; The day-file store. folder: where downloaded day files are kept, below the program's\n"
    "; folder unless absolute. Without a host the store is database/NSEHISTORY.mdb; with one,\n"
    "; a PostgreSQL server (host, port, database, user; the password from ~/.pgpass).\n"
    "[DayStore]\n"
    "folder=history/bhav\n"
    "host=\n"
    "port=5432\n"
    "database=\n"
    "user=\n";

}  // namespace

const QStringList& serviceNames() {
    static const QStringList names = {QStringLiteral("history"), QStringLiteral("quote"),   QStringLiteral("bhav"),
                                      QStringLiteral("chart"),   QStringLiteral("finance"), QStringLiteral("news"),
                                      QStringLiteral("site"),    QStringLiteral("forum")};
    return names;
}

QString hostsIniValue(const QString& section, const QString& key) {
    const QSettings ini(appFile(kHostsFile), QSettings::IniFormat);
    return ini.value(section + QLatin1Char('/') + key).toString().trimmed();
}

ServiceHost parseServiceHost(const QString& text) {
    ServiceHost result;
    const QString value = text.trimmed();
    const qsizetype colon = value.lastIndexOf(QLatin1Char(':'));
    if (colon < 0) {
        result.host = value;
        return result;
    }
    result.host = value.left(colon);
    bool ok = false;
    const int port = value.mid(colon + 1).toInt(&ok);
    if (ok && port > 0 && port < 65536)
        result.port = port;
    return result;
}

ServiceHost serviceHost(const QString& service) {
    return parseServiceHost(hostsIniValue(QStringLiteral("Hosts"), service));
}

int portForHost(const QString& host) {
    for (const QString& service : serviceNames()) {
        const ServiceHost known = serviceHost(service);
        if (!known.host.isEmpty() && known.host.compare(host, Qt::CaseInsensitive) == 0)
            return known.port;
    }
    return 80;
}

QString serviceBase(const QString& service) {
    return QStringLiteral("http://") + serviceHost(service).host;
}

QString ensureHostsFile() {
    const QString path = appFile(kHostsFile);
    if (QFile::exists(path))
        return {};
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly) || file.write(kTemplate) < 0 || !file.flush())
        return QStringLiteral("The file %1 can't be written.").arg(path);
    return {};
}

}  // namespace ostravel
