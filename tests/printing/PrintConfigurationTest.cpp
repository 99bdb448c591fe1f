// From a configuration file to paper: a configuration with an assigned printer is applied
// to the reference report, which prints to a PDF and through the sandboxed cupsd.

#include "StoreFixture.h"
#include "printing/ReferenceReport.h"
#include "printing/SandboxCups.h"

#include <QPainter>
#include <QTemporaryDir>

namespace bravcpl5::test {
namespace {

bool twoPages(QPainter &painter, const ReportPageToDraw &page)
{
    painter.drawRect(page.content);
    painter.drawText(page.content, QStringLiteral("Page %1").arg(page.number));
    return page.number < 2;
}

QHash<QString, QString> printedJob(ReferenceReport &report)
{
    return report.print(twoPages) ? FinishedJobAttributes(report.lastJobId()) : QHash<QString, QString>();
}

struct ConfigurationCase {
    const char *name;
    const char *printer;      // as assigned, in any case
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
    }

    void expectPdf(const QString &file)
    {
        const PdfFacts facts = ReadPdfFacts(file);
        EXPECT_EQ(facts.pages, 2);
        EXPECT_NEAR(facts.pageSize.width(), GetParam().pdfPoints.width(), 1);
        EXPECT_NEAR(facts.pageSize.height(), GetParam().pdfPoints.height(), 1);
    }

    ReferenceReport report;
    QTemporaryDir folder;
};

TEST_P(PrintConfigurationTest, PdfAndJobHaveTheConfiguredPaperOrientationAndBin)
{
    const ConfigurationCase &c = GetParam();
    const QString name = QString::fromUtf8(c.name);
    host.writeSystemFile(name + QStringLiteral(".pcx"), configurationXml(c.pageSetup, 1));
    store->SetPrinterForConfiguration(name, QString::fromUtf8(c.printer));
    store->SetupPageFromPrinterConfiguration(name, &report);

    report.setOutputFileName(folder.filePath(QStringLiteral("report.pdf")));
    ASSERT_TRUE(report.print(twoPages));
    EXPECT_TRUE(report.lastPage().adjustments.isEmpty()) << report.lastPage().adjustments.join(u'\n').toStdString();
    EXPECT_EQ(report.lastJobId(), 0);
    expectPdf(report.outputFileName());

    report.setOutputFileName(QString());
    report.setDocumentName(name);
    const QHash<QString, QString> job = printedJob(report);
    EXPECT_EQ(job.value(QStringLiteral("job-state")).toInt(), 9) << job.value("job-state-reasons").toStdString();
    EXPECT_EQ(job.value(QStringLiteral("printer-uri")),
              QStringLiteral("ipp://localhost/printers/") + QString::fromUtf8(c.queue));
    EXPECT_EQ(job.value(QStringLiteral("InputSlot")), QString::fromUtf8(c.bin));
    EXPECT_EQ(job.value(QStringLiteral("media")), QString::fromUtf8(c.media));
    EXPECT_EQ(job.value(QStringLiteral("job-name")), name);
    const QString document = folder.filePath(QStringLiteral("printed.pdf"));
    ASSERT_TRUE(SaveJobDocument(QString::fromUtf8(c.queue), report.lastJobId(), document));
    expectPdf(document);
}

QByteArray margins(const char *inches)
{
    QByteArray xml;
    for (const char *side : {"Top", "Bottom", "Left", "Right"})
        xml += QByteArray("<") + side + "Margin>" + inches + "</" + side + "Margin>";
    return xml;
}

INSTANTIATE_TEST_SUITE_P(Table, PrintConfigurationTest, ::testing::Values(
    ConfigurationCase{"Letter Portrait Upper", "Office-Laser", "Office-Laser",
                      "<PaperSize>1</PaperSize><PaperSource>1</PaperSource>", {612, 792}, "Letter", "Upper"},
    ConfigurationCase{"Legal Landscape Manual", "office-laser", "Office-Laser",
                      "<PaperSize>5</PaperSize><PaperSource>4</PaperSource><Orientation>2</Orientation>" + margins(".5"),
                      {1008, 612}, "Legal", "Manual"},
    ConfigurationCase{"A4 Envelope", "OFFICE-LASER", "Office-Laser",
                      "<PaperSize>9</PaperSize><PaperSource>5</PaperSource>", {595, 842}, "A4", "Envelope"},
    ConfigurationCase{"Address Labels", "LABEL-PRINTER", "Label-Printer",
                      "<PaperSize>257</PaperSize><PaperWidth>2.25</PaperWidth><PaperHeight>1.25</PaperHeight>"
                      "<PaperSource>256</PaperSource>" + margins(".1"),
                      {162, 90}, "w162h90", "Roll1"},
    ConfigurationCase{"Shipping Labels", "Label-Printer", "Label-Printer",
                      "<PaperSize>256</PaperSize><PaperWidth>4</PaperWidth><PaperHeight>6</PaperHeight>"
                      "<PaperSource>257</PaperSource><Orientation>2</Orientation>" + margins(".2"),
                      {432, 288}, "w288h432", "Roll2"}),
    [](const auto &info) { return QString::fromUtf8(info.param.name).remove(u' ').toStdString(); });

class ReferenceReportTest : public ::testing::Test
{
protected:
    void SetUp() override { SKIP_WITHOUT_CUPSD(); }
    ReferenceReport report;
};

TEST_F(ReferenceReportTest, UnknownPrinterPrintsNothing)
{
    report.printer()->setDeviceName(QStringLiteral("No-Such-Printer"));
    EXPECT_FALSE(report.print(twoPages));
    EXPECT_EQ(report.lastJobId(), 0);
}

TEST_F(ReferenceReportTest, NoDeviceNamePrintsToTheDefaultPrinter)
{
    report.pageSettings()->setPaperSource(4);
    const QHash<QString, QString> job = printedJob(report);
    EXPECT_EQ(job.value(QStringLiteral("printer-uri")), QStringLiteral("ipp://localhost/printers/Office-Laser"));
    EXPECT_EQ(job.value(QStringLiteral("InputSlot")), QStringLiteral("Manual"));
}

TEST_F(ReferenceReportTest, BinThePrinterLacksIsPrintedFromItsDefaultAndNoted)
{
    report.printer()->setDeviceName(QStringLiteral("Office-Laser"));
    report.pageSettings()->setPaperSource(15);
    report.pageSettings()->setLeftMargin(0);
    EXPECT_EQ(printedJob(report).value(QStringLiteral("InputSlot")), QStringLiteral("Lower"));
    EXPECT_EQ(report.lastPage().margins.left(), 360);
    EXPECT_EQ(report.lastPage().adjustments.size(), 2);
}

} // namespace
} // namespace bravcpl5::test
