#pragma once

// What every fuzz target shares: the input handed to the library as a settings file is
// (the readers take a path and the bytes go through the same loading a user's file does),
// and the check that a document the library saved loads again.

#include "library/Xml.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

namespace fuzz {

// A file that holds the input, in a folder of the process's own; in memory where the
// system offers it, as every save is synced to disk.
inline QString inputFile(const std::uint8_t *data, std::size_t size)
{
    static QTemporaryDir folder(
        QDir(QStringLiteral("/dev/shm")).exists()
            ? QStringLiteral("/dev/shm/bravcpl5-fuzz-XXXXXX")
            : QDir::temp().filePath(QStringLiteral("bravcpl5-fuzz-XXXXXX")));
    const QString path = QDir(folder.path()).filePath(QStringLiteral("input.xml"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(reinterpret_cast<const char *>(data), qint64(size));
    return path;
}

// A document the library has just saved must load again; anything else is a finding.
inline void requireLoadable(const QString &path)
{
    if (!bravcpl5::LoadXmlFile(path))
        __builtin_trap();
}

} // namespace fuzz
