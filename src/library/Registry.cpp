#include "library/Registry.h"

#include "library/HostContract.h"

#include "library/RegistryIni.h"
#include "library/WholeFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>
#include <QStandardPaths>
#include <QThread>
#include <memory>
#include <optional>

namespace bravcpl5 {

namespace {

QString &registryFileOverride()
{
    static QString path;
    return path;
}

#ifdef Q_OS_WIN

QString settingsKey(const QString &key, const QString &valueName)
{
    return key + QLatin1Char('\\') + valueName;
}

std::optional<QString> readValue(const QString &key, const QString &valueName)
{
    QSettings settings(QStringLiteral("HKEY_CURRENT_USER"), QSettings::NativeFormat);
    const QVariant value = settings.value(settingsKey(key, valueName));
    return value.isValid() ? std::optional<QString>(value.toString()) : std::nullopt;
}

QList<std::pair<QString, QString>> readValues(const QString &key)
{
    QSettings settings(QStringLiteral("HKEY_CURRENT_USER"), QSettings::NativeFormat);
    settings.beginGroup(key);
    QList<std::pair<QString, QString>> values;
    for (const QString &name : settings.childKeys())
        values.append({name, settings.value(name).toString()});
    return values;
}

bool writeValue(const QString &key, const QString &valueName, const QString &data)
{
    QSettings settings(QStringLiteral("HKEY_CURRENT_USER"), QSettings::NativeFormat);
    settings.setValue(settingsKey(key, valueName), data);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

bool writeValues(const QString &key, const QList<std::pair<QString, QString>> &values)
{
    QSettings settings(QStringLiteral("HKEY_CURRENT_USER"), QSettings::NativeFormat);
    for (const auto &[valueName, data] : values)
        settings.setValue(settingsKey(key, valueName), data);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

#else

// A registry file is a few kilobytes; a larger one is not ours and is left alone.
constexpr qint64 maxRegistryBytes = 16 * 1024 * 1024;
// A lock older than this is taken to be left by a writer that died: a write holds it for
// milliseconds.
constexpr int staleLockMs = 1000;

// The file's values; an empty set when it does not exist yet, nothing when it exists but
// cannot be read (then it must not be overwritten either).
std::optional<RegistryIni> readFile(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        return RegistryIni();
    if (file.size() > maxRegistryBytes || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return RegistryIni::parse(bytes);
}

// The older flat form kept each value as one "[General]" entry named by the key's path
// and the value's name joined with "\". The name starts after the known key it belongs
// to; anything else is split at its last "\".
void splitFlatName(const QString &flat, QString &key, QString &valueName)
{
    const QString windows = QString::fromLatin1(WindowPositionsKey);
    const QString printers = QStringLiteral("\\Printer Configurations\\");
    qsizetype nameAt = -1;
    if (flat.startsWith(windows + QLatin1Char('\\'), Qt::CaseInsensitive))
        nameAt = windows.size() + 1;
    else if (const qsizetype at = flat.indexOf(printers, 0, Qt::CaseInsensitive); at >= 0)
        nameAt = at + printers.size();
    else if (const qsizetype at = flat.lastIndexOf(QLatin1Char('\\')); at >= 0)
        nameAt = at + 1;
    key = nameAt > 0 ? flat.left(nameAt - 1) : QString();
    valueName = flat.mid(nameAt > 0 ? nameAt : 0);
}

// Adds the flat entries to `ini`, where the new form does not already have them; QSettings
// wrote them, so QSettings reads them back.
void mergeFlatEntries(const QString &path, RegistryIni &ini)
{
    const QSettings flat(path, QSettings::IniFormat);
    for (const QString &name : flat.allKeys()) {
        const qsizetype slash = name.indexOf(QLatin1Char('/'));
        const qsizetype backslash = name.indexOf(QLatin1Char('\\'));
        if (backslash < 0 || (slash >= 0 && slash < backslash))
            continue; // a group of the new form, as QSettings sees it
        QString key;
        QString valueName;
        splitFlatName(name, key, valueName);
        if (!ini.value(key, valueName))
            ini.setValue(key, valueName, flat.value(name).toString());
    }
}

// Takes the lock that QSettings writers of the same file take too. A lock that cannot be
// created at all (a folder without create rights) leaves the write unguarded rather than
// impossible; one that stays taken longer than a writer could need is broken.
std::unique_ptr<QLockFile> lockFile(const QString &path)
{
    auto lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    lock->setStaleLockTime(staleLockMs);
    QElapsedTimer waited;
    waited.start();
    while (!lock->tryLock(0)) {
        if (lock->error() != QLockFile::LockFailedError)
            return nullptr;
        if (waited.elapsed() >= staleLockMs && lock->removeStaleLockFile() && lock->tryLock(0))
            break;
        QThread::msleep(5);
    }
    return lock;
}

// Reads, changes and writes the file under the lock; the old file stays whole when the
// write fails. A file still in the flat form is rewritten in the new one on the way.
template <typename Change> bool updateFile(const QString &path, Change change)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const auto lock = lockFile(path);
    std::optional<RegistryIni> ini = readFile(path);
    if (!ini)
        return false;
    if (ini->hasFlatEntries())
        mergeFlatEntries(path, *ini);
    change(*ini);
    return WriteWholeFile(path, ini->text());
}

// The file as it is to be read, an older flat file migrated first.
std::optional<RegistryIni> readCurrentFile()
{
    const QString path = RegistryFile();
    std::optional<RegistryIni> ini = readFile(path);
    if (!ini)
        return std::nullopt;
    if (ini->hasFlatEntries()) {
        updateFile(path, [](RegistryIni &) {});
        ini = readFile(path);
        if (ini && ini->hasFlatEntries())
            mergeFlatEntries(path, *ini); // could not be rewritten: still read everything
    }
    return ini;
}

std::optional<QString> readValue(const QString &key, const QString &valueName)
{
    const std::optional<RegistryIni> ini = readCurrentFile();
    return ini ? ini->value(key, valueName) : std::nullopt;
}

QList<std::pair<QString, QString>> readValues(const QString &key)
{
    const std::optional<RegistryIni> ini = readCurrentFile();
    return ini ? ini->values(key) : QList<std::pair<QString, QString>>();
}

bool writeValue(const QString &key, const QString &valueName, const QString &data)
{
    return updateFile(RegistryFile(),
                      [&](RegistryIni &ini) { ini.setValue(key, valueName, data); });
}

bool writeValues(const QString &key, const QList<std::pair<QString, QString>> &values)
{
    return updateFile(RegistryFile(), [&](RegistryIni &ini) {
        for (const auto &[valueName, data] : values)
            ini.setValue(key, valueName, data);
    });
}

#endif

} // namespace

void SetRegistryFile(const QString &path) { registryFileOverride() = path; }

QString RegistryFile()
{
    if (!registryFileOverride().isEmpty())
        return registryFileOverride();
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("bravcpl5/HKEY_CURRENT_USER.ini"));
}

QString GetRegValue(unsigned hive, const QString &key, const QString &valueName,
                    const QString &defaultValue)
{
    if (hive != HKEY_CURRENT_USER_HANDLE || valueName.isEmpty())
        return defaultValue;
    return readValue(key, valueName).value_or(defaultValue);
}

QList<std::pair<QString, QString>> GetRegValues(unsigned hive, const QString &key)
{
    if (hive != HKEY_CURRENT_USER_HANDLE)
        return {};
    return readValues(key);
}

bool SetRegValue(unsigned hive, const QString &key, const QString &valueName, const QString &data)
{
    if (hive != HKEY_CURRENT_USER_HANDLE || valueName.isEmpty())
        return false;
    return writeValue(key, valueName, data);
}

bool SetRegValues(unsigned hive, const QString &key,
                  const QList<std::pair<QString, QString>> &values)
{
    if (hive != HKEY_CURRENT_USER_HANDLE)
        return false;
    for (const auto &value : values) {
        if (value.first.isEmpty())
            return false;
    }
    return writeValues(key, values);
}

QString PrinterConfigurationsKey(QObject *host)
{
    return host::fixSettingsKey(host, QString::fromLatin1(PrinterConfigurationsKeyTemplate));
}

} // namespace bravcpl5
