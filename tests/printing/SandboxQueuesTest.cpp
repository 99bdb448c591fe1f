// The system printer information against the sandboxed cupsd's two test queues.

#include "printing/PrinterInfo.h"
#include "printing/SandboxCups.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

const QString laser = QStringLiteral("Office-Laser");
const QString labels = QStringLiteral("Label-Printer");

class SandboxQueuesTest : public ::testing::Test
{
protected:
    void SetUp() override { SKIP_WITHOUT_CUPSD(); }
    std::unique_ptr<PrinterInfo> info = CreateSystemPrinterInfo();
};

TEST_F(SandboxQueuesTest, ListsTheQueuesAndTheDefault)
{
    EXPECT_TRUE(info->printerNames().contains(laser));
    EXPECT_TRUE(info->printerNames().contains(labels));
    EXPECT_EQ(info->defaultPrinterName(), laser);
    EXPECT_EQ(FindPrinter(*info, QStringLiteral("office-LASER")), laser);
    EXPECT_EQ(FindPrinter(*info, QStringLiteral("Office Laser")), QString());
}

struct Size {
    QString name;
    int code;
    int widthTwips;
    int heightTwips;
    bool operator==(const Size &) const = default;
};

std::ostream &operator<<(std::ostream &os, const Size &s)
{
    return os << s.name.toStdString() << ' ' << s.code << ' ' << s.widthTwips << 'x' << s.heightTwips;
}

QList<Size> sizes(const PrinterInfo &info, const QString &printer)
{
    QList<Size> result;
    for (const PaperSizeInfo &size : info.paperSizes(printer))
        result.append({size.name, size.code, size.widthTwips, size.heightTwips});
    return result;
}

TEST_F(SandboxQueuesTest, StandardSizesHaveWindowsCodes)
{
    EXPECT_EQ(sizes(*info, laser), QList<Size>({{"Letter", 1, 12240, 15840},
                                                {"Legal", 5, 12240, 20160},
                                                {"A4", 9, 11900, 16840},
                                                {"Executive", 7, 10440, 15120},
                                                {"Envelope #10", 20, 5940, 13680}}));
    EXPECT_EQ(info->currentPaperSize(laser), 1);
    // Names are found without regard to case.
    EXPECT_EQ(sizes(*info, QStringLiteral("OFFICE-LASER")).size(), 5);
    EXPECT_EQ(info->currentPaperSize(QStringLiteral("OFFICE-LASER")), 1);
}

TEST_F(SandboxQueuesTest, OwnSizesAreNumberedFrom256)
{
    EXPECT_EQ(sizes(*info, labels), QList<Size>({{"Shipping Label 4 x 6 in", 256, 5760, 8640},
                                                 {"Address Label 2.25 x 1.25 in", 257, 3240, 1800},
                                                 {"Barcode Label 3 x 1 in", 258, 4320, 1440}}));
    EXPECT_EQ(info->currentPaperSize(labels), 256);
}

struct Bin {
    QString name;
    int code;
    bool operator==(const Bin &) const = default;
};

std::ostream &operator<<(std::ostream &os, const Bin &b) { return os << b.name.toStdString() << ' ' << b.code; }

QList<Bin> bins(const PrinterInfo &info, const QString &printer)
{
    QList<Bin> result;
    for (const PaperBinInfo &bin : info.paperBins(printer))
        result.append({bin.name, bin.code});
    return result;
}

TEST_F(SandboxQueuesTest, BinsHaveWindowsCodesAndTheQueueDefault)
{
    EXPECT_EQ(bins(*info, laser), QList<Bin>({{"Upper Tray", 1}, {"Lower Tray", 2}, {"Manual Feed", 4},
                                              {"Envelope Feeder", 5}, {"Automatically Select", 7}}));
    EXPECT_EQ(info->currentPaperBin(laser), 2);
    // Names are found without regard to case.
    EXPECT_EQ(info->currentPaperBin(QStringLiteral("office-laser")), 2);
}

TEST_F(SandboxQueuesTest, OtherBinsAreNumberedFrom256)
{
    EXPECT_EQ(bins(*info, labels), QList<Bin>({{"Front Roll", 256}, {"Rear Roll", 257}}));
    EXPECT_EQ(info->currentPaperBin(labels), 257);
}

TEST_F(SandboxQueuesTest, UnknownPrinterHasNothing)
{
    const QString missing = QStringLiteral("No-Such-Printer");
    EXPECT_TRUE(info->paperSizes(missing).isEmpty());
    EXPECT_TRUE(info->paperBins(missing).isEmpty());
    EXPECT_EQ(info->currentPaperBin(missing), 0);
    EXPECT_EQ(info->currentPaperSize(missing), 0);
}

} // namespace
