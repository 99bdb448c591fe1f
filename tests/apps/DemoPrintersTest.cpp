// The demo on a machine without a printer server of its own (a fresh container, a CI
// machine): scripts/with-printers, through which scripts/demo runs the sample host, starts
// a private cupsd with the sample printers, so that the tour photographs the real page
// setup and the printers; nothing is printed on them; and that cupsd is stopped by its PID
// however the run ends. A printer server that answers is used as it is.

#include "support/FreshHome.h"
#include "support/SandboxCups.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cups/cups.h>
#include <gtest/gtest.h>

namespace {

// The sample host's surroundings as in a fresh container: a home of its own, no display,
// and a CUPS_SERVER that names a socket no cupsd listens on. The private cupsd goes into
// `root`/printers, where the test can look at what reached it.
QProcessEnvironment withoutPrinterServer(const QDir &root)
{
    QProcessEnvironment environment = bravcpl5::test::FreshHomeEnvironment(root);
    environment.insert(QStringLiteral("CUPS_SERVER"),
                       root.filePath(QStringLiteral("no-cupsd-here/cups.sock")));
    environment.insert(QStringLiteral("BRAVCPL5_PRINTERS_FOLDER"),
                       root.filePath(QStringLiteral("printers")));
    return environment;
}

// The PID of the cupsd the script started, as it announced it ("cupsd 1234 on ...").
qint64 announcedCupsd(const QString &err)
{
    return QRegularExpression(QStringLiteral("cupsd (\\d+) on "))
        .match(err)
        .captured(1)
        .toLongLong();
}

// True while the process runs: a zombie that no one has reaped yet counts as ended.
bool running(qint64 pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return false;
    const QByteArray fields = stat.readAll();
    const qsizetype state = fields.lastIndexOf(')') + 2;
    return state < fields.size() && fields[state] != 'Z';
}

bool cupsdInstalled()
{
    // The script starts it by name, as the tests' own sandbox does.
    return !QStandardPaths::findExecutable(QStringLiteral("cupsd")).isEmpty();
}

#define SKIP_WITHOUT_CUPSD_PROGRAM()                                                               \
    if (!cupsdInstalled())                                                                         \
    GTEST_SKIP() << "cupsd is not installed (scripts/install-deps installs it)"

TEST(DemoPrinters, WithoutAPrinterServerTheTourRunsOnAPrivateCupsdAndStopsIt)
{
    SKIP_WITHOUT_CUPSD_PROGRAM();
    QTemporaryDir folder;
    const QDir root(folder.path());
    QProcess demo;
    demo.setProcessEnvironment(withoutPrinterServer(root));
    demo.start(QStringLiteral(BRAVCPL5_WITH_PRINTERS),
               {QStringLiteral(BRAVCPL5_SAMPLE_HOST), QStringLiteral("--data"),
                root.filePath(QStringLiteral("data")), QStringLiteral("--tour"),
                root.filePath(QStringLiteral("tour"))});
    ASSERT_TRUE(demo.waitForFinished(300000));
    const QString err = QString::fromUtf8(demo.readAllStandardError());
    EXPECT_EQ(demo.exitCode(), 0) << err.toStdString();
    EXPECT_EQ(QString::fromUtf8(demo.readAllStandardOutput()),
              "Screenshots and output: " + root.filePath(QStringLiteral("tour")) + '\n');

    const qint64 cupsd = announcedCupsd(err);
    ASSERT_GT(cupsd, 0) << err.toStdString();
    EXPECT_FALSE(running(cupsd)) << "cupsd " << cupsd << " still runs";

    // The page setup opened on a real printer (its tabs, not the message that there is
    // none), the printer list offered the sandbox's printers, and the disabled label tab
    // was never photographed as if it were open.
    const QDir tour(root.filePath(QStringLiteral("tour")));
    for (const char *picture :
         {"page-setup.png", "page-setup-paper.png", "printer-configurations-printer-list.png"})
        EXPECT_GT(QFileInfo(tour.filePath(QLatin1String(picture))).size(), 1000) << picture;
    EXPECT_FALSE(tour.exists(QStringLiteral("page-setup-label-layout.png")));

    // Unattended, nothing was printed: no queue wrote a file, no job was spooled.
    const QDir printers(root.filePath(QStringLiteral("printers")));
    EXPECT_EQ(QDir(printers.filePath(QStringLiteral("output"))).entryList(QDir::Files),
              QStringList());
    EXPECT_EQ(QDir(printers.filePath(QStringLiteral("spool")))
                  .entryList({QStringLiteral("c*"), QStringLiteral("d*")}, QDir::Files),
              QStringList());
}

// A CI job's time limit ends the script, not the program it runs: the program and the
// private cupsd end with it, at once.
TEST(DemoPrinters, AnInterruptedRunStopsItsPrivateCupsdToo)
{
    SKIP_WITHOUT_CUPSD_PROGRAM();
    QTemporaryDir folder;
    const QDir root(folder.path());
    QProcess demo;
    demo.setProcessEnvironment(withoutPrinterServer(root));
    demo.start(QStringLiteral(BRAVCPL5_WITH_PRINTERS),
               {QStringLiteral("sh"), QStringLiteral("-c"),
                QStringLiteral("echo \"command $$\"; exec sleep 600")});
    QString err, out;
    for (int waited = 0; waited < 180 && !out.contains('\n'); ++waited) {
        demo.waitForReadyRead(1000);
        err += QString::fromUtf8(demo.readAllStandardError());
        out += QString::fromUtf8(demo.readAllStandardOutput());
    }
    const qint64 cupsd = announcedCupsd(err);
    const qint64 command =
        QRegularExpression(QStringLiteral("command (\\d+)")).match(out).captured(1).toLongLong();
    ASSERT_GT(cupsd, 0) << err.toStdString();
    ASSERT_GT(command, 0) << out.toStdString();
    EXPECT_TRUE(running(cupsd));

    demo.terminate();
    ASSERT_TRUE(demo.waitForFinished(30000));
    EXPECT_EQ(demo.exitCode(), 143);
    EXPECT_FALSE(running(command)) << "the command " << command << " still runs";
    EXPECT_FALSE(running(cupsd)) << "cupsd " << cupsd << " still runs";
}

// Where a printer server answers, the program runs on it, and no cupsd is started.
TEST(DemoPrinters, AServerThatAnswersIsUsedAsItIs)
{
    SKIP_WITHOUT_CUPSD();
    QTemporaryDir folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("BRAVCPL5_PRINTERS_FOLDER"),
                       QDir(folder.path()).filePath(QStringLiteral("printers")));
    QProcess demo;
    demo.setProcessEnvironment(environment);
    demo.start(QStringLiteral(BRAVCPL5_WITH_PRINTERS),
               {QStringLiteral("sh"), QStringLiteral("-c"),
                QStringLiteral("printf %s \"$CUPS_SERVER\"; exit 3")});
    ASSERT_TRUE(demo.waitForFinished(30000));
    EXPECT_EQ(demo.exitCode(), 3);
    EXPECT_EQ(QString::fromUtf8(demo.readAllStandardOutput()), QString::fromUtf8(cupsServer()));
    EXPECT_EQ(QString::fromUtf8(demo.readAllStandardError()), QString());
    EXPECT_FALSE(QFileInfo::exists(QDir(folder.path()).filePath(QStringLiteral("printers"))));
}

} // namespace
