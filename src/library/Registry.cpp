#include "library/Registry.h"

#include "library/HostContract.h"

#include "library/RegistryIni.h"
#include "library/WholeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QMutex>
#include <QRandomGenerator>
#include <QSettings>
#include <QStandardPaths>
#include <QSysInfo>
#include <QThread>
#include <algorithm>
#include <optional>

#ifndef Q_OS_WIN
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

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
// How long a write waits for another writer's lock before it gives up. A write holds the
// lock for milliseconds; a lock held longer belongs to a writer that hangs, or is something
// no writer can take (a folder of that name, another user's file).
constexpr int lockWaitMs = 3000;
// A file changed this recently may change again within the same tick of its time stamps
// (coarse kernel clocks, FAT's two seconds, a file server's own clock), so that a change
// need not show in the stamp: such a file is parsed anew on every read.
constexpr qint64 settleSeconds = 2;

// What tells one state of the file from another without reading it: a rewrite renames a
// new file into place, and an edit in place changes the size or the time stamps.
struct FileIdentity {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec modified{};
    timespec changed{};

    explicit FileIdentity(const struct stat &status)
        : device(status.st_dev),
          inode(status.st_ino),
          size(status.st_size),
          modified(status.st_mtim),
          changed(status.st_ctim)
    {}
    FileIdentity() = default;
    bool operator==(const FileIdentity &other) const
    {
        return device == other.device && inode == other.inode && size == other.size
               && modified.tv_sec == other.modified.tv_sec
               && modified.tv_nsec == other.modified.tv_nsec
               && changed.tv_sec == other.changed.tv_sec
               && changed.tv_nsec == other.changed.tv_nsec;
    }
};

// The file as last parsed. A host looks up a printer for every report it prints; while the
// file stays the same, the lookups answer from here rather than parsing it each time.
struct ParsedFile {
    QString path;
    FileIdentity identity;
    RegistryIni ini;
};

QMutex parsedFileMutex;
ParsedFile &parsedFile()
{
    static ParsedFile parsed;
    return parsed;
}

bool settled(const struct stat &status)
{
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return status.st_mtim.tv_sec <= now.tv_sec - settleSeconds;
}

bool isReadable(const struct stat &status)
{
    return S_ISREG(status.st_mode) && status.st_size <= maxRegistryBytes;
}

// The open file to its end, but never more than one byte beyond what a registry file may
// hold: the file may grow while it is read. `size` is what it held when opened.
std::optional<QByteArray> readAll(int fd, qint64 size)
{
    QByteArray bytes(std::min(size, maxRegistryBytes) + 1, Qt::Uninitialized);
    qsizetype filled = 0;
    while (filled <= maxRegistryBytes) {
        if (filled == bytes.size())
            bytes.resize(std::min<qsizetype>(bytes.size() * 2, maxRegistryBytes + 1));
        const ssize_t got = ::read(fd, bytes.data() + filled, size_t(bytes.size() - filled));
        if (got == 0)
            break;
        if (got < 0 && errno != EINTR)
            return std::nullopt;
        filled += std::max<ssize_t>(got, 0);
    }
    bytes.truncate(filled);
    return bytes;
}

// The file's values; an empty set when it does not exist yet, nothing when it exists but
// cannot be read (then it must not be overwritten either). Only a regular file is read: a
// FIFO, a device or a folder of that name is refused, and opening never waits for a
// FIFO's writer.
std::optional<RegistryIni> readFile(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status {
    };
    if (::stat(name.constData(), &status) != 0)
        return errno == ENOENT || errno == ENOTDIR ? std::optional(RegistryIni()) : std::nullopt;
    if (!isReadable(status))
        return std::nullopt;
    {
        const QMutexLocker locker(&parsedFileMutex);
        if (parsedFile().path == path && parsedFile().identity == FileIdentity(status))
            return parsedFile().ini;
    }
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0)
        return errno == ENOENT ? std::optional(RegistryIni()) : std::nullopt;
    std::optional<QByteArray> bytes;
    // The path may have been replaced since it was looked at: what was opened is checked.
    if (::fstat(fd, &status) == 0 && isReadable(status))
        bytes = readAll(fd, status.st_size);
    ::close(fd);
    if (!bytes || bytes->size() > maxRegistryBytes)
        return std::nullopt;
    RegistryIni ini = RegistryIni::parse(*bytes);
    if (settled(status)) {
        const QMutexLocker locker(&parsedFileMutex);
        parsedFile() = ParsedFile{path, FileIdentity(status), ini};
    }
    return ini;
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

// The lock that QSettings writers of the same file take too, held for one write. It is
// broken only when the writer that took it is gone (QLockFile looks for its process), never
// for its age: a slow writer that is still alive keeps it. A lock that cannot be created at
// all (a folder without create rights) leaves the write unguarded rather than impossible;
// one that cannot be taken in time fails the write.
//
// Waiters look for the lock's file every fraction of a millisecond, cheaply, and a process
// that has just written waits a little longer than that before it locks again, so that
// every writer gets its turn while another writes again and again.
class WriteLock
{
public:
    explicit WriteLock(const QString &path) : m_lock(path + QStringLiteral(".lock"))
    {
        m_lock.setStaleLockTime(0);
        const QByteArray lockName = QFile::encodeName(m_lock.fileName());
        if (const qint64 sinceUs = lastRelease().isValid() ? lastRelease().nsecsElapsed() / 1000
                                                           : turnUs;
            sinceUs < turnUs)
            QThread::usleep(turnUs - sinceUs);
        QElapsedTimer waited;
        waited.start();
        qint64 lastTry = -fullTryMs;
        for (;;) {
            // While the lock's file is there, QLockFile looks at it only now and then: it alone
            // can tell a dead writer's lock, and that takes reading the lock and the process.
            struct stat status {
            };
            if (::lstat(lockName.constData(), &status) != 0
                || waited.elapsed() - lastTry >= fullTryMs) {
                lastTry = waited.elapsed();
                if (m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError) {
                    m_taken = true;
                    return;
                }
                if (namesThisProcess() && m_lock.removeStaleLockFile())
                    continue;
            }
            if (waited.elapsed() >= lockWaitMs)
                return;
            QThread::usleep(lookEveryUs / 2 + QRandomGenerator::global()->bounded(lookEveryUs));
        }
    }
    ~WriteLock()
    {
        if (m_lock.isLocked()) {
            m_lock.unlock();
            lastRelease().start();
        }
    }
    WriteLock(const WriteLock &) = delete;
    WriteLock &operator=(const WriteLock &) = delete;

    bool taken() const { return m_taken; }

private:
    static constexpr int lookEveryUs = 1000; // on average
    static constexpr int turnUs = 2000;      // longer than a waiter's longest look
    static constexpr int fullTryMs = 50;

    static QElapsedTimer &lastRelease()
    {
        static QElapsedTimer released;
        return released;
    }

    // Whether the lock names this very process. This process holds it only while one of
    // its writes runs, and then the writer's own lock on the file stops it from being
    // removed; at any other time it is an earlier process's that had the same id (as in
    // a container started anew).
    bool namesThisProcess() const
    {
        qint64 pid = 0;
        QString host;
        return m_lock.getLockInfo(&pid, &host, nullptr) && pid == QCoreApplication::applicationPid()
               && (host.isEmpty() || host == QSysInfo::machineHostName());
    }

    QLockFile m_lock;
    bool m_taken = false;
};

// Reads, changes and writes the file under the lock; the old file stays whole when the
// write fails. A file still in the flat form is rewritten in the new one on the way.
template <typename Change> bool updateFile(const QString &path, Change change)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const WriteLock lock(path);
    if (!lock.taken())
        return false;
    std::optional<RegistryIni> ini = readFile(path);
    if (!ini)
        return false;
    if (ini->hasFlatEntries())
        mergeFlatEntries(path, *ini);
    change(*ini);
    thread_local QByteArray text;
    ini->text(text);
    return WriteWholeFile(path, text);
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
