#include "printers/PrintServerPage.h"

#include <cups/cups.h>

namespace bravcpl5 {

namespace {

// The sockets the system's cupsd listens on beside localhost.
bool isSystemSocket(const QString &path)
{
    return path == QLatin1String("/run/cups/cups.sock")
           || path == QLatin1String("/var/run/cups/cups.sock");
}

} // namespace

QUrl PrintServerPage(const QString &server, int port, const QString &page,
                     const AcceptsConnection &accepts)
{
    QString host = server;
    if (host.startsWith(u'/')) {
        if (!isSystemSocket(host))
            return {};
        host = QStringLiteral("localhost");
    }
    if (host.isEmpty() || port <= 0 || !accepts(host, port))
        return {};
    QUrl address;
    address.setScheme(QStringLiteral("http"));
    address.setHost(host); // an IPv6 address gets its brackets here
    address.setPort(port);
    address.setPath(u'/' + page, QUrl::TolerantMode); // the page comes percent-encoded
    return address;
}

bool AcceptsConnectionSoon(const QString &host, int port)
{
    http_t *http = httpConnect2(host.toUtf8().constData(), port, nullptr, AF_UNSPEC,
                                HTTP_ENCRYPTION_IF_REQUESTED, 1, 500, nullptr);
    const bool accepted = http != nullptr;
    httpClose(http);
    return accepted;
}

} // namespace bravcpl5
