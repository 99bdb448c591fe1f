// Printing on the real-PPD queues: a size and a bin chosen by their codes print as exactly
// that PageSize from exactly that source, on a PDF page of the PPD's own PaperDimension.

#include "printers/PrinterInfo.h"
#include "report/ReferenceReport.h"
#include "support/PpdText.h"
#include "support/SandboxCups.h"

#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

struct PrintCase {
    const char *name;
    const char *queue;
    const char *pageSize; // the PPD's keyword
    const char *bin;      // as listed
    const char *options;  // the job's bin options, "Option=Value" separated by spaces
};

void PrintTo(const PrintCase &c, std::ostream *os) { *os << c.name; }

class RealPpdPrintTest : public ::testing::TestWithParam<PrintCase>
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_CUPSD();
        ppd = ReadQueuePpd(QString::fromUtf8(GetParam().queue));
        if (!ppd.found)
            GTEST_SKIP() << "queue not in the sandbox (driver package missing)";
    }

    PpdText ppd;
    QTemporaryDir folder;
};

bool onePage(QPainter &painter, const ReportPageToDraw &page)
{
    painter.drawRect(page.content);
    return false;
}

TEST_P(RealPpdPrintTest, PrintsThatSizeFromThatBin)
{
    const PrintCase &c = GetParam();
    const QString queue = QString::fromUtf8(c.queue);
    std::unique_ptr<PrinterInfo> info = CreateSystemPrinterInfo();
    const PrinterPaper paper = info->paper(queue);

    // The size's place among the PPD's sheets is its place in the library's list.
    qsizetype index = -1;
    for (const PpdChoice &choice : ppd.option(QStringLiteral("PageSize"))->choices) {
        if (ppd.dimensions.contains(choice.keyword))
            ++index;
        if (choice.keyword == QString::fromUtf8(c.pageSize))
            break;
    }
    ASSERT_TRUE(index >= 0 && index < paper.sizes.size());
    const PaperSizeInfo &size = paper.sizes[index];
    const auto bin = std::find_if(paper.bins.begin(), paper.bins.end(), [&](const PaperBinInfo &b) {
        return b.name == QString::fromUtf8(c.bin);
    });
    ASSERT_NE(bin, paper.bins.end());

    // As a configuration saved by the page setup dialog sets them.
    ReferenceReport report;
    report.printer()->setDeviceName(queue);
    report.pageSettings()->setPaperSize(size.code);
    report.pageSettings()->setPaperWidth(float(size.widthTwips));
    report.pageSettings()->setPaperHeight(float(size.heightTwips));
    report.pageSettings()->setPaperSource(bin->code);
    for (const auto margin :
         {&ReportPageSettings::setTopMargin, &ReportPageSettings::setBottomMargin,
          &ReportPageSettings::setLeftMargin, &ReportPageSettings::setRightMargin})
        (report.pageSettings()->*margin)(360);
    report.setDocumentName(QString::fromUtf8(c.name));
    ASSERT_TRUE(report.print(onePage));
    // Margins may be raised to what the printer reaches; paper and bin are never replaced.
    const QStringList replaced = report.lastPage().adjustments.filter(
        QRegularExpression(QStringLiteral("^Paper")));
    EXPECT_TRUE(replaced.isEmpty()) << replaced.join(u'\n').toStdString();

    const QHash<QString, QString> job = FinishedJobAttributes(report.lastJobId());
    EXPECT_EQ(job.value(QStringLiteral("media")), QString::fromUtf8(c.pageSize));
    EXPECT_EQ(job.value(QStringLiteral("PageSize")), QString::fromUtf8(c.pageSize));
    QStringList options;
    for (const char *option : {"InputSlot", "ManualFeed", "HPPaperSource"}) {
        const QString name = QString::fromUtf8(option);
        if (job.contains(name))
            options << name + u'=' + job.value(name);
    }
    EXPECT_EQ(options, QString::fromUtf8(c.options).split(u' ', Qt::SkipEmptyParts));

    const QString document = folder.filePath(QStringLiteral("printed.pdf"));
    ASSERT_TRUE(SaveJobDocument(queue, report.lastJobId(), document));
    const PdfFacts pdf = ReadPdfFacts(document);
    const QSizeF points = ppd.dimensions.value(QString::fromUtf8(c.pageSize));
    EXPECT_EQ(pdf.pages, 1);
    EXPECT_NEAR(pdf.pageSize.width(), points.width(), 0.05) << "a twip";
    EXPECT_NEAR(pdf.pageSize.height(), points.height(), 0.05) << "a twip";
}

const PrintCase printCases[] = {
    {"DL envelope from the envelope feeder", "Real-HP-LaserJet-4250", "EnvDL", "Envelope Feeder",
     "InputSlot=EnvelopeFeeder"},
    {"Letter Small twin from tray 1 by hand", "Real-HP-LaserJet-4250", "LetterSmall",
     "Tray 1 (Manual)", "InputSlot=Tray1_Man"},
    {"12x18 not Tabloid Extra", "Real-HP-LaserJet-5200", "12X18", "Tray 2",
     "InputSlot=Tray2 ManualFeed=false"},
    {"Legal by the manual feed option", "Real-HP-Color-LaserJet-2500", "Legal", "Tray 1 (Manual)",
     "ManualFeed=true"},
    {"A4 from tray 2 with manual feed off", "Real-HP-Color-LaserJet-2500", "A4", "Tray 2",
     "InputSlot=Tray2 ManualFeed=false"},
    {"ANSI D from roll 1", "Real-HP-DesignJet-Z6dr", "AnsiD", "Roll 1", "HPPaperSource=Roll1"},
    {"A4 to the fraction of a point", "Real-HP-DesignJet-Z6dr", "A4", "Single Sheet",
     "HPPaperSource=ManualFeed"},
    {"ARCH D not ANSI D", "Real-HP-DesignJet-4000", "ARCHD", "Sheet", "InputSlot=Sheet"},
    {"Folio by manual envelope", "Real-Lexmark-C540", "Folio", "Manual Envelope",
     "InputSlot=ManualEnv"},
    {"B6 by the German manual feed", "Real-Kyocera-FS-1000-de", "B6", "Papierzufuhr Handeinzug",
     "InputSlot=MF"},
    {"Jewelry label of fractional points", "Real-DYMO-LabelWriter-450", "w154h64",
     "Automatically Select", ""},
};

INSTANTIATE_TEST_SUITE_P(Sandbox, RealPpdPrintTest, ::testing::ValuesIn(printCases),
                         [](const auto &info) {
                             return QString::fromUtf8(info.param.name).remove(u' ').toStdString();
                         });

} // namespace
} // namespace bravcpl5::test
