// From a configuration file to paper: a configuration with an assigned printer is applied
// to the reference report, which prints to a PDF and through the sandboxed cupsd; and
// where the reference report's pages put what is drawn, seen on the rendered PDF.

#include "report/ReferenceReport.h"
#include "support/SandboxCups.h"
#include "support/StoreFixture.h"

#include <QImage>
#include <QPainter>
#include <QProcess>
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
    return report.print(twoPages) ? FinishedJobAttributes(report.lastJobId())
                                  : QHash<QString, QString>();
}

struct ConfigurationCase {
    const char *name;
    const char *printer; // as assigned, in any case
    const char *queue;
    QByteArray pageSetup;
    double pdfWidth, pdfHeight; // in points, as shown
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
        EXPECT_NEAR(facts.pageSize.width(), GetParam().pdfWidth, 1);
        EXPECT_NEAR(facts.pageSize.height(), GetParam().pdfHeight, 1);
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
    EXPECT_TRUE(report.lastPage().adjustments.isEmpty())
        << report.lastPage().adjustments.join(u'\n').toStdString();
    EXPECT_EQ(report.lastJobId(), 0);
    expectPdf(report.outputFileName());

    report.setOutputFileName(QString());
    report.setDocumentName(name);
    const QHash<QString, QString> job = printedJob(report);
    EXPECT_EQ(job.value(QStringLiteral("job-state")).toInt(), 9)
        << job.value("job-state-reasons").toStdString();
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

const ConfigurationCase configurationCases[] = {
    {"Letter Portrait Upper", "Office-Laser", "Office-Laser",
     "<PaperSize>1</PaperSize><PaperSource>1</PaperSource>", 612, 792, "Letter", "Upper"},
    {"Legal Landscape Manual", "office-laser", "Office-Laser",
     "<PaperSize>5</PaperSize><PaperSource>4</PaperSource><Orientation>2</Orientation>"
         + margins(".5"),
     1008, 612, "Legal", "Manual"},
    {"A4 Envelope", "OFFICE-LASER", "Office-Laser",
     "<PaperSize>9</PaperSize><PaperSource>5</PaperSource>", 595, 842, "A4", "Envelope"},
    {"Address Labels", "LABEL-PRINTER", "Label-Printer",
     "<PaperSize>257</PaperSize><PaperWidth>2.25</PaperWidth><PaperHeight>1.25</PaperHeight>"
     "<PaperSource>256</PaperSource>"
         + margins(".1"),
     162, 90, "w162h90", "Roll1"},
    {"Shipping Labels", "Label-Printer", "Label-Printer",
     "<PaperSize>256</PaperSize><PaperWidth>4</PaperWidth><PaperHeight>6</PaperHeight>"
     "<PaperSource>257</PaperSource><Orientation>2</Orientation>"
         + margins(".2"),
     432, 288, "w288h432", "Roll2"},
};

INSTANTIATE_TEST_SUITE_P(Table, PrintConfigurationTest, ::testing::ValuesIn(configurationCases),
                         [](const auto &info) {
                             return QString::fromUtf8(info.param.name).remove(u' ').toStdString();
                         });

TEST(ReferenceReportTest, UnknownPrinterPrintsNothingAndNoDeviceNamePrintsToTheDefaultWithItsBin)
{
    SKIP_WITHOUT_CUPSD();
    ReferenceReport unknown, report;
    unknown.printer()->setDeviceName(QStringLiteral("No-Such-Printer"));
    EXPECT_FALSE(unknown.print(twoPages));
    EXPECT_EQ(unknown.lastJobId(), 0);

    report.pageSettings()->setPaperSource(4);
    QHash<QString, QString> job = printedJob(report);
    EXPECT_EQ(job.value(QStringLiteral("printer-uri")),
              QStringLiteral("ipp://localhost/printers/Office-Laser"));
    EXPECT_EQ(job.value(QStringLiteral("InputSlot")), QStringLiteral("Manual"));
    // A bin the printer lacks prints from its default.
    report.pageSettings()->setPaperSource(15);
    report.pageSettings()->setLeftMargin(0);
    EXPECT_EQ(printedJob(report).value(QStringLiteral("InputSlot")), QStringLiteral("Lower"));
    EXPECT_EQ(report.lastPage().margins.left(), 360);
    EXPECT_EQ(report.lastPage().adjustments.size(), 2); // the bin and the margin
}

// Renders a PDF page at 72 dpi (one pixel per point).
QImage renderPage(const QString &pdf, int page)
{
    const QString prefix = pdf + QStringLiteral("-page");
    QProcess::execute(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("72"),
                       QStringLiteral("-f"), QString::number(page), QStringLiteral("-singlefile"),
                       pdf, prefix});
    return QImage(prefix + QStringLiteral(".png"));
}

bool dark(const QImage &image, int x, int y) { return qGray(image.pixel(x, y)) < 64; }

TEST(ReferenceReportPdfTest, ContentAreaSitsInsideMarginsAndGutterOnMirroredPages)
{
    QTemporaryDir folder;
    ReferenceReport report;
    report.setOutputFileName(folder.filePath(QStringLiteral("mirrored.pdf")));
    ReportPageSettings &settings = *report.pageSettings();
    settings.setLeftMargin(1440); // 72 pt
    settings.setRightMargin(720); // 36 pt
    settings.setTopMargin(2880);  // 144 pt
    settings.setBottomMargin(1440);
    settings.setGutter(720); // 36 pt
    settings.setMirrorMargins(true);
    ASSERT_TRUE(report.print([](QPainter &painter, const ReportPageToDraw &page) {
        painter.fillRect(page.content, Qt::black);
        return page.number < 2;
    }));

    const QImage odd = renderPage(report.outputFileName(), 1),
                 even = renderPage(report.outputFileName(), 2);
    ASSERT_EQ(odd.size(), QSize(612, 792));
    // Odd pages: left margin and gutter (108 pt), right margin 36 pt, top 144 pt. Even pages:
    // the sides swap, the gutter moves to the right.
    const std::tuple<const QImage &, int, int, bool> points[] = {
        {odd, 105, 400, false}, {odd, 111, 400, true},  {odd, 573, 400, true},
        {odd, 579, 400, false}, {odd, 300, 141, false}, {odd, 300, 147, true},
        {even, 33, 400, false}, {even, 39, 400, true},  {even, 501, 400, true},
        {even, 507, 400, false}};
    for (const auto &[page, x, y, inked] : points)
        EXPECT_EQ(dark(page, x, y), inked) << (&page == &odd ? "odd " : "even ") << x << ',' << y;
}

} // namespace
} // namespace bravcpl5::test
