// The sample host as a dealer meets it: label sheets laid out from a configuration's label
// geometry, the quote's amounts and process report fonts, and the unattended tour run as
// a program, which must write every screenshot and PDF, say nothing on standard error,
// leave the user's own settings alone, print on no printer, and say when it cannot write.

#include "LabelSheet.h"
#include "QuoteReport.h"

#include "library/Library.h"
#include "report/ReportLabel.h"
#include "support/FreshHome.h"
#include "support/SandboxCups.h"
#include "support/SmallFileSystem.h"
#include "support/StoreFixture.h"
#include "support/TestHost.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <ctime>
#include <cups/cups.h>
#include <gtest/gtest.h>

namespace {

using bravcpl5::PrintDirection;

constexpr double inch = 1440;

// A sheet of 30 address labels: three columns of 2.625 x 1 in. on Letter.
LabelGeometry addressLabels(PrintDirection direction)
{
    LabelGeometry g;
    g.columns = 3;
    g.labelWidth = 2.625 * inch;
    g.labelHeight = 1 * inch;
    g.horizontalGap = 0.125 * inch;
    g.left = g.right = 0.1875 * inch;
    g.top = g.bottom = 0.5 * inch;
    g.direction = direction;
    return g;
}

const QSizeF letter(8.5 * inch, 11 * inch);

TEST(LabelSheet, LabelsFillTheSheetInThePrintingDirection)
{
    const struct {
        const char *name;
        LabelGeometry geometry;
        QSizeF paper;
        int count;
        QList<QPointF> firstFour; // inches
    } cases[] = {
        {"AcrossThenDown",
         addressLabels(PrintDirection::AcrossThenDown),
         letter,
         30,
         {{0.1875, 0.5}, {2.9375, 0.5}, {5.6875, 0.5}, {0.1875, 1.5}}},
        {"DownThenAcross",
         addressLabels(PrintDirection::DownThenAcross),
         letter,
         30,
         {{0.1875, 0.5}, {0.1875, 1.5}, {0.1875, 2.5}, {0.1875, 3.5}}},
        // Columns that do not fit across the paper are left out, rows likewise.
        {"NarrowerPaper",
         addressLabels(PrintDirection::AcrossThenDown),
         QSizeF(6 * inch, 3 * inch),
         4,
         {{0.1875, 0.5}, {2.9375, 0.5}, {0.1875, 1.5}, {2.9375, 1.5}}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QList<QRectF> places = LabelPlaces(c.geometry, c.paper);
        ASSERT_EQ(places.size(), c.count);
        for (int i = 0; i < c.firstFour.size(); ++i)
            EXPECT_EQ(places[i].topLeft() / inch, c.firstFour[i]) << "label " << i;
        EXPECT_LE(places.last().right(), c.paper.width() - c.geometry.right + 1);
        EXPECT_LE(places.last().bottom(), c.paper.height() - c.geometry.bottom + 1);
    }
    LabelGeometry tooWide = addressLabels(PrintDirection::AcrossThenDown);
    tooWide.labelWidth = 9 * inch;
    EXPECT_TRUE(LabelPlaces(tooWide, letter).isEmpty());
}

TEST(LabelSheet, GeometryIsReadFromTheConfigurationFile)
{
    QTemporaryDir folder;
    const QString file = bravcpl5::test::writeFile(
        QDir(folder.path()).filePath(QStringLiteral("Labels.pcx")),
        bravcpl5::test::configurationXml(
            "<TopMargin>.5</TopMargin><LeftMargin>.1875</LeftMargin><ColumnsPerSheet>2.6</"
            "ColumnsPerSheet><PrintDirection>1</PrintDirection><HorizontalGap>.125</"
            "HorizontalGap><LabelWidth>2.625</LabelWidth><LabelHeight>1</LabelHeight>"));
    const LabelGeometry g = ReadLabelGeometry(file);
    EXPECT_EQ(g.columns, 3); // rounded, as the dialog stores it
    EXPECT_EQ(g.direction, PrintDirection::DownThenAcross);
    EXPECT_DOUBLE_EQ(g.labelWidth, 2.625 * inch);
    EXPECT_DOUBLE_EQ(g.left, 0.1875 * inch);
    EXPECT_DOUBLE_EQ(g.top, 0.5 * inch);
    EXPECT_DOUBLE_EQ(g.horizontalGap, 0.125 * inch);
    // No file: one column of 4 x 1 in. labels.
    const LabelGeometry none = ReadLabelGeometry(
        QDir(folder.path()).filePath(QStringLiteral("missing.pcx")));
    EXPECT_EQ(none.columns, 1);
    EXPECT_DOUBLE_EQ(none.labelWidth, 4 * inch);
}

TEST(Quote, AmountsAreRoundedToCentsAtEachStep)
{
    Quote quote;
    quote.lines = {{QStringLiteral("Shutter"), {}, 3, 30, 60, 229.95},
                   {QStringLiteral("Blind"), {}, 1, 24, 48, 39.95}};
    const QuoteTotals t = TotalsOf(quote);
    EXPECT_DOUBLE_EQ(t.subtotal, 729.80);
    EXPECT_DOUBLE_EQ(t.discount, 72.98);
    EXPECT_DOUBLE_EQ(t.tax, 39.41); // 6% of 656.82 is 39.4092
    EXPECT_DOUBLE_EQ(t.total, 729.80 - 72.98 + 39.41);
    EXPECT_DOUBLE_EQ(t.deposit, 348.12);
}

TEST(Quote, PrintsInTheProcessReportFontsOfTheLibrarysDocument)
{
    bravcpl5::test::TestHost host;
    // Without a readable general fonts document neither family is read.
    host.writeSystemFile(QStringLiteral("General Report Fonts.fox"),
                         "<ReportFonts><GeneralReports/></ReportFonts>");
    host.writeSystemFile(QStringLiteral("Process Report Fonts.fox"),
                         R"(<ReportFonts><ProcessReports>
                              <Font type="15" name="DejaVu Serif" bold="1" size="20" color="255"/>
                              <Font type="22" name="DejaVu Sans Mono" size="9"/>
                            </ProcessReports></ReportFonts>)");
    bravcpl5::Library library;
    library.Initialize(&host);
    Quote quote;
    quote.lines = {{QStringLiteral("Shutter"), QStringLiteral("Den"), 1, 30, 60, 229.95}};
    const auto report = BuildQuoteReport(&library, {QStringLiteral("Sunbridge"), {}, {}, {}}, quote,
                                         7 * inch);
    ASSERT_TRUE(report);
    QObject *heading = nullptr, *value = nullptr;
    for (const Band *band : {&report->header, &report->body})
        for (const BandRow &row : *band)
            for (bravcpl5::ReportControl *control : row.controls) {
                if (control->property("Caption") == QLatin1String("QUOTE"))
                    heading = control;
                if (control->property("Text") == QLatin1String("Shutter"))
                    value = control;
            }
    ASSERT_TRUE(heading && value);
    const QObject *headingFont = heading->property("Font").value<QObject *>();
    EXPECT_EQ(headingFont->property("Name").toString(), "DejaVu Serif");
    EXPECT_EQ(headingFont->property("Size").toDouble(), 20);
    EXPECT_TRUE(headingFont->property("Bold").toBool());
    EXPECT_EQ(value->property("Font").value<QObject *>()->property("Name").toString(),
              "DejaVu Sans Mono");
    library.PreTerminate();
}

// The sample host as scripts/demo starts it, in a home of its own (HOME and
// XDG_CONFIG_HOME under `root`) and without a display, so that it tours offscreen.
struct HostRun {
    int exitCode = -1;
    QString out, err;
};

HostRun runSampleHost(const QDir &root, const QStringList &arguments = {})
{
    QProcess host;
    host.setProcessEnvironment(bravcpl5::test::FreshHomeEnvironment(root));
    host.start(QStringLiteral(BRAVCPL5_SAMPLE_HOST), arguments);
    if (!host.waitForFinished(180000)) {
        host.kill();
        host.waitForFinished();
        return {};
    }
    return {host.exitStatus() == QProcess::NormalExit ? host.exitCode() : -1,
            QString::fromUtf8(host.readAllStandardOutput()),
            QString::fromUtf8(host.readAllStandardError())};
}

// The tour into `tour`, over the data folder `root`/data.
HostRun runTour(const QDir &root, const QString &tour)
{
    return runSampleHost(root, {QStringLiteral("--data"), root.filePath(QStringLiteral("data")),
                                QStringLiteral("--tour"), tour});
}

// Neither the configuration folder that HOME implies nor the one XDG_CONFIG_HOME names was
// made: the registry file and the window's place stay in the data folder.
void expectUsersSettingsUntouched(const QDir &root)
{
    EXPECT_FALSE(QFileInfo::exists(root.filePath(QStringLiteral("home/.config"))));
    EXPECT_FALSE(QFileInfo::exists(root.filePath(QStringLiteral("config"))));
}

TEST(SampleHostTour, WritesEveryPictureAndReportQuietly)
{
    QTemporaryDir folder;
    const QDir root(folder.path());
    const HostRun run = runTour(root, root.filePath(QStringLiteral("tour")));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, QString());
    EXPECT_EQ(run.out, "Screenshots and output: " + root.filePath(QStringLiteral("tour")) + '\n');

    const QDir tour(root.filePath(QStringLiteral("tour")));
    for (const char *file :
         {"main-window.png", "preview-product-price-list.png", "preview-customer-quote.png",
          "preview-product-labels.png", "printer-configurations.png", "page-setup.png",
          "general-report-layout.png", "general-report-fonts.png", "process-report-fonts.png",
          "report-filters.png", "report-fields.png", "diagnostics.png", "open-orders.pdf",
          "orders-by-vendor.pdf", "product-price-list.pdf", "sales-by-vendor.pdf",
          "vendor-list.pdf", "customer-quote.pdf", "product-labels.pdf"})
        EXPECT_GT(QFileInfo(tour.filePath(QLatin1String(file))).size(), 1000) << file;
    // A first run gives "(Default)" the workstation's default printer (the sandbox's).
    QFile registry(root.filePath(QStringLiteral("data/registry.ini")));
    ASSERT_TRUE(registry.open(QIODevice::ReadOnly));
    EXPECT_TRUE(registry.readAll().contains("\n(Default)=Office-Laser\n"));
    expectUsersSettingsUntouched(root);
}

TEST(SampleHostTour, APlainRunKeepsItsRegistryFileInItsDataFolder)
{
    QTemporaryDir folder;
    const QDir root(folder.path());
    const HostRun run = runSampleHost(root);
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QDir data(root.filePath(QStringLiteral("home/.local/share/bravcpl5-sample-host")));
    EXPECT_EQ(run.out, "Screenshots and output: " + data.filePath(QStringLiteral("Output")) + '\n');
    EXPECT_TRUE(QFileInfo::exists(data.filePath(QStringLiteral("registry.ini"))));
    expectUsersSettingsUntouched(root);
}

// The titles of the jobs that `since` or later reached the cupsd.
QStringList jobTitlesSince(time_t since)
{
    cups_job_t *jobs = nullptr;
    const int count = cupsGetJobs2(CUPS_HTTP_DEFAULT, &jobs, nullptr, 0, CUPS_WHICHJOBS_ALL);
    QStringList titles;
    for (int i = 0; i < count; ++i)
        if (jobs[i].creation_time >= since)
            titles << QString::fromUtf8(jobs[i].title);
    cupsFreeJobs(count, jobs);
    return titles;
}

TEST(SampleHostTour, PrintsToFilesOnlyWhenPrintersAreAssigned)
{
    SKIP_WITHOUT_CUPSD();
    QTemporaryDir folder;
    const QDir root(folder.path());
    ASSERT_TRUE(root.mkpath(QStringLiteral("data")));
    QFile registry(root.filePath(QStringLiteral("data/registry.ini")));
    ASSERT_TRUE(registry.open(QIODevice::WriteOnly));
    registry.write("[Software/Tarnwell/Lumarest/5.0/Settings (Sample)/Printer Configurations]\n"
                   "Landscape=Office-Laser\nLetter=Office-Laser\nProduct Labels=Label-Printer\n");
    registry.close();

    const time_t started = time(nullptr) - 1;
    const HostRun run = runTour(root, root.filePath(QStringLiteral("tour")));
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    // Other tests print to the same cupsd meanwhile; the sample host's jobs carry the names
    // of its documents.
    const QStringList ours = jobTitlesSince(started).filter(
        QRegularExpression(QStringLiteral("^(Test page - |Open Orders|Orders by Vendor|Product "
                                          "Price List|Sales by Vendor|Vendor List|Customer "
                                          "Quote|Product Labels)")));
    EXPECT_EQ(ours, QStringList());
    // The test page went to a file instead, for the printer it would have gone to.
    const QStringList pages =
        QDir(root.filePath(QStringLiteral("tour"))).entryList({QStringLiteral("test-page-*.pdf")});
    EXPECT_EQ(pages.size(), 1);
}

TEST(SampleHostTour, ATourThatCannotWriteSaysSoAndAnnouncesNoOutput)
{
    QTemporaryDir folder;
    const QDir root(folder.path());
    QFile file(root.filePath(QStringLiteral("a-file")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    bravcpl5::test::SmallFileSystem readOnly(1024 * 1024);
    bravcpl5::test::SmallFileSystem full(256 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(readOnly);
    ASSERT_TRUE(QDir().mkpath(readOnly.filePath(QStringLiteral("tour"))));
    ASSERT_TRUE(readOnly.makeReadOnly(readOnly.filePath(QStringLiteral("tour"))));
    ASSERT_TRUE(QDir().mkpath(full.filePath(QStringLiteral("tour"))));
    full.fill();

    const struct {
        const char *name;
        QString tour;
        const char *says;
    } cases[] = {
        {"BeneathAFile", root.filePath(QStringLiteral("a-file/tour")), "cannot write into"},
        {"ReadOnlyFolder", readOnly.filePath(QStringLiteral("tour")), "cannot write into"},
        // Room for nothing: the screenshots and reports fail one by one.
        {"FullDisk", full.filePath(QStringLiteral("tour")), "could not make every screenshot"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const HostRun run = runTour(root, c.tour);
        EXPECT_NE(run.exitCode, 0);
        EXPECT_EQ(run.out, QString());
        EXPECT_TRUE(run.err.contains(QLatin1String(c.says))) << run.err.toStdString();
    }
}

} // namespace
