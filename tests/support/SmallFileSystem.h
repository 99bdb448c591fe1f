#pragma once

// A real, small file system for tests of full disks and read-only places: a tmpfs of the
// given size mounted on a temporary folder, inside a mount namespace of the test
// process's own, so that nothing outside it ever sees the mount. Mounting needs root (CI
// runs the tests as root) or an unprivileged user namespace; where neither is to be had,
// `available()` is false and the test skips.

#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <ostream>
#include <string>

namespace bravcpl5::test {

class SmallFileSystem
{
public:
    explicit SmallFileSystem(qint64 bytes);
    ~SmallFileSystem();
    SmallFileSystem(const SmallFileSystem &) = delete;
    SmallFileSystem &operator=(const SmallFileSystem &) = delete;

    bool available() const { return m_mounted; }
    // Why it is not available, for the skip message.
    QString reason() const { return m_reason; }
    QString filePath(const QString &name) const;

    // Fills the file system with a filler file until fewer than `roomLeft` bytes are free.
    void fill(qint64 roomLeft = 0);
    qint64 freeBytes() const;
    // The folder stops taking new files while `file` in it stays writable (a shared
    // folder where users may change files but not create them).
    bool lockFolderKeepingFileWritable(const QString &file);
    // Makes `file` read-only, even for root.
    bool makeReadOnly(const QString &file);

private:
    bool bindReadOnly(const QString &path, bool readOnly);

    QTemporaryDir m_dir;
    QString m_root;
    QStringList m_mounts; // innermost last
    bool m_mounted = false;
    QString m_reason;
};

// One row of a full-disk table: how much the test writes (bytes, or values, as the test
// says), the room the filler leaves, and whether the write fits.
struct FullDiskCase {
    const char *name;
    qint64 size;
    qint64 roomLeft;
    bool fits;
};

inline void PrintTo(const FullDiskCase &c, std::ostream *out) { *out << c.name; }
inline std::string FullDiskCaseName(const ::testing::TestParamInfo<FullDiskCase> &info)
{
    return info.param.name;
}

using FullDiskTest = ::testing::TestWithParam<FullDiskCase>;

} // namespace bravcpl5::test

// Skips the test where the small file system could not be mounted.
#define REQUIRE_SMALL_FILE_SYSTEM(fs)                                                              \
    if (!(fs).available())                                                                         \
    GTEST_SKIP() << (fs).reason().toStdString()
