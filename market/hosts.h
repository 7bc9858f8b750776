// The deployment's service hosts, kept in hosts.ini under the program's folder: each service
// a `host` or `host:port`. URLs keep the bare host; the port only steers the connection.
#pragma once

#include <QString>
#include <QStringList>

namespace ostravel {

// The keys of [Hosts], in the order the file lists them.
const QStringList& serviceNames();

struct ServiceHost {
    QString host;  // empty: the service is not set
    int port = 80;
};

// The host of one service ("history", "quote", "bhav", ...), as hosts.ini gives it now.
ServiceHost serviceHost(const QString& service);

// The port to connect to for a host that a URL names: the port of the service whose host it
// is, else 80.
int portForHost(const QString& host);

// "http://" + the bare host of the service, as the program's URLs begin.
QString serviceBase(const QString& service);

// Reads `host` or `host:port`; a port that is no number from 1 to 65535 leaves 80.
ServiceHost parseServiceHost(const QString& text);

// One value of hosts.ini, "" when absent.
QString hostsIniValue(const QString& section, const QString& key);

// Writes hosts.ini with its documented empty values when the folder has none; a file the user
// has is never touched. Returns an error text, empty when all is well.
QString ensureHostsFile();

}  // namespace ostravel
