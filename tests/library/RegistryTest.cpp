// The registry file off Windows: what a person finds in it, names that must neither fold
// nor split, a file in the older flat form, two processes writing at once, a lock left by
// a dead writer, and a disk that fills up.

#include "library/Registry.h"
#include "library/WindowPositions.h"
#include "support/SmallFileSystem.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QSettings>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QWidget>
#include <algorithm>
#include <gtest/gtest.h>

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

int valueLines(const std::string &text)
{
    return int(QByteArray::fromStdString(text).split('\n').count()
               - 2); // less the group and the end
}

TEST_F(RegistryFileTest, TwoProcessesWritingAtOnceLoseNothing)
{
    QProcess first, second;
    first.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER),
                {path, QStringLiteral("first "), QStringLiteral("1000")});
    second.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER),
                 {path, QStringLiteral("second "), QStringLiteral("1000")});
    ASSERT_TRUE(first.waitForFinished(300000));
    ASSERT_TRUE(second.waitForFinished(300000));
    EXPECT_EQ(first.exitCode(), 0);
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(valueLines(text()), 2000);
    EXPECT_EQ(get(printers, QStringLiteral("FIRST 999")), "Office-Laser");
    EXPECT_EQ(get(printers, QStringLiteral("second 0")), "Office-Laser");
}

// A lock a dead writer left behind, or one naming a live process of the same name (a
// reused process id), delays a write by a second at most rather than QLockFile's 30.
TEST_F(RegistryFileTest, AStaleLockDelaysAWriteBySecondsAtMost)
{
    QProcess holder;
    holder.start(QStringLiteral(BRAVCPL5_REGISTRY_WRITER), {path, QStringLiteral("hold")});
    ASSERT_TRUE(holder.waitForReadyRead(10000));
    holder.kill();
    holder.waitForFinished();
    ASSERT_TRUE(QFile::exists(path + QStringLiteral(".lock")));

    QElapsedTimer timer;
    timer.start();
    EXPECT_TRUE(set(printers, QStringLiteral("Letter"), QStringLiteral("Office-Laser")));
    EXPECT_LT(timer.elapsed(), 3000);

    test::writeFile(path + QStringLiteral(".lock"),
                    QByteArray::number(QCoreApplication::applicationPid()) + '\n'
                        + QCoreApplication::applicationName().toUtf8() + '\n'
                        + QSysInfo::machineHostName().toUtf8() + '\n');
    timer.restart();
    EXPECT_TRUE(set(printers, QStringLiteral("Legal"), QStringLiteral("Office-Laser")));
    EXPECT_LT(timer.elapsed(), 3000);
    EXPECT_EQ(get(printers, QStringLiteral("Letter")), "Office-Laser");
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
