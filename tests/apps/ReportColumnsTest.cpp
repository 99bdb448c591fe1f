// The sample host's reports as they come out on paper: column headings that wrap at their
// words rather than being cut, cell texts that end in "…" rather than mid-glyph, wide
// reports on landscape pages, and a test page that names its paper and bin in words.

#include "ColumnText.h"
#include "DealerReports.h"
#include "ReportOutput.h"
#include "SampleHost.h"
#include "TestPage.h"

#include "library/Library.h"
#include "library/RegistryFile.h"
#include "printers/PrinterInfo.h"
#include "printing/PrinterConfigurations.h"
#include "support/ListedPrinters.h"
#include "support/SandboxCups.h"
#include "support/StoreFixture.h"
#include "support/TestHost.h"

#include <QApplication>
#include <QDirIterator>
#include <QMessageBox>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>
#include <pugixml.hpp>

namespace bravcpl5::test {
namespace {

// What pdftotext -layout reads on a PDF's pages (all of them when `last` is 0).
QString pdfText(const QString &file, int last = 0)
{
    QProcess pdftotext;
    QStringList arguments = {QStringLiteral("-layout")};
    if (last > 0)
        arguments << QStringLiteral("-l") << QString::number(last);
    pdftotext.start(QStringLiteral("pdftotext"), arguments << file << QStringLiteral("-"));
    pdftotext.waitForFinished();
    // Ligatures ("ﬁ") read as their letters, as a reader searching the PDF finds them.
    QString text = QString::fromUtf8(pdftotext.readAllStandardOutput());
    for (char16_t ligature = 0xFB00; ligature <= 0xFB06; ++ligature)
        text.replace(QChar(ligature),
                     QString(QChar(ligature)).normalized(QString::NormalizationForm_KC));
    return text;
}

TEST(ColumnText, HeadingsWrapAtWordsAndWhatCannotFitEndsInAnEllipsis)
{
    QFont font(QStringLiteral("DejaVu Sans"), 10);
    font.setBold(true);
    const QFontMetricsF metrics = PrintedMetrics(font);
    const auto advance = [&](const char *text) {
        return metrics.horizontalAdvance(QString::fromUtf8(text));
    };
    const double room = 1;
    const struct {
        const char *name;
        const char *text;
        double width;
        int maxLines;
        QStringList lines; // "…" at the end: the line is that text elided
    } cases[] = {
        {"Fits", "Dealer Cost", advance("Dealer Cost") + room, 3, {"Dealer Cost"}},
        {"TwoWords", "Dealer Cost", advance("Dealer Cost") - room, 3, {"Dealer", "Cost"}},
        {"WordsKeptTogether",
         "Lead Time (days)",
         advance("Lead Time") + room,
         3,
         {"Lead Time", "(days)"}},
        {"SpacesCollapse", "  Min   Width ", advance("Min Width") + room, 3, {"Min Width"}},
        {"OneLongWord", "Manufacturer", advance("Manufacturer") / 2, 3, {"Manufacturer…"}},
        {"LastLineTakesTheRest",
         "Min Width Max Height",
         advance("Height") + room,
         2,
         {"Min", "Width Max Height…"}},
        {"NarrowerThanAnEllipsis", "Qty", advance("…") / 2, 3, {}},
        {"Empty", "", 100, 3, {}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QStringList lines = WrapWords(QString::fromUtf8(c.text), metrics, c.width,
                                            c.maxLines);
        ASSERT_EQ(lines.size(), c.lines.size()) << lines.join(u'|').toStdString();
        for (qsizetype i = 0; i < lines.size(); ++i) {
            EXPECT_LE(metrics.horizontalAdvance(lines[i]), c.width);
            if (c.lines[i].endsWith(u'…')) {
                EXPECT_TRUE(lines[i].endsWith(u'…')) << lines[i].toStdString();
                EXPECT_TRUE(c.lines[i].startsWith(lines[i].chopped(1))) << lines[i].toStdString();
                EXPECT_GT(lines[i].size(), 1);
            } else {
                EXPECT_EQ(lines[i], c.lines[i]);
            }
        }
    }
}

TEST(ColumnText, ColumnsShrinkTogetherButNotBelowTheirLeastWidth)
{
    const struct {
        const char *name;
        QList<double> wanted, least;
        double width;
        QList<double> widths;
    } cases[] = {
        {"Fit", {2, 1, 1}, {0.5, 0.5, 0.5}, 5, {2, 1, 1}},
        {"ScaledTogether", {4, 2, 2}, {0.5, 0.5, 0.5}, 4, {2, 1, 1}},
        // The narrow column keeps its least width; the others share what is left.
        {"LeastHeld", {6, 3, 1}, {0.5, 0.5, 0.8}, 5.3, {3, 1.5, 0.8}},
        // Holding one column can push another below its least width in turn.
        {"HeldInRounds", {6, 2, 1.6}, {0.5, 1.2, 0.78}, 4.8, {2.82, 1.2, 0.78}},
        {"LeastTooWide", {2, 2}, {3, 1}, 2, {1.5, 0.5}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QList<double> widths = FitWidths(c.wanted, c.least, c.width);
        ASSERT_EQ(widths.size(), c.widths.size());
        for (qsizetype i = 0; i < widths.size(); ++i)
            EXPECT_NEAR(widths[i], c.widths[i], 1e-9) << "column " << i;
    }
}

// The sample host's own settings tree, database and library, with no printer anywhere, so
// that every report is laid out on its configuration's page as it stands.
class SampleReports : public ::testing::Test
{
protected:
    void SetUp() override
    {
        previousRegistry = RegistryFile();
        SetRegistryFile(QDir(data.path()).filePath(QStringLiteral("registry.ini")));
        SetPrinterInfo(std::make_unique<ListedPrinters>(QStringList(), QString()));
        const QString samples = QDir(QStringLiteral(BRAVCPL5_TEST_DATA))
                                    .filePath(QStringLiteral("../../apps/sample-host/sample-data"));
        for (QDirIterator it(samples, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            const QString file = it.next();
            const QString target = QDir(data.path()).filePath(QDir(samples).relativeFilePath(file));
            QDir().mkpath(QFileInfo(target).absolutePath());
            ASSERT_TRUE(QFile::copy(file, target)) << target.toStdString();
        }
        host = std::make_unique<SampleHost>(data.path());
        library.Initialize(host.get());
    }
    void TearDown() override
    {
        library.PreTerminate();
        host.reset();
        SetPrinterInfo(nullptr);
        SetRegistryFile(previousRegistry);
    }

    // The sample data's report named `name`; one without a name when there is none.
    DealerReport report(const QString &name) const
    {
        for (const DealerReport &r : DealerReports(data.path()))
            if (r.name == name)
                return r;
        return {};
    }

    // The report written as the tour writes it.
    QString writePdf(const DealerReport &report)
    {
        const QString file = QDir(data.path()).filePath(report.name + QStringLiteral(".pdf"));
        EXPECT_TRUE(WriteReportPdf({&library, host.get(), nullptr}, report, file));
        return file;
    }

    QString previousRegistry;
    QTemporaryDir data;
    std::unique_ptr<SampleHost> host;
    Library library;
};

// The headings a report's configuration lists: each field's label, else its name.
QStringList headingsOf(const QString &configurationFile)
{
    pugi::xml_document document;
    document.load_file(configurationFile.toLocal8Bit().constData());
    QStringList headings;
    for (pugi::xml_node field : document.select_node("//Fields").node().children())
        headings << QString::fromUtf8(field.attribute("label").as_string(field.name()));
    return headings;
}

// Every general report of the sample data is much wider than Letter portrait: it prints on
// landscape pages, its headings whole, its long texts cut with "…" and its numbers whole.
TEST_F(SampleReports, GeneralReportsPrintWholeHeadingsAndEllipsizedTexts)
{
    int general = 0;
    for (const DealerReport &report : DealerReports(data.path())) {
        if (report.kind != DealerReport::Kind::General)
            continue;
        ++general;
        SCOPED_TRACE(report.name.toStdString());
        const QString pdf = writePdf(report);
        EXPECT_EQ(ReadPdfFacts(pdf).pageSize, QSizeF(792, 612));
        const QString firstPage = pdfText(pdf, 1);
        const QStringList words = firstPage.split(QRegularExpression(QStringLiteral("\\s+")),
                                                  Qt::SkipEmptyParts);
        for (const QString &heading : headingsOf(report.file))
            for (const QString &word : heading.split(u' ', Qt::SkipEmptyParts))
                EXPECT_TRUE(words.contains(word))
                    << "\"" << word.toStdString() << "\" of \"" << heading.toStdString()
                    << "\" is not whole in:\n"
                    << firstPage.toStdString();

        const QString text = pdfText(pdf);
        // "1,237.7…", "3/25/2…", "(509) 55…"
        EXPECT_FALSE(text.contains(QRegularExpression(QStringLiteral("(\\d[,./-]|\\) )\\d*…"))))
            << text.toStdString();
        // Product, customer and vendor names are longer than their columns in every report.
        EXPECT_TRUE(text.contains(QRegularExpression(QStringLiteral("[A-Za-z]… "))))
            << text.toStdString();
    }
    EXPECT_EQ(general, 5);
}

TEST_F(SampleReports, GroupCountsSayLineOrLines)
{
    const DealerReport byVendor = report(QStringLiteral("Orders by Vendor"));
    ASSERT_FALSE(byVendor.name.isEmpty());
    const QString text = pdfText(writePdf(byVendor));
    // Which groups there are depends on the day the filters' date range is seen from.
    int counts = 0;
    for (const QRegularExpressionMatch &count :
         QRegularExpression(QStringLiteral("(?:^|\\s)(\\d+) (lines?)(?: in all)?\\s"))
             .globalMatch(text)) {
        ++counts;
        EXPECT_EQ(count.captured(1) == QLatin1String("1"),
                  count.captured(2) == QLatin1String("line"))
            << count.captured(0).toStdString();
    }
    EXPECT_GT(counts, 1) << text.toStdString();
}

TEST_F(SampleReports, LabelTextsEndInAnEllipsisRatherThanRunIntoTheNextLabel)
{
    const DealerReport labels = report(QStringLiteral("Product Labels"));
    ASSERT_EQ(labels.kind, DealerReport::Kind::Labels);
    const QString text = pdfText(writePdf(labels));
    // Two labels' texts run together: "Woven WoodsAluminum Blinds".
    const QRegularExpressionMatch merged =
        QRegularExpression(QStringLiteral("\\S*[a-z][A-Z]\\S*")).match(text);
    EXPECT_FALSE(merged.hasMatch()) << merged.captured().toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("… ")));
}

TEST_F(SampleReports, PrintingSaysHowManyPages)
{
    SKIP_WITHOUT_CUPSD();
    SetPrinterInfo(nullptr);
    const QString queue = QStringLiteral("Real-HP-LaserJet-4250");
    for (const char *configuration : {"Letter", "Landscape"})
        library.printerConfigurations()->assignPrinter(QLatin1String(configuration), queue);
    const struct {
        const char *report;
        const char *says;
    } cases[] = {
        {"Customer Quote", "Customer Quote was sent to Real-HP-LaserJet-4250 (1 page)."},
        {"Vendor List", "Vendor List was sent to Real-HP-LaserJet-4250 (2 pages)."},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.report);
        const DealerReport printed = report(QLatin1String(c.report));
        ASSERT_FALSE(printed.name.isEmpty());
        // The sample host tells the dealer in a message box of its own.
        QString said;
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, [&]() {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                said = box->text();
                box->accept();
            }
        });
        closer.start(50);
        EXPECT_TRUE(PrintReport({&library, host.get(), nullptr}, printed));
        EXPECT_EQ(said, QLatin1String(c.says));
    }
}

// The test page of a configuration written to a PDF, as the sample host's menu prints it.
QString testPageText(Library &library, const QString &configuration, const QString &printer,
                     const QString &pdf)
{
    ReferenceReport report;
    SetUpTestPage(&library, configuration, report);
    report.setOutputFileName(pdf);
    EXPECT_TRUE(PrintTestPage(report, configuration, printer));
    return pdfText(pdf).simplified();
}

// The page names its configuration and says why its print width differs from the content
// area; lengths are read from the configuration and written on the page in the user's
// locale.
TEST(TestPage, SaysWhatThePageIsAndWhyItsPrintWidthDiffers)
{
    TestHost host;
    SetPrinterInfo(std::make_unique<ListedPrinters>(QStringList(), QString()));
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    const struct {
        const char *name;
        QLocale locale;
        QByteArray pageSetup;
        QStringList says;
    } cases[] = {
        {"LetterPortrait",
         us,
         "<PaperSize>1</PaperSize><PaperWidth>8.5</PaperWidth><PaperHeight>11</PaperHeight>",
         {"Paper: Letter / ANSI A, 8.5 × 11 in code 1", "Orientation: portrait",
          "Margins: top 1 in, bottom 1 in, left 1 in, right 1 in", "Gutter: none",
          "Content area: 6.5 × 9 in",
          "Print width 6.5 in: the paper's width less the left and right margins, the same as "
          "the content area's width."}},
        // The print width comes from the sheet's upright width; the content lies across it.
        {"LetterLandscape",
         us,
         "<PaperSize>1</PaperSize><PaperWidth>8.5</PaperWidth><PaperHeight>11</PaperHeight>"
         "<LeftMargin>.75</LeftMargin><RightMargin>.75</RightMargin>"
         "<Orientation>1</Orientation>",
         {"Orientation: landscape", "Content area: 9.5 × 6.5 in",
          "Print width 7 in: the library gives the report the configuration's paper width (8.5 "
          "in) less its left and right margins; the content area is 9.5 in wide: the paper as "
          "printed (11 in across) less the margins and gutter."}},
        // A configuration that stores no width: the library's 8 in, on Letter.
        {"NoWidthStored",
         us,
         "<PaperSize>1</PaperSize>",
         {"Print width 6 in: the library gives the report the configuration's paper width (8 "
          "in)",
          "the content area is 6.5 in wide"}},
        {"German",
         QLocale(QLocale::German, QLocale::Germany),
         "<PaperSize>1</PaperSize><PaperWidth>8,5</PaperWidth><LeftMargin>0,75</LeftMargin>",
         {"8,5 × 11 in", "left 0,75 in", "Print width 6,75 in"}},
        {"Japanese",
         QLocale(QLocale::Japanese, QLocale::Japan),
         "<PaperSize>1</PaperSize><PaperWidth>8.5</PaperWidth><LeftMargin>.75</LeftMargin>",
         {"8.5 × 11 in", "left 0.75 in", "Print width 6.75 in"}},
        // The library writes Western digits with the locale's separator; the page writes
        // Arabic digits, the width still first in its left-to-right lines.
        {"Arabic",
         QLocale(QLocale::Arabic, QLocale::Egypt),
         "<PaperSize>1</PaperSize><PaperWidth>8٫5</PaperWidth><LeftMargin>0٫75</LeftMargin>",
         {"٨٫٥ × ١١ in", "left ٠٫٧٥ in", "Print width ٦٫٧٥ in"}},
    };
    const QLocale previous;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QLocale::setDefault(c.locale);
        const QString name = QString::fromLatin1(c.name);
        host.writeSystemFile(name + QStringLiteral(".pcx"), configurationXml(c.pageSetup, 1));
        Library library;
        library.Initialize(&host);
        const QString text = testPageText(
            library, name, QString(), QDir(host.root()).filePath(name + QStringLiteral(".pdf")));
        EXPECT_TRUE(text.contains(QStringLiteral("Configuration: %1").arg(name)));
        EXPECT_TRUE(text.contains(QLatin1String("Printer: none (written to a PDF file)")));
        EXPECT_TRUE(text.contains(QLatin1String("Paper source: not known without a printer")));
        for (const QString &said : c.says)
            EXPECT_TRUE(text.contains(said)) << said.toStdString() << "\nnot in:\n"
                                             << text.toStdString();
        library.PreTerminate();
    }
    QLocale::setDefault(previous);
    SetPrinterInfo(nullptr);
}

TEST(TestPage, NamesThePrintersPaperAndBin)
{
    SKIP_WITHOUT_CUPSD();
    TestHost host;
    const QString previousRegistry = RegistryFile();
    SetRegistryFile(QDir(host.root()).filePath(QStringLiteral("registry.ini")));
    const QString queue = QStringLiteral("Real-HP-LaserJet-4250");
    host.writeSystemFile(
        QStringLiteral("Office.pcx"),
        configurationXml("<PaperSize>1</PaperSize><PaperSource>7</PaperSource>", 1));
    Library library;
    library.Initialize(&host);
    library.printerConfigurations()->assignPrinter(QStringLiteral("Office"), queue);
    const QString text = testPageText(library, QStringLiteral("Office"), queue,
                                      QDir(host.root()).filePath(QStringLiteral("office.pdf")));
    EXPECT_TRUE(
        text.contains(QLatin1String("Printer: Real-HP-LaserJet-4250 (written to a PDF file)")))
        << text.toStdString();
    // The PPD's own names: "*PageSize Letter/Letter", "*InputSlot Auto/Automatic".
    EXPECT_TRUE(text.contains(QStringLiteral("Paper: Letter, 8.5 × 11 in code 1")))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QLatin1String("Paper source: Automatic code 7")))
        << text.toStdString();
    library.PreTerminate();
    SetRegistryFile(previousRegistry);
}

} // namespace
} // namespace bravcpl5::test
