// GetFromInet: the program's own HTTP/1.0 client on a raw socket. It reports its progress in
// the main frame's caption and returns the answer as it came, status line and headers in front.
#pragma once

#include <QByteArray>
#include <QString>

namespace ostravel {

class Program;

inline const QString kConnecting = QStringLiteral("Connecting to Internet to get data");
inline const QString kSendingRequest = QStringLiteral("Sending request...");
inline const QString kWaiting = QStringLiteral("Waiting for response from Internet");
inline const QString kReady = QStringLiteral("Ready");
inline const QString kUnknownHost = QStringLiteral("Unknown host");
inline const QString kCouldNotConnect = QStringLiteral("Could not connect to Internet");
inline const QString kCreateSocketError = QStringLiteral("SOCKET_ERROR: CreateSocket");

// `url` loses its scheme in place. Empty on failure, with the failure's caption.
QByteArray GetFromInet(Program& program, QString& url);

}  // namespace ostravel
