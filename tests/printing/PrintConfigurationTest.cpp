// From a configuration file to paper: a configuration with an assigned printer is applied
// to the reference report, which prints through the sandboxed cupsd.

#include "StoreFixture.h"
#include "printing/ReferenceReport.h"
#include "printing/SandboxCups.h"

#include <QPainter>
#include <QTemporaryDir>

namespace bravcpl5::test {
namespace {

struct ConfigurationCase {
    const char *name;
    const char *printer;      // as assigned; the queue's name differs in case
    const char *queue;
    QByteArray pageSetup;
    QSizeF pdfPoints;         // as shown
    const char *media;
    const char *bin;
};

void PrintTo(const ConfigurationCase &c, std::ostream *os) { *os << c.name; }

class PrintConfigurationTest : public StoreFixture,
                               public ::testing::WithParamInterface<ConfigurationCase>
{
protected:
    void SetUp() override
    {
        StoreFixture::SetUp();
        SKIP_WITHOUT_CUPSD();
        const ConfigurationCase &c = GetParam();
        host.writeSystemFile(QString::fromUtf8(c.name) + QStringLiteral(".pcx"),
                             configurationXml(c.pageSetup, 1));
        store->SetPrinterForConfiguration(QString::fromUtf8(c.name), QString::fromUtf8(c.printer));
        store->SetupPageFromPrinterConfiguration(QString::fromUtf8(c.name), &report);
    }

    void expectPdf(const QString &file)
    {
        const PdfFacts facts = ReadPdfFacts(file);
        EXPECT_EQ(facts.pages, 1);
        EXPECT_NEAR(facts.pageSize.width(), GetParam().pdfPoints.width(), 1);
        EXPECT_NEAR(facts.pageSize.height(), GetParam().pdfPoints.height(), 1);
    }

    static bool onePage(QPainter &painter, const ReportPageToDraw &page)
    {
        painter.drawRect(page.content);
        return false;
    }

    ReferenceReport report;
    QTemporaryDir folder;
};

TEST_P(PrintConfigurationTest, PdfHasTheConfiguredPaperAndOrientation)
{
    report.setOutputFileName(folder.filePath(QStringLiteral("report.pdf")));
    ASSERT_TRUE(report.print(onePage));
    EXPECT_TRUE(report.lastPage().adjustments.isEmpty()) << report.lastPage().adjustments.join(u'\n').toStdString();
    expectPdf(report.outputFileName());
}

TEST_P(PrintConfigurationTest, JobCarriesTheConfiguredBin)
{
    ASSERT_TRUE(report.print(onePage));
    const QHash<QString, QString> job = FinishedJobAttributes(report.lastJobId());
    EXPECT_EQ(job.value(QStringLiteral("printer-uri")),
              QStringLiteral("ipp://localhost/printers/") + QString::fromUtf8(GetParam().queue));
    EXPECT_EQ(job.value(QStringLiteral("InputSlot")), QString::fromUtf8(GetParam().bin));
    EXPECT_EQ(job.value(QStringLiteral("media")), QString::fromUtf8(GetParam().media));
    const QString document = folder.filePath(QStringLiteral("printed.pdf"));
    ASSERT_TRUE(SaveJobDocument(QString::fromUtf8(GetParam().queue), report.lastJobId(), document));
    expectPdf(document);
}

INSTANTIATE_TEST_SUITE_P(Table, PrintConfigurationTest, ::testing::Values(
    ConfigurationCase{"Legal Landscape", "office-laser", "Office-Laser",
                      "<PaperSize>5</PaperSize><PaperSource>1</PaperSource><Orientation>2</Orientation>"
                      "<LeftMargin>.5</LeftMargin><RightMargin>.5</RightMargin>",
                      {1008, 612}, "Legal", "Upper"},
    ConfigurationCase{"Address Labels", "LABEL-PRINTER", "Label-Printer",
                      "<PaperSize>257</PaperSize><PaperWidth>2.25</PaperWidth><PaperHeight>1.25</PaperHeight>"
                      "<PaperSource>256</PaperSource><TopMargin>.1</TopMargin><BottomMargin>.1</BottomMargin>"
                      "<LeftMargin>.1</LeftMargin><RightMargin>.1</RightMargin>",
                      {162, 90}, "w162h90", "Roll1"}));

} // namespace
} // namespace bravcpl5::test
