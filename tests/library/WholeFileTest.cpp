// Saves on a real, truly full tmpfs and in folders that take no new files: whatever
// fails, the old file keeps every byte and nothing is left beside it.

#include "library/WholeFile.h"
#include "support/SmallFileSystem.h"
#include "support/TestHost.h"

#include <QDir>
#include <functional>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

QByteArray document(qint64 size, char fill)
{
    QByteArray bytes = "<?xml version=\"1.0\"?>\n<Report>";
    bytes += QByteArray(size - bytes.size() - 10, fill);
    return bytes + "</Report>\n";
}

QStringList entries(const QString &folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
}

using test::FullDiskCase;
using FullDisk = test::FullDiskTest; // `size`: the new document's

// A document smaller than Qt's write buffer reaches the disk only at commit; a larger one
// fails during the writes; a little room left lets part of it through. None of them may
// replace the old file short.
TEST_P(FullDisk, ASaveThatDoesNotFitLeavesTheOldFileWhole)
{
    const FullDiskCase c = GetParam();
    test::SmallFileSystem fs(256 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    const QString path = fs.filePath(QStringLiteral("Orders.rpx"));
    const QByteArray old = document(2000, 'o');
    ASSERT_TRUE(WriteWholeFile(path, old));
    fs.fill(c.roomLeft);

    const QByteArray replacement = document(c.size, 'n');
    EXPECT_EQ(WriteWholeFile(path, replacement), c.fits);
    EXPECT_EQ(test::readFile(path), c.fits ? replacement : old);
    EXPECT_EQ(entries(QFileInfo(path).path()), QStringList({"filler", "Orders.rpx"}));
}

INSTANTIATE_TEST_SUITE_P(Table, FullDisk,
                         ::testing::Values(FullDiskCase{"Small_NoRoom", 3 * 1024, 0, false},
                                           FullDiskCase{"Medium_NoRoom", 10 * 1024, 0, false},
                                           FullDiskCase{"Large_NoRoom", 200 * 1024, 0, false},
                                           FullDiskCase{"Medium_SomeRoom", 10 * 1024, 4096, false},
                                           FullDiskCase{"Large_SomeRoom", 200 * 1024, 8192, false},
                                           FullDiskCase{"Small_RoomEnough", 3 * 1024, 16 * 1024,
                                                        true}),
                         test::FullDiskCaseName);

// A folder where users may change files but not create them: the save goes in place.
TEST(WholeFile, WritesInPlaceWhereTheFolderTakesNoNewFiles)
{
    test::SmallFileSystem fs(256 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    const QString path = fs.filePath(QStringLiteral("Letter.pcx"));
    ASSERT_TRUE(WriteWholeFile(path, document(3000, 'o')));
    ASSERT_TRUE(fs.lockFolderKeepingFileWritable(path));
    ASSERT_FALSE(WriteWholeFile(fs.filePath(QStringLiteral("New.pcx")), "x"));

    for (const qint64 size : {8000, 1000, 1000, 20000}) {
        const QByteArray bytes = document(size, char('a' + size % 26));
        EXPECT_TRUE(WriteWholeFile(path, bytes)) << size;
        EXPECT_EQ(test::readFile(path), bytes) << size;
    }
    EXPECT_EQ(entries(fs.filePath({})), QStringList({"Letter.pcx"}));
}

// Places a save cannot go, each left exactly as it was.
TEST(WholeFile, ASaveThatCannotGoAnywhereLeavesTheFileWhole)
{
    using Prepare = std::function<bool(test::SmallFileSystem &, const QString &)>;
    const std::tuple<const char *, Prepare, qint64> cases[] = {
        // what, preparation, new size
        {"in place on a full disk",
         [](test::SmallFileSystem &fs, const QString &path) {
             fs.fill();
             return fs.lockFolderKeepingFileWritable(path);
         },
         40000},
        // Room for part of the growth, none for the rest: a growth larger and one smaller
        // than the write buffer.
        {"in place on a nearly full disk, large",
         [](test::SmallFileSystem &fs, const QString &path) {
             fs.fill(6000);
             return fs.lockFolderKeepingFileWritable(path);
         },
         40000},
        {"in place on a nearly full disk, small",
         [](test::SmallFileSystem &fs, const QString &path) {
             fs.fill(6000);
             return fs.lockFolderKeepingFileWritable(path);
         },
         12000},
        {"a read-only file, smaller",
         [](test::SmallFileSystem &fs, const QString &path) { return fs.makeReadOnly(path); },
         1000},
        {"a read-only file, larger",
         [](test::SmallFileSystem &fs, const QString &path) { return fs.makeReadOnly(path); },
         9000},
    };
    for (const auto &[what, prepare, size] : cases) {
        test::SmallFileSystem fs(256 * 1024);
        REQUIRE_SMALL_FILE_SYSTEM(fs);
        const QString path = fs.filePath(QStringLiteral("Letter.pcx"));
        const QByteArray old = document(3000, 'o');
        ASSERT_TRUE(WriteWholeFile(path, old)) << what;
        ASSERT_TRUE(prepare(fs, path)) << what;
        QString why;
        EXPECT_FALSE(WriteWholeFile(path, document(size, 'n'), &why)) << what;
        EXPECT_EQ(test::readFile(path), old) << what; // not a byte more, no padding
        EXPECT_FALSE(why.isEmpty()) << what;
    }
}

} // namespace
} // namespace bravcpl5
