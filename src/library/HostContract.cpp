#include "library/HostContract.h"

#include "library/LateBinding.h"

namespace bravcpl5::host {

QObject *options(QObject *host) { return late::object(host, "Options"); }
QObject *common(QObject *host) { return late::object(host, "Common"); }
QObject *database(QObject *host) { return late::object(host, "BRAVSQL"); }

QString fixSettingsKey(QObject *host, const QString &key)
{
    return late::text(options(host), "FixSettingsKey", {key});
}

QString systemFileLocation(QObject *host, const QString &kind)
{
    return late::text(options(host), "SystemFileLocation", {kind});
}

QString userFileLocation(QObject *host, const QString &kind)
{
    return late::text(options(host), "UserFileLocation", {kind});
}

} // namespace bravcpl5::host
