// The registry file off Windows: what a person finds in it, names that must neither fold
// nor split, a file in the older flat form, bytes that are not UTF-8, things that are not
// files, four processes writing at once, locks left or held by other writers, and a disk
// that fills up.

#include "library/Registry.h"
#include "library/WindowPositions.h"
#include "support/SmallFileSystem.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QWidget>
#include <algorithm>
#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace bravcpl5 {
namespace {

const QString printers = QStringLiteral(
    "Software\\Tarnwell\\Lumarest\\5.0\\Settings (Acme)\\Printer Configurations");
const QString windows = QString::fromLatin1(WindowPositionsKey);

QString get(const QString &key, const QString &name)
{
    return GetRegValue(HKEY_CURRENT_USER_HANDLE, key, name, QStringLiteral("<missing>"));
}

bool set(const QString &key, const QString &name, const QString &data)
{
    return SetRegValue(HKEY_CURRENT_USER_HANDLE, key, name, data);
}

class RegistryFileTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        previous = RegistryFile();
        SetRegistryFile(path);
    }
    void TearDown() override { SetRegistryFile(previous); }
    std::string text() const { return test::readFile(path).toStdString(); }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("HKEY_CURRENT_USER.ini"));
    QString previous;
};

TEST_F(RegistryFileTest, KeysAreGroupsAPersonCanRead)
{
    ASSERT_TRUE(set(printers, QStringLiteral("Letter"), QStringLiteral("Office-Laser")));
    ASSERT_TRUE(set(printers, QStringLiteral("Labels"), QStringLiteral("Label-Printer")));
    ASSERT_TRUE(set(windows, QStringLiteral("frmGeneralReportFilters"),
                    QStringLiteral("1200,2400,9000,6500")));
    EXPECT_EQ(text(), "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\n"
                      "Letter=Office-Laser\n"
                      "Labels=Label-Printer\n"
                      "\n"
                      "[Software/Tarnwell/Lumarest/5.0/Window Positions/]\n"
                      "frmGeneralReportFilters=1200,2400,9000,6500\n");
}

// Names compare as the registry's do, without regard to case, and keep the case they were
// first written with.
TEST_F(RegistryFileTest, NamesIgnoreCaseAndKeepTheirFirstSpelling)
{
    ASSERT_TRUE(set(printers, QStringLiteral("Letter"), QStringLiteral("Office-Laser")));
    EXPECT_EQ(get(printers, QStringLiteral("LETTER")), "Office-Laser");
    EXPECT_EQ(get(printers.toUpper(), QStringLiteral("letter")), "Office-Laser");
    ASSERT_TRUE(set(printers, QStringLiteral("letter"), QStringLiteral("Label-Printer")));
    ASSERT_TRUE(set(printers, QStringLiteral("Ölfarbe"), QStringLiteral("A")));
    ASSERT_TRUE(set(printers, QStringLiteral("ÖLFARBE"), QStringLiteral("B")));
    EXPECT_EQ(get(printers, QStringLiteral("Letter")), "Label-Printer");
    EXPECT_EQ(text(), "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\n"
                      "Letter=Label-Printer\n"
                      "Ölfarbe=B\n");
}

TEST_F(RegistryFileTest, WindowPositionNamesIgnoreCase)
{
    QWidget form;
    form.setGeometry(123, 45, 678, 321);
    SaveWindowPosition(QStringLiteral("frmGeneralReportFilters"), &form);
    form.move(10, 10);
    SaveWindowPosition(QStringLiteral("FRMGENERALREPORTFILTERS"), &form);
    QWidget other;
    RestoreWindowPosition(QStringLiteral("frmgeneralreportfilters"), &other, true);
    EXPECT_EQ(QRect(other.pos(), other.size()), QRect(10, 10, 678, 321));
    EXPECT_EQ(text(), "[Software/Tarnwell/Lumarest/5.0/Window Positions/]\n"
                      "frmGeneralReportFilters=150,150,10170,4815\n");
}

// Each name is its own value, whatever the INI syntax or QSettings would make of it.
TEST_F(RegistryFileTest, EveryNameMapsToAValueOfItsOwn)
{
    const QStringList names = {
        "a/b",        "a//b",   "a///b",       "x/",         "x",           "/x",     "a\\b",
        "a=b",        "a==",    "%41",         "%",          "100%",        " lead",  "trail ",
        "  ",         "#hash",  ";semi",       "[group]",    "line\nbreak", "cr\rlf", "tab\t",
        "Über = x;y", "日本語", "@Variant(x)", "\"quoted\"", "General",     "a%2Fb",  "a%252Fb"};
    for (int i = 0; i < names.size(); ++i)
        ASSERT_TRUE(
            set(printers, names[i], QStringLiteral("data %1 =;# \"%2\" ").arg(i).arg(names[i])));
    for (int i = 0; i < names.size(); ++i)
        EXPECT_EQ(get(printers, names[i]),
                  QStringLiteral("data %1 =;# \"%2\" ").arg(i).arg(names[i]))
            << names[i].toStdString();
    const std::string written = text();
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'),
              names.size() + 1); // one line each, plus the group
}

// Keys with awkward parts are as distinct as names are.
TEST_F(RegistryFileTest, EveryKeyMapsToAGroupOfItsOwn)
{
    const QStringList keys = {"Software\\A",  "Software\\A\\", "Software\\\\A", "Software/A",
                              "Software\\A]", "Software\\[A]", "Software\\%2F"};
    for (const QString &key : keys)
        ASSERT_TRUE(set(key, QStringLiteral("v"), key));
    for (const QString &key : keys)
        EXPECT_EQ(get(key, QStringLiteral("v")), key) << key.toStdString();
}

// The older flat form, as QSettings wrote it: every value one "[General]" entry named by
// its whole path. It is read whole and rewritten once in the new form.
TEST_F(RegistryFileTest, AFlatFileIsMigratedWithoutLoss)
{
    const QList<std::tuple<QString, QString, QString>> values = {
        {printers, "Letter", "Office-Laser"},
        {printers, "Über = x;y", "Label Printer, 2"},
        {printers, "@odd", "@Variant(not really)"},
        {printers, "Back\\slash", "quote \" and \\"},
        {QStringLiteral(
             "Software\\Tarnwell\\Lumarest\\5.0\\Settings (Home)\\Printer Configurations"),
         "Letter", "Home-Jet"},
        {windows, "frmGeneralReportFilters", "1200,2400,9000,6500"},
        {windows, "frmGeneralReportFields", "-15,30,9000,6500"},
    };
    {
        QSettings flat(path, QSettings::IniFormat);
        for (const auto &[key, name, data] : values)
            flat.setValue(key + QLatin1Char('\\') + name, data);
    }
    ASSERT_EQ(text().rfind("[General]\n", 0), 0u);

    for (const auto &[key, name, data] : values)
        EXPECT_EQ(get(key, name), data) << name.toStdString();
    const std::string migrated = text();
    EXPECT_EQ(migrated.find("[General]"), std::string::npos) << migrated;
    EXPECT_NE(migrated.find("[Software/Tarnwell/Lumarest/5.0/Settings (Home)/Printer "
                            "Configurations]\nLetter=Home-Jet\n"),
              std::string::npos)
        << migrated;

    ASSERT_TRUE(set(printers, QStringLiteral("letter"), QStringLiteral("Label-Printer")));
    EXPECT_EQ(get(printers, QStringLiteral("Letter")), "Label-Printer");
    for (const auto &[key, name, data] : values.mid(1))
        EXPECT_EQ(get(key, name), data) << name.toStdString();
}

// Hand edits and damage: what can be understood is read, the rest skipped.
TEST_F(RegistryFileTest, AHandEditedFileIsReadAsFarAsItGoes)
{
    test::writeFile(
        path,
        "\xEF\xBB\xBF[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\r\n"
        "Tabloid=Front Desk\r\n"
        "; written by hand\r\n"
        "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\r\n"
        "  Letter  =  Office-Laser  \r\n"
        "no equals sign\r\n"
        "Legal=100%\r\n"
        "[broken\r\n"
        "Half=%4\n"
        "[]\r\n"
        "Nameless=group\r\n");
    EXPECT_EQ(get(printers, QStringLiteral("Letter")), "Office-Laser");
    EXPECT_EQ(get(printers, QStringLiteral("Legal")), "100%");
    EXPECT_EQ(get(printers, QStringLiteral("Half")), "%4");
    EXPECT_EQ(get(printers, QStringLiteral("Tabloid")), "Front Desk");
    EXPECT_EQ(get(QString(), QStringLiteral("Nameless")), "group");
    EXPECT_EQ(get(printers, QStringLiteral("Nameless")), "<missing>");
}

// Carriage returns at the ends of a line, as editors on other systems leave them, end the
// line: they are no part of a value, and writes leave the file reading the same.
TEST_F(RegistryFileTest, StrayCarriageReturnsAreNoPartOfAValue)
{
    test::writeFile(path,
                    "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer "
                    "Configurations]\r\r\nLetter=Office-Laser\r\r\n\rLabels=\x80 Printer\r\r");
    EXPECT_EQ(get(printers, QStringLiteral("Letter")), "Office-Laser");
    ASSERT_TRUE(set(printers, QStringLiteral("Legal"), QStringLiteral("Office-Laser")));
    const QByteArray once = test::readFile(path);
    ASSERT_TRUE(set(printers, QStringLiteral("Legal"), QStringLiteral("Front Desk")));
    ASSERT_TRUE(set(printers, QStringLiteral("Legal"), QStringLiteral("Office-Laser")));
    EXPECT_EQ(test::readFile(path), once);
    EXPECT_EQ(get(printers, QStringLiteral("Labels")), QStringLiteral("\uFFFD Printer"));
}

// Files no writer of ours made: each is read without harm, and a write either keeps what
// could be read or, for a file too large to be ours, leaves it alone.
TEST_F(RegistryFileTest, HostileFilesAreReadWithoutHarm)
{
    const QByteArray group =
        "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\n";
    const std::tuple<const char *, QByteArray, bool> cases[] = {
        // what, content, a write may replace it
        {"binary", QByteArray("\0\xff\xfe[\0]=\n\x01=\x02\n", 12) + group + "Letter=\0x\n", true},
        {"one long line", QByteArray(4 << 20, '['), true},
        {"many groups", QByteArray("[a]\n").repeated(200000) + group + "Letter=Office-Laser\n",
         true},
        {"only separators", QByteArray("=\n%\n%%%\n[]\n[/]\n=%ZZ\n").repeated(1000), true},
        {"too large to be ours", group + "Letter=Office-Laser\n" + QByteArray(17 << 20, ';'),
         false},
    };
    for (const auto &[what, content, replaceable] : cases) {
        SCOPED_TRACE(what);
        test::writeFile(path, content);
        EXPECT_EQ(get(printers, QStringLiteral("Legal")), "<missing>");
        EXPECT_EQ(set(printers, QStringLiteral("Legal"), QStringLiteral("Office-Laser")),
                  replaceable);
        EXPECT_EQ(get(printers, QStringLiteral("Legal")),
                  replaceable ? "Office-Laser" : "<missing>");
        if (!replaceable) {
            EXPECT_EQ(test::readFile(path), content);
        }
    }
}

const QByteArray printersGroup =
    "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\n";

// Bytes in another encoding, as an older editor saved them, are written back as they were
// read, in names, data and key paths alike.
TEST_F(RegistryFileTest, BytesThatAreNotUtf8SurviveAWriteOfAnotherValue)
{
    const QByteArray otherKey = "[Software/Caf\xE9]\n"
                                "Name=\x80\x81\n";
    test::writeFile(path, printersGroup
                              + "Letter=Caf\xE9 Laser\n"
                                "Labels\xFF=\xC3\n\n"
                              + otherKey);
    EXPECT_EQ(get(printers, QStringLiteral("Letter")), QStringLiteral("Caf\uFFFD Laser"));
    ASSERT_TRUE(set(printers, QStringLiteral("Legal"), QStringLiteral("Office-Laser")));
    EXPECT_EQ(test::readFile(path), printersGroup
                                        + "Letter=Caf\xE9 Laser\n"
                                          "Labels\xFF=\xC3\n"
                                          "Legal=Office-Laser\n\n"
                                        + otherKey);
}

// Lookups answer from the last parse only while the file stays the same: a write by another
// process, or an edit in place, shows in the very next lookup even when the size stays.
TEST_F(RegistryFileTest, AnotherProcesssWriteIsSeenByTheNextLookup)
{
    const auto writtenLongAgo = [&] {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-3600),
                                     QFileDevice::FileModificationTime));
    };
    test::writeFile(path, printersGroup + "Seen0=Front-Desk!!\n");
    writtenLongAgo();
    EXPECT_EQ(get(printers, QStringLiteral("Seen0")), "Front-Desk!!");
    EXPECT_EQ(get(printers, QStringLiteral("Seen0")), "Front-Desk!!");

    QProcess writer;
    writer.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER),
                 {path, QStringLiteral("Seen"), QStringLiteral("1")});
    ASSERT_TRUE(writer.waitForFinished(10000));
    ASSERT_EQ(writer.exitCode(), 0);
    EXPECT_EQ(get(printers, QStringLiteral("Seen0")), "Office-Laser");

    writtenLongAgo();
    EXPECT_EQ(get(printers, QStringLiteral("Seen0")), "Office-Laser");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(printersGroup.size() + 6));
    ASSERT_EQ(file.write("Label-Jet123"), 12);
    file.close();
    EXPECT_EQ(get(printers, QStringLiteral("Seen0")), "Label-Jet123");
}

// What is not a regular file is never read: a FIFO (opening it would wait for a writer), a
// link to a device that never ends, a folder. Lookups find nothing and writes fail, at
// once, and the thing stays what it was. Each runs in a process of its own, so that a
// hang fails the test rather than stalling it.
TEST_F(RegistryFileTest, OnlyARegularFileIsRead)
{
    const std::tuple<const char *, std::function<bool(const QString &)>> cases[] = {
        {"FIFO", [](const QString &p) { return ::mkfifo(QFile::encodeName(p), 0600) == 0; }},
        {"link to a device", [](const QString &p) { return QFile::link("/dev/zero", p); }},
        {"folder", [](const QString &p) { return QDir().mkdir(p); }},
    };
    for (const auto &[what, make] : cases) {
        SCOPED_TRACE(what);
        const QString file = folder.filePath(QString::fromLatin1(what));
        ASSERT_TRUE(make(file));
        const QFileInfo before(file);

        QProcess reader;
        reader.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER),
                     {file, QStringLiteral("read"), QStringLiteral("Letter")});
        ASSERT_TRUE(reader.waitForFinished(10000));
        EXPECT_EQ(reader.readAllStandardOutput(), "<missing>\n");

        QProcess writer;
        writer.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER),
                     {file, QStringLiteral("Letter"), QStringLiteral("1")});
        ASSERT_TRUE(writer.waitForFinished(10000));
        EXPECT_EQ(writer.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(writer.exitCode(), 1);

        const QFileInfo after(file);
        EXPECT_EQ(after.isSymLink(), before.isSymLink());
        EXPECT_EQ(after.isDir(), before.isDir());
        EXPECT_EQ(after.isFile(), before.isFile());
    }
}

// Under AddressSanitizer a rewrite is several times slower; a smaller file keeps each write's
// hold on the lock well inside the three seconds another writer waits for it.
#if defined(__SANITIZE_ADDRESS__)
constexpr int largeFileBytes = 1 << 20;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr int largeFileBytes = 1 << 20;
#else
constexpr int largeFileBytes = 4 << 20;
#endif
#else
constexpr int largeFileBytes = 4 << 20;
#endif

// Four hosts writing at once to a large file keep every assignment: each writer gets its turn
// at the lock while the others write again and again. The file is on a file system in
// memory, so that 2,000 whole rewrites of 4 MiB take seconds rather than minutes of syncs.
TEST_F(RegistryFileTest, FourProcessesWritingAtOnceToALargeFileLoseNothing)
{
    test::SmallFileSystem fs(64 << 20);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    const QString large = fs.filePath(QStringLiteral("HKEY_CURRENT_USER.ini"));
    QByteArray filler = "[Software/Tarnwell/Lumarest/5.0/History]\n";
    for (int i = 0; filler.size() < largeFileBytes; ++i)
        filler += "Entry " + QByteArray::number(i) + '=' + QByteArray(4000, 'x') + '\n';
    test::writeFile(large, filler);

    const QStringList prefixes = {"first ", "second ", "third ", "fourth "};
    std::array<QProcess, 4> writers;
    for (int i = 0; i < 4; ++i)
        writers[i].start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER),
                         {large, prefixes[i], QStringLiteral("500")});
    for (QProcess &writer : writers) {
        ASSERT_TRUE(writer.waitForFinished(300000));
        EXPECT_EQ(writer.exitCode(), 0);
    }
    SetRegistryFile(large);
    const auto assignments = GetRegValues(HKEY_CURRENT_USER_HANDLE, printers);
    EXPECT_EQ(assignments.size(), 2000);
    for (const QString &prefix : prefixes) {
        EXPECT_EQ(get(printers, prefix + QStringLiteral("0")), "Office-Laser");
        EXPECT_EQ(get(printers, prefix + QStringLiteral("499")), "Office-Laser");
    }
    EXPECT_GT(QFileInfo(large).size(), largeFileBytes);
}

// A lock is broken only when the writer that took it is gone: one left by a killed writer,
// or one naming this very process (an earlier process that had the same id), is taken.
TEST_F(RegistryFileTest, ALockLeftByAWriterThatIsGoneIsTaken)
{
    QProcess holder;
    holder.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER), {path, QStringLiteral("hold")});
    ASSERT_TRUE(holder.waitForReadyRead(10000));
    holder.kill();
    holder.waitForFinished();
    ASSERT_TRUE(QFile::exists(path + QStringLiteral(".lock")));
    EXPECT_TRUE(set(printers, QStringLiteral("Letter"), QStringLiteral("Office-Laser")));

    test::writeFile(path + QStringLiteral(".lock"),
                    QByteArray::number(QCoreApplication::applicationPid()) + '\n'
                        + QCoreApplication::applicationName().toUtf8() + '\n'
                        + QSysInfo::machineHostName().toUtf8() + '\n');
    EXPECT_TRUE(set(printers, QStringLiteral("Legal"), QStringLiteral("Office-Laser")));
    EXPECT_EQ(get(printers, QStringLiteral("Letter")), "Office-Laser");
}

// A lock that no write can take, because its writer still lives or because it is not a
// lock at all (a folder of that name), fails the write within seconds, however long it
// has been there; the file and the lock stay as they were, and lookups still answer.
TEST_F(RegistryFileTest, ALockThatCannotBeTakenFailsTheWriteInSeconds)
{
    const QString lock = path + QStringLiteral(".lock");
    ASSERT_TRUE(set(printers, QStringLiteral("Letter"), QStringLiteral("Office-Laser")));
    const QByteArray before = test::readFile(path);
    QProcess holder;
    const std::tuple<const char *, std::function<bool()>> cases[] = {
        {"a writer that lives",
         [&] {
             holder.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER), {path, QStringLiteral("hold")});
             return holder.waitForReadyRead(10000);
         }},
        {"a folder", [&] { return QDir().mkdir(lock); }},
    };
    for (const auto &[what, take] : cases) {
        SCOPED_TRACE(what);
        ASSERT_TRUE(take());
        QElapsedTimer timer;
        timer.start();
        EXPECT_FALSE(set(printers, QStringLiteral("Legal"), QStringLiteral("Office-Laser")));
        EXPECT_LT(timer.elapsed(), 10000);
        EXPECT_EQ(test::readFile(path), before);
        EXPECT_TRUE(QFileInfo::exists(lock));
        EXPECT_EQ(get(printers, QStringLiteral("Letter")), "Office-Laser");
        holder.kill();
        holder.waitForFinished();
        QFile::remove(lock);
        QDir().rmdir(lock);
    }
}

using test::FullDiskCase;
using FullRegistry = test::FullDiskTest; // `size`: how many values are written first

// A full disk, or one with a little room, never costs an earlier assignment.
TEST_P(FullRegistry, AWriteOnAFullDiskKeepsEveryEarlierValue)
{
    const FullDiskCase c = GetParam();
    test::SmallFileSystem fs(512 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    const QString previous = RegistryFile();
    SetRegistryFile(fs.filePath(QStringLiteral("HKEY_CURRENT_USER.ini")));
    for (int i = 0; i < c.size; ++i)
        ASSERT_TRUE(set(printers, QStringLiteral("Configuration %1").arg(i),
                        QStringLiteral("Printer %1").arg(i)));
    const QByteArray before = test::readFile(RegistryFile());
    fs.fill(c.roomLeft);

    EXPECT_FALSE(set(printers, QStringLiteral("One more"), QString(8000, QLatin1Char('x'))));
    EXPECT_EQ(test::readFile(RegistryFile()), before);
    for (int i = 0; i < c.size; ++i)
        EXPECT_EQ(get(printers, QStringLiteral("CONFIGURATION %1").arg(i)),
                  QStringLiteral("Printer %1").arg(i));
    SetRegistryFile(previous);
}

INSTANTIATE_TEST_SUITE_P(Table, FullRegistry,
                         ::testing::Values(FullDiskCase{"Fifty_NoRoom", 50, 0, false},
                                           FullDiskCase{"HundredTwenty_SomeRoom", 120, 4096,
                                                        false}),
                         test::FullDiskCaseName);

} // namespace
} // namespace bravcpl5
