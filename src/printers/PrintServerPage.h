#pragma once

// Where the print server's web interface shows a page, if it has one. libcups names the
// server as a host name or address with its port, or as the path of a local socket; only a
// server reached over the network (the system's own cupsd at localhost included, behind its
// usual socket) can have a web interface, and only when its port accepts a connection. A
// private cupsd reached through a socket of its own has none: opening localhost:631 there
// would show another server's printers.

#include <QString>
#include <QUrl>
#include <functional>

namespace bravcpl5 {

using AcceptsConnection = std::function<bool(const QString &host, int port)>;

// The page's address ("printers/Office-Laser") on `server` at `port`, or an empty address when
// the server has no web interface that `accepts` confirms.
QUrl PrintServerPage(const QString &server, int port, const QString &page,
                     const AcceptsConnection &accepts);

// Whether `host` accepts a connection on `port` within half a second.
bool AcceptsConnectionSoon(const QString &host, int port);

} // namespace bravcpl5
