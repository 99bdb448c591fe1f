// The reference report printing through the sandboxed cupsd: PDFs with the configured
// paper and orientation, and jobs that carry the configured bin.

#include "library/LateBinding.h"
#include "printing/ReferenceReport.h"
#include "printing/SandboxCups.h"

#include <QPainter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace bravcpl5;
using namespace bravcpl5::test;

namespace {

struct PrintCase {
    const char *name;
    const char *printer;
    int paperSize;
    float widthTwips, heightTwips;
    int paperSource;
    int orientation;
    float margins;       // twips, all four
    QSizeF pdfPoints;    // as shown
    const char *media;   // the job's
    const char *bin;     // the job's InputSlot
};

void PrintTo(const PrintCase &c, std::ostream *os) { *os << c.name; }

// Sets the members the way the library does, by name.
void configure(ReferenceReport &report, const PrintCase &c)
{
    late::set(late::object(&report, "Printer"), "DeviceName", QString::fromUtf8(c.printer));
    QObject *settings = late::object(&report, "PageSettings");
    late::set(settings, "PaperSize", c.paperSize);
    late::set(settings, "PaperWidth", c.widthTwips);
    late::set(settings, "PaperHeight", c.heightTwips);
    late::set(settings, "PaperSource", c.paperSource);
    late::set(settings, "Orientation", c.orientation);
    for (const char *margin : {"TopMargin", "BottomMargin", "LeftMargin", "RightMargin"})
        late::set(settings, margin, c.margins);
}

bool twoPages(QPainter &painter, const ReportPageToDraw &page)
{
    painter.drawRect(page.content);
    painter.drawText(page.content, QStringLiteral("Page %1").arg(page.number));
    return page.number < 2;
}

class ReferenceReportPrintTest : public ::testing::TestWithParam<PrintCase>
{
protected:
    void SetUp() override { SKIP_WITHOUT_CUPSD(); }
    QTemporaryDir folder;
};

TEST_P(ReferenceReportPrintTest, PdfHasTheConfiguredPaperAndOrientation)
{
    const PrintCase &c = GetParam();
    ReferenceReport report;
    configure(report, c);
    const QString pdf = folder.filePath(QStringLiteral("report.pdf"));
    late::set(&report, "OutputFileName", pdf);
    ASSERT_TRUE(report.print(twoPages));
    EXPECT_TRUE(report.lastPage().adjustments.isEmpty()) << report.lastPage().adjustments.join(u'\n').toStdString();
    const PdfFacts facts = ReadPdfFacts(pdf);
    EXPECT_EQ(facts.pages, 2);
    EXPECT_NEAR(facts.pageSize.width(), c.pdfPoints.width(), 1);
    EXPECT_NEAR(facts.pageSize.height(), c.pdfPoints.height(), 1);
    EXPECT_EQ(report.lastJobId(), 0);
}

TEST_P(ReferenceReportPrintTest, JobCarriesTheConfiguredBinAndPaper)
{
    const PrintCase &c = GetParam();
    ReferenceReport report;
    configure(report, c);
    report.setDocumentName(QString::fromUtf8(c.name));
    ASSERT_TRUE(report.print(twoPages));
    ASSERT_GT(report.lastJobId(), 0);
    const QHash<QString, QString> job = FinishedJobAttributes(report.lastJobId());
    EXPECT_EQ(job.value(QStringLiteral("job-state")).toInt(), 9) << job.value("job-state-reasons").toStdString();
    EXPECT_EQ(job.value(QStringLiteral("InputSlot")), QString::fromUtf8(c.bin));
    EXPECT_EQ(job.value(QStringLiteral("media")), QString::fromUtf8(c.media));
    EXPECT_EQ(job.value(QStringLiteral("job-name")), QString::fromUtf8(c.name));

    const QString document = folder.filePath(QStringLiteral("printed.pdf"));
    ASSERT_TRUE(SaveJobDocument(QString::fromUtf8(c.printer), report.lastJobId(), document));
    const PdfFacts facts = ReadPdfFacts(document);
    EXPECT_EQ(facts.pages, 2);
    EXPECT_NEAR(facts.pageSize.width(), c.pdfPoints.width(), 1);
    EXPECT_NEAR(facts.pageSize.height(), c.pdfPoints.height(), 1);
}

INSTANTIATE_TEST_SUITE_P(Table, ReferenceReportPrintTest, ::testing::Values(
    PrintCase{"LetterPortraitUpper", "Office-Laser", 1, 0, 0, 1, 1, 1440, {612, 792}, "Letter", "Upper"},
    PrintCase{"LegalLandscapeManual", "office-laser", 5, 0, 0, 4, 2, 720, {1008, 612}, "Legal", "Manual"},
    PrintCase{"A4Envelope", "Office-Laser", 9, 0, 0, 5, 1, 1440, {595, 842}, "A4", "Envelope"},
    PrintCase{"AddressLabelFrontRoll", "Label-Printer", 257, 3240, 1800, 256, 1, 144, {162, 90}, "w162h90", "Roll1"},
    PrintCase{"ShippingLabelLandscapeRearRoll", "Label-Printer", 256, 5760, 8640, 257, 2, 288, {432, 288},
              "w288h432", "Roll2"}));

class ReferenceReportTest : public ::testing::Test
{
protected:
    void SetUp() override { SKIP_WITHOUT_CUPSD(); }
};

TEST_F(ReferenceReportTest, UnknownPrinterPrintsNothing)
{
    ReferenceReport report;
    report.printer()->setDeviceName(QStringLiteral("No-Such-Printer"));
    EXPECT_FALSE(report.print(twoPages));
    EXPECT_EQ(report.lastJobId(), 0);
}

TEST_F(ReferenceReportTest, NoDeviceNamePrintsToTheDefaultPrinter)
{
    ReferenceReport report;
    report.pageSettings()->setPaperSource(4);
    ASSERT_TRUE(report.print(twoPages));
    const QHash<QString, QString> job = FinishedJobAttributes(report.lastJobId());
    EXPECT_EQ(job.value(QStringLiteral("printer-uri")), QStringLiteral("ipp://localhost/printers/Office-Laser"));
    EXPECT_EQ(job.value(QStringLiteral("InputSlot")), QStringLiteral("Manual"));
}

TEST_F(ReferenceReportTest, BinThePrinterLacksIsPrintedFromItsDefaultAndNoted)
{
    ReferenceReport report;
    report.printer()->setDeviceName(QStringLiteral("Office-Laser"));
    report.pageSettings()->setPaperSource(15);
    report.pageSettings()->setLeftMargin(0);
    ASSERT_TRUE(report.print(twoPages));
    const QHash<QString, QString> job = FinishedJobAttributes(report.lastJobId());
    EXPECT_EQ(job.value(QStringLiteral("InputSlot")), QStringLiteral("Lower"));
    EXPECT_EQ(report.lastPage().margins.left(), 360);
    EXPECT_EQ(report.lastPage().adjustments.size(), 2);
}

} // namespace
