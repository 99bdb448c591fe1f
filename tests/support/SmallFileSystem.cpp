#include "support/SmallFileSystem.h"

#include <QDir>
#include <QFile>
#include <QStorageInfo>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <cstring>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>
#endif

namespace bravcpl5::test {

namespace {

#ifdef Q_OS_LINUX
bool writeProcFile(const char *path, const QByteArray &text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush();
}

// Without root, a user namespace of the process's own, in which it may mount (where the
// kernel allows unprivileged user namespaces and the process is still single-threaded).
QString enterUserNamespace()
{
    const QByteArray uid = QByteArray::number(::geteuid());
    const QByteArray gid = QByteArray::number(::getegid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return QStringLiteral("mounting a small file system needs root or a user namespace: ")
               + QString::fromLocal8Bit(std::strerror(errno));
    if (!writeProcFile("/proc/self/setgroups", "deny")
        || !writeProcFile("/proc/self/uid_map", "0 " + uid + " 1")
        || !writeProcFile("/proc/self/gid_map", "0 " + gid + " 1"))
        return QStringLiteral("could not map the user into its namespace");
    return {};
}

// Once per process: a private copy of the mount table, so that the test's mounts stay in
// this process (and the children it starts) and vanish with it.
QString enterPrivateMounts()
{
    static const QString failure = []() -> QString {
        if (::geteuid() != 0) {
            if (QString userNamespace = enterUserNamespace(); !userNamespace.isEmpty())
                return userNamespace;
        } else if (::unshare(CLONE_NEWNS) != 0) {
            return QStringLiteral("unshare: ") + QString::fromLocal8Bit(std::strerror(errno));
        }
        if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            return QStringLiteral("private mounts: ")
                   + QString::fromLocal8Bit(std::strerror(errno));
        return {};
    }();
    return failure;
}
#endif

} // namespace

SmallFileSystem::SmallFileSystem(qint64 bytes)
{
#ifdef Q_OS_LINUX
    m_reason = enterPrivateMounts();
    if (!m_reason.isEmpty())
        return;
    m_root = m_dir.filePath(QStringLiteral("small"));
    QDir().mkpath(m_root);
    const QByteArray options = "size=" + QByteArray::number(bytes) + ",mode=0755";
    if (::mount("tmpfs", QFile::encodeName(m_root).constData(), "tmpfs", 0, options.constData())
        != 0) {
        m_reason = QStringLiteral("mount tmpfs: ") + QString::fromLocal8Bit(std::strerror(errno));
        return;
    }
    m_mounts << m_root;
    m_mounted = true;
#else
    Q_UNUSED(bytes);
    m_reason = QStringLiteral("small file systems are mounted on Linux only");
#endif
}

SmallFileSystem::~SmallFileSystem()
{
#ifdef Q_OS_LINUX
    for (auto it = m_mounts.crbegin(); it != m_mounts.crend(); ++it)
        ::umount2(QFile::encodeName(*it).constData(), MNT_DETACH);
#endif
}

QString SmallFileSystem::filePath(const QString &name) const { return QDir(m_root).filePath(name); }

qint64 SmallFileSystem::freeBytes() const { return QStorageInfo(m_root).bytesFree(); }

void SmallFileSystem::fill(qint64 roomLeft)
{
    QFile filler(filePath(QStringLiteral("filler")));
    if (!filler.open(QIODevice::Append | QIODevice::Unbuffered))
        return;
    // Big pieces first, then single bytes into the last partly used page.
    for (qint64 piece = 64 * 1024; piece >= 1; piece /= 4) {
        const QByteArray bytes(piece, 'f');
        while (freeBytes() >= roomLeft + piece && filler.write(bytes) == piece) {}
        if (roomLeft == 0)
            while (filler.write(bytes) == piece) {}
    }
}

bool SmallFileSystem::bindReadOnly(const QString &path, bool readOnly)
{
#ifdef Q_OS_LINUX
    const QByteArray name = QFile::encodeName(path);
    if (!m_mounts.contains(path)) {
        if (::mount(name.constData(), name.constData(), nullptr, MS_BIND, nullptr) != 0)
            return false;
        m_mounts << path;
    }
    const unsigned long flags = MS_REMOUNT | MS_BIND | (readOnly ? MS_RDONLY : 0);
    return ::mount(nullptr, name.constData(), nullptr, flags, nullptr) == 0;
#else
    Q_UNUSED(path);
    Q_UNUSED(readOnly);
    return false;
#endif
}

// The file gets a mount of its own that stays writable; the folder's mount is then made
// read-only, which root cannot get round either.
bool SmallFileSystem::lockFolderKeepingFileWritable(const QString &file)
{
    return bindReadOnly(file, false) && bindReadOnly(QFileInfo(file).absolutePath(), true);
}

bool SmallFileSystem::makeReadOnly(const QString &file) { return bindReadOnly(file, true); }

} // namespace bravcpl5::test
