// The system printer information against queues made from real PPDs of Debian's printer
// driver packages (scripts/cups-sandbox), compared with the PPD text itself.

#include "printers/CupsQueue.h"
#include "printers/PaperSizeCodes.h"
#include "printers/PrinterInfo.h"
#include "support/PpdText.h"
#include "support/SandboxCups.h"

#include <QSet>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace bravcpl5;
using namespace bravcpl5::test;

namespace {

class RealPpdQueueTest : public ::testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_CUPSD();
        ppd = ReadQueuePpd(queue());
        if (!ppd.found)
            GTEST_SKIP() << "queue " << GetParam()
                         << " not in the sandbox (driver package missing)";
    }
    QString queue() const { return QString::fromUtf8(GetParam()); }

    std::unique_ptr<PrinterInfo> info = CreateSystemPrinterInfo();
    PpdText ppd;
};

// Every PageSize of the PPD, in its order, with its own name and its PaperDimension within
// a twip; the current size is the PPD's default.
TEST_P(RealPpdQueueTest, SizesAreThePpdsOwnWithinATwip)
{
    const PpdOption *pageSize = ppd.option(QStringLiteral("PageSize"));
    ASSERT_TRUE(pageSize);
    const QList<PaperSizeInfo> sizes = info->paperSizes(queue());
    QStringList expected, listed;
    for (const PpdChoice &choice : pageSize->choices) {
        if (!ppd.dimensions.contains(choice.keyword))
            continue; // a PageSize without a PaperDimension is no sheet
        const QSizeF points = ppd.dimensions.value(choice.keyword);
        expected << QStringLiteral("%1 %2x%3")
                        .arg(choice.text)
                        .arg(points.width() * 20)
                        .arg(points.height() * 20);
    }
    for (qsizetype i = 0; i < sizes.size() && i < expected.size(); ++i) {
        const QStringList wh = expected[i].section(u' ', -1).split(u'x');
        listed << QStringLiteral("%1 %2x%3")
                      .arg(sizes[i].name)
                      .arg(std::abs(sizes[i].widthTwips - wh[0].toDouble()) <= 1
                               ? wh[0].toDouble()
                               : sizes[i].widthTwips)
                      .arg(std::abs(sizes[i].heightTwips - wh[1].toDouble()) <= 1
                               ? wh[1].toDouble()
                               : sizes[i].heightTwips);
    }
    ASSERT_FALSE(expected.isEmpty());
    EXPECT_EQ(sizes.size(), expected.size());
    EXPECT_EQ(listed, expected.mid(0, listed.size()));

    int defaultCode = -1;
    for (qsizetype i = 0; i < pageSize->choices.size() && i < sizes.size(); ++i)
        if (pageSize->choices[i].keyword == pageSize->defaultChoice)
            defaultCode = sizes[i].code;
    EXPECT_EQ(info->currentPaperSize(queue()), defaultCode);
}

// No two sizes and no two bins of a printer share a code, or a configuration could not
// select one of them.
TEST_P(RealPpdQueueTest, CodesAreUniquePerPrinter)
{
    QSet<int> sizeCodes, binCodes;
    for (const PaperSizeInfo &size : info->paperSizes(queue())) {
        EXPECT_FALSE(sizeCodes.contains(size.code)) << size.name.toStdString() << " " << size.code;
        sizeCodes.insert(size.code);
    }
    for (const PaperBinInfo &bin : info->paperBins(queue())) {
        EXPECT_FALSE(binCodes.contains(bin.code)) << bin.name.toStdString() << " " << bin.code;
        binCodes.insert(bin.code);
    }
}

// Every source the PPD offers is a bin with the driver's name: the InputSlot choices, else
// the driver's own source option's, and a separate ManualFeed option; a printer with none
// has the one bin a job without a source takes.
TEST_P(RealPpdQueueTest, EveryPaperSourceIsABin)
{
    QStringList expected;
    const PpdOption *inputSlot = ppd.option(QStringLiteral("InputSlot"));
    for (const PpdOption &option : ppd.options) {
        const QString keyword = option.keyword.toLower();
        const bool vendorSource = !inputSlot && option.group != QLatin1String("InstallableOptions")
                                  && (keyword.contains(QLatin1String("papersource"))
                                      || keyword.contains(QLatin1String("mediasource")));
        if (&option == inputSlot || vendorSource)
            for (const PpdChoice &choice : option.choices)
                expected << choice.text;
    }
    if (const PpdOption *manual = ppd.option(QStringLiteral("ManualFeed")))
        expected << (manual->text.isEmpty() ? QStringLiteral("Manual Feed") : manual->text);
    if (expected.isEmpty())
        expected << QStringLiteral("Automatically Select");
    QStringList names;
    for (const PaperBinInfo &bin : info->paperBins(queue()))
        names << bin.name;
    EXPECT_EQ(names, expected);
}

// A client without the queue's PPD (a driverless printer, or a shared one found on the
// network) reads the printer from the IPP attributes the server derives from the PPD: every
// sheet is one of the PPD's within a twip, the default is the PPD's default, and no two
// sheets and no two sources share a code.
TEST_P(RealPpdQueueTest, WithoutThePpdTheSameSheetsWithCodesOfTheirOwn)
{
    const CupsQueue read = ReadCupsQueue(queue(), CupsQueueSource::PrinterAttributes);
    ASSERT_TRUE(read.found);
    EXPECT_FALSE(read.hasPpd);
    ASSERT_FALSE(read.sizes.isEmpty());
    const auto withinATwip = [](const QSizeF &a, const QSizeF &b) {
        return std::abs(a.width() - b.width()) * 20 <= 1
               && std::abs(a.height() - b.height()) * 20 <= 1;
    };
    QSet<int> sizeCodes, binCodes;
    for (const CupsPaperSize &size : read.sizes) {
        const QString name = size.keyword + u' ' + size.name;
        EXPECT_TRUE(
            std::any_of(ppd.dimensions.begin(), ppd.dimensions.end(),
                        [&](const QSizeF &points) { return withinATwip(points, size.points); }))
            << name.toStdString();
        EXPECT_FALSE(sizeCodes.contains(size.code)) << name.toStdString();
        sizeCodes.insert(size.code);
    }
    const PpdOption *pageSize = ppd.option(QStringLiteral("PageSize"));
    ASSERT_TRUE(pageSize && read.defaultSize());
    EXPECT_TRUE(
        withinATwip(read.defaultSize()->points, ppd.dimensions.value(pageSize->defaultChoice)));
    for (const CupsPaperBin &bin : read.bins) {
        EXPECT_EQ(bin.option, bin.keyword.isEmpty() ? QString() : QStringLiteral("media-source"));
        EXPECT_FALSE(binCodes.contains(bin.code)) << bin.keyword.toStdString();
        binCodes.insert(bin.code);
    }
}

// Both readings of a printer agree on what a code prints: a standard code names sheets of
// one size, and a printer's own code saved with its size on one reading prints a sheet of
// that size on the other. No borderless twin takes a standard code.
TEST_P(RealPpdQueueTest, BothReadingsPrintTheSameSheetForACode)
{
    const CupsQueue driver = ReadCupsQueue(queue());
    const CupsQueue ipp = ReadCupsQueue(queue(), CupsQueueSource::PrinterAttributes);
    ASSERT_TRUE(driver.hasPpd && ipp.found);
    for (const CupsQueue *read : {&driver, &ipp}) {
        for (const CupsPaperSize &size : read->sizes) {
            const bool twin = size.unprintable.isNull()
                              && std::any_of(read->sizes.begin(), read->sizes.end(),
                                             [&](const CupsPaperSize &other) {
                                                 return !other.unprintable.isNull()
                                                        && SamePaper(other.points, size.points);
                                             });
            EXPECT_FALSE(twin && size.code < FirstPrinterPaperCode)
                << size.keyword.toStdString() << " " << size.code;
        }
    }
    for (const CupsPaperSize &size : driver.sizes) {
        const CupsPaperSize *other = ipp.storedSize(size.code, size.points);
        if (size.code < FirstPrinterPaperCode && !other)
            continue; // a standard sheet the server does not publish (Letter Small)
        ASSERT_TRUE(other) << size.keyword.toStdString() << " " << size.code;
        EXPECT_TRUE(SamePaper(other->points, size.points))
            << size.keyword.toStdString() << " " << size.code << " prints on "
            << other->keyword.toStdString();
        if (other->code < FirstPrinterPaperCode)
            continue; // the code's own sheet on either reading
        const CupsPaperSize *back = driver.storedSize(other->code, other->points);
        ASSERT_TRUE(back);
        EXPECT_TRUE(SamePaper(back->points, size.points)) << other->keyword.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Sandbox, RealPpdQueueTest, ::testing::ValuesIn(RealQueues),
                         [](const auto &info) { return QueueTestName(info.param); });

// 0 stands for a printer's own code (256 and up).
void expectCode(int code, int expected)
{
    if (expected == 0)
        EXPECT_GE(code, FirstPrinterPaperCode);
    else
        EXPECT_EQ(code, expected);
}

// Standard codes on the real queues: sizes by their dimensions whatever the driver calls
// them, bins by the drivers' spellings.
TEST(RealPpdCodesTest, StandardSheetsAndBinsHaveTheirWindowsCodes)
{
    SKIP_WITHOUT_CUPSD();
    enum Kind { Size, Bin };
    const struct {
        const char *queue;
        Kind kind;
        const char *name;
        int code;
    } cases[] = {
        {"Real-Lexmark-C540", Size, "Folio", 14},
        {"Real-HP-LaserJet-4250", Size, "8.5x13", 0},           // 8.5 x 13 in, a point short
        {"Real-HP-LaserJet-4250", Size, "Executive (JIS)", 14}, // exactly 8.5 x 13 in
        {"Real-HP-DesignJet-4000", Size, "C", 24},
        {"Real-HP-DesignJet-4000", Size, "D", 25},
        {"Real-HP-DesignJet-4000", Size, "E", 26},
        {"Real-HP-DesignJet-4000", Size, "Arch C", 0},
        {"Real-HP-DesignJet-4000", Size, "Arch D", 0},
        {"Real-HP-DesignJet-4000", Size, "Arch E", 0},
        {"Real-HP-DesignJet-4000", Size, "D - extended margins", 0},
        {"Real-HP-LaserJet-5200", Size, "12x18", 0},
        {"Real-HP-LaserJet-5200", Size, "11x17", 3},
        {"Real-HP-LaserJet-4250", Size, "Letter (Small)", 2}, // twins named for their code
        {"Real-HP-LaserJet-4250", Size, "A4 (Small)", 10},
        {"Real-HP-LaserJet-4250", Size, "Env ISO B5", 34},
        {"Real-HP-LaserJet-4250", Size, "Legal (Small)", 0}, // Windows has no Legal Small
        {"Real-HP-LaserJet-5200", Size, "B4 (JIS)", 12},
        {"Real-HP-DesignJet-Z6dr", Size, "B4", 42},  // ISOB4
        {"Real-HP-DesignJet-Z6dr", Size, "JB4", 12}, // B4
        {"Real-HP-DesignJet-Z6dr", Size, "A4 no margins", 0},
        {"Real-HP-LaserJet-4250", Size, "Env DL", 27},
        {"Real-HP-DesignJet-Z6dr", Size, "A4", 9},
        {"Real-Kyocera-FS-1000-de", Size, "Umschlag DL", 27},
        {"Real-DYMO-LabelWriter-450", Size, "30252 Address", 0},
        {"Real-HP-LaserJet-4250", Bin, "Tray 1 (Manual)", 4}, // InputSlot Tray1_Man
        {"Real-HP-LaserJet-4250", Bin, "Envelope Feeder", 5}, // InputSlot EnvelopeFeeder
        {"Real-HP-LaserJet-4250", Bin, "Automatic", 7},       // InputSlot Auto
        {"Real-HP-LaserJet-4250", Bin, "Tray 1", 0},
        {"Real-HP-Color-LaserJet-2500", Bin, "Tray 1 (Manual)", 4}, // a ManualFeed option
        {"Real-Brother-HL-2600CN", Bin, "Manual Feed", 4},  // a ManualFeed option without a name
        {"Real-HP-DesignJet-Z6dr", Bin, "Single Sheet", 4}, // HPPaperSource ManualFeed
        {"Real-HP-DesignJet-Z6dr", Bin, "Printer Auto Select", 7}, // HPPaperSource Autoselect
        {"Real-HP-DesignJet-4000", Bin, "Roll", 8},
        {"Real-Lexmark-C540", Bin, "Manual Paper", 4}, // before the multi-purpose feeder
        {"Real-Lexmark-C540", Bin, "Manual Envelope", 6},
        {"Real-Kyocera-FS-1000-de", Bin, "Papierzufuhr Handeinzug", 4}, // InputSlot MF
        {"Real-Kyocera-FS-1000-de", Bin, "Mehrzweckzufuhr", 0}, // MF1, fed by hand, gives way
        {"Real-DYMO-LabelWriter-450", Bin, "Automatically Select", 7},
    };
    std::unique_ptr<PrinterInfo> info = CreateSystemPrinterInfo();
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.queue) + " " + c.name);
        const PrinterPaper paper = info->paper(QString::fromUtf8(c.queue));
        if (paper.sizes.isEmpty())
            continue;              // not in the sandbox
        QHash<QString, int> codes; // the first of a name
        for (const PaperSizeInfo &size : paper.sizes)
            if (c.kind == Size && !codes.contains(size.name))
                codes.insert(size.name, size.code);
        for (const PaperBinInfo &bin : paper.bins)
            if (c.kind == Bin && !codes.contains(bin.name))
                codes.insert(bin.name, bin.code);
        const int code = codes.value(QString::fromUtf8(c.name), -1);
        ASSERT_NE(code, -1);
        expectCode(code, c.code);
    }
}

// A driverless printer's current sheet and tray are the ones it publishes: the default
// sheet with its margins (not its borderless twin), the tray an administrator chose.
TEST(RealPpdCodesTest, DriverlessDefaultsAreThePrintersOwn)
{
    SKIP_WITHOUT_CUPSD();
    const CupsQueue plotter = ReadCupsQueue(QStringLiteral("Real-HP-DesignJet-Z6dr"),
                                            CupsQueueSource::PrinterAttributes);
    const CupsQueue chosen = ReadCupsQueue(QStringLiteral("Real-HP-LaserJet-4250-Tray-2"),
                                           CupsQueueSource::PrinterAttributes);
    if (!plotter.found || !chosen.found)
        GTEST_SKIP() << "queues not in the sandbox (driver package missing)";
    EXPECT_EQ(plotter.defaultSizeCode, 1);
    ASSERT_TRUE(chosen.binByCode(chosen.defaultBinCode));
    EXPECT_EQ(chosen.binByCode(chosen.defaultBinCode)->keyword, QStringLiteral("tray-2"));
    EXPECT_EQ(chosen.defaultSizeCode, 1);
}

// The same codes for a client without the PPD, by the IPP names the server gives the
// sheets and sources ("tray-1-man"): the bordered sheet takes the code and its borderless
// twin a printer's own.
TEST(RealPpdCodesTest, DriverlessSheetsAndSourcesHaveTheirWindowsCodes)
{
    SKIP_WITHOUT_CUPSD();
    enum Kind { Size, Bin };
    const struct {
        const char *queue;
        Kind kind;
        const char *keyword;
        int code;
    } cases[] = {
        {"Real-HP-DesignJet-Z6dr", Size, "iso_a4_210x297mm", 9},
        {"Real-HP-DesignJet-Z6dr", Size, "iso_a4_210x297mm_borderless", 0},
        {"Real-HP-DesignJet-Z6dr", Size, "na_letter_8.5x11in", 1},
        {"Real-HP-DesignJet-Z6dr", Size, "na_letter_8.5x11in_borderless", 0},
        {"Real-HP-DesignJet-Z6dr", Size, "iso_b4_250x353mm", 42},
        {"Real-HP-DesignJet-Z6dr", Size, "jis_b4_257x364mm", 12},
        {"Real-HP-LaserJet-5200", Size, "jis_b4_257x364mm", 12},
        {"Real-HP-LaserJet-5200", Size, "na_ledger_11x17in", 3},
        {"Real-Kyocera-FS-1000-de", Size, "iso_a5_148x210mm", 11},
        {"Real-HP-LaserJet-4250", Size, "iso_b5_176x250mm", 34},
        {"Real-HP-LaserJet-4250", Bin, "tray-1-man", 4},
        {"Real-HP-LaserJet-4250", Bin, "envelope-feeder", 5},
        {"Real-HP-LaserJet-4250", Bin, "auto", 7},
        {"Real-HP-LaserJet-4250", Bin, "tray-1", 0},
        {"Real-Lexmark-C540", Bin, "manual-paper", 4},
        {"Real-Lexmark-C540", Bin, "by-pass-tray", 0}, // not manual beside a manual bin
        {"Real-Lexmark-C540", Bin, "manual-env", 6},
        {"Real-Kyocera-FS-1000-de", Bin, "mf", 4},
        {"Real-Kyocera-FS-1000-de", Bin, "mf-1", 0}, // the multi-purpose tray beside it
        {"Real-HP-DesignJet-4000", Bin, "main-roll", 8},
        {"Real-HP-DesignJet-Z6dr", Bin, "manual-feed", 4},
        {"Real-DYMO-LabelWriter-450", Bin, "", 7}, // no sources: the bin a job without one takes
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(std::string(c.queue) + " " + c.keyword);
        const CupsQueue read = ReadCupsQueue(QString::fromUtf8(c.queue),
                                             CupsQueueSource::PrinterAttributes);
        if (!read.found)
            continue; // not in the sandbox
        const QString keyword = QString::fromUtf8(c.keyword);
        int code = -1;
        if (c.kind == Size) {
            // A borderless sheet is one without unprintable margins.
            const bool borderless = keyword.endsWith(QLatin1String("_borderless"));
            for (const CupsPaperSize &size : read.sizes)
                if (code < 0 && size.keyword == keyword && size.unprintable.isNull() == borderless)
                    code = size.code;
        }
        for (const CupsPaperBin &bin : read.bins)
            if (c.kind == Bin && code < 0 && bin.keyword == keyword)
                code = bin.code;
        ASSERT_NE(code, -1);
        expectCode(code, c.code);
    }
}

} // namespace
