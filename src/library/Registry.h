#pragma once

// The per-user registry: which printer each configuration prints to, and where dialogs
// were last placed. On Windows this is the real HKEY_CURRENT_USER; elsewhere an INI file
// that mirrors it, in the user's configuration folder unless a host (or a test) names
// another file with SetRegistryFile.

#include "library/RegistryFile.h"

#include <QList>
#include <QString>
#include <utility>

class QObject;

namespace bravcpl5 {

inline constexpr unsigned HKEY_CURRENT_USER_HANDLE = 0x80000001u;

// "<1>" is filled in by the host's Options.FixSettingsKey.
inline constexpr auto PrinterConfigurationsKeyTemplate =
    "Software\\Tarnwell\\Lumarest\\5.0\\Settings (<1>)\\Printer Configurations";
// Used exactly as it stands, trailing backslash included.
inline constexpr auto WindowPositionsKey = "Software\\Tarnwell\\Lumarest\\5.0\\Window Positions\\";

// The value's string data, or `defaultValue` when the hive is not HKEY_CURRENT_USER or
// the key or value is missing. Off Windows a file that has not changed since it was last
// read answers from that reading, and one that has (another process's write) is read anew.
QString GetRegValue(unsigned hive, const QString &key, const QString &valueName,
                    const QString &defaultValue);
// Every string value of the key as (name, data), read at once; none when the hive is not
// HKEY_CURRENT_USER or the key is missing.
QList<std::pair<QString, QString>> GetRegValues(unsigned hive, const QString &key);
// Creates the key when needed and writes the string value; false when it could not, also
// when another writer's lock could not be had within seconds.
bool SetRegValue(unsigned hive, const QString &key, const QString &valueName, const QString &data);
// Writes every (name, data) value of the key in one write: all are saved or none is.
bool SetRegValues(unsigned hive, const QString &key,
                  const QList<std::pair<QString, QString>> &values);

// The printer-configurations key with the host's settings profile filled in.
QString PrinterConfigurationsKey(QObject *host);

} // namespace bravcpl5
