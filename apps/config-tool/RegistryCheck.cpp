#include "RegistryCheck.h"

#include <QFile>
#include <QFileInfo>
#include <QStringConverter>
#include <QStringList>

namespace {

// Larger than any registry the library would write for a workstation.
constexpr qint64 maxRegistryBytes = 16 * 1024 * 1024;

bool isGroup(const QString &line)
{
    if (!line.startsWith(QLatin1Char('[')) || !line.endsWith(QLatin1Char(']')))
        return false;
    const QString group = line.mid(1, line.size() - 2);
    return group == QLatin1String("General")
           || group.startsWith(QLatin1String("Software/"), Qt::CaseInsensitive);
}

} // namespace

bool IsRegistryText(const QByteArray &bytes)
{
    if (bytes.contains('\0'))
        return false;
    QStringDecoder decode(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString text = decode(bytes);
    if (decode.hasError())
        return false;
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    bool inGroup = false;
    for (const QString &raw : text.split(QLatin1Char('\n'))) {
        const QString line = raw.trimmed();
        if (line.isEmpty())
            continue;
        if (isGroup(line))
            inGroup = true;
        else if (!inGroup || line.indexOf(QLatin1Char('=')) <= 0)
            return false;
    }
    return true;
}

bool IsRegistryFile(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return true;
    QFile file(path);
    if (!info.isFile() || info.size() > maxRegistryBytes || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError && IsRegistryText(bytes);
}
