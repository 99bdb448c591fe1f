// The sample host as a dealer meets it: label sheets laid out from a configuration's label
// geometry, the quote's amounts and process report fonts, and the unattended tour run as
// a program, which must write every screenshot and PDF, say nothing on standard error and
// leave the user's own settings alone.

#include "LabelSheet.h"
#include "QuoteReport.h"

#include "library/Library.h"
#include "report/ReportLabel.h"
#include "support/TestHost.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
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
    const QString file = QDir(folder.path()).filePath(QStringLiteral("Labels.pcx"));
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(
        "<PrinterConfiguration><PageSetup><TopMargin>.5</TopMargin><LeftMargin>.1875</LeftMargin>"
        "<ColumnsPerSheet>2.6</ColumnsPerSheet><PrintDirection>1</PrintDirection>"
        "<HorizontalGap>.125</HorizontalGap><LabelWidth>2.625</LabelWidth><LabelHeight>1</"
        "LabelHeight>"
        "</PageSetup></PrinterConfiguration>");
    out.close();
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

TEST(SampleHostTour, WritesEveryPictureAndReportQuietlyAndKeepsItsSettingsInItsDataFolder)
{
    QTemporaryDir root;
    const QDir dir(root.path());
    QProcess host;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), dir.filePath(QStringLiteral("home")));
    environment.remove(QStringLiteral("XDG_CONFIG_HOME"));
    environment.remove(QStringLiteral("XDG_DATA_HOME"));
    environment.remove(QStringLiteral("XDG_RUNTIME_DIR"));
    host.setProcessEnvironment(environment);
    host.start(QStringLiteral(BRAVCPL5_SAMPLE_HOST),
               {QStringLiteral("--data"), dir.filePath(QStringLiteral("data")),
                QStringLiteral("--tour"), dir.filePath(QStringLiteral("tour"))});
    ASSERT_TRUE(host.waitForFinished(180000));
    EXPECT_EQ(host.exitCode(), 0);
    EXPECT_EQ(host.readAllStandardError(), QByteArray());

    const QDir tour(dir.filePath(QStringLiteral("tour")));
    for (const char *file :
         {"main-window.png", "preview-product-price-list.png", "preview-customer-quote.png",
          "preview-product-labels.png", "printer-configurations.png", "page-setup.png",
          "general-report-layout.png", "general-report-fonts.png", "process-report-fonts.png",
          "report-filters.png", "report-fields.png", "diagnostics.png", "open-orders.pdf",
          "orders-by-vendor.pdf", "product-price-list.pdf", "sales-by-vendor.pdf",
          "vendor-list.pdf", "customer-quote.pdf", "product-labels.pdf"})
        EXPECT_GT(QFileInfo(tour.filePath(QLatin1String(file))).size(), 1000) << file;
    EXPECT_TRUE(QFileInfo::exists(dir.filePath(QStringLiteral("data/registry.ini"))));
    EXPECT_FALSE(QFileInfo::exists(dir.filePath(QStringLiteral("home/.config/bravcpl5"))));
}

} // namespace
