// The system printer information against the sandboxed cupsd's two test queues.

#include "printers/PrinterInfo.h"
#include "support/QtPrinters.h"
#include "support/SandboxCups.h"

#include <QProcess>
#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

class SandboxQueuesTest : public ::testing::Test
{
protected:
    void SetUp() override { SKIP_WITHOUT_CUPSD(); }
    std::unique_ptr<PrinterInfo> info = CreateSystemPrinterInfo();
};

TEST_F(SandboxQueuesTest, ListsTheQueuesAndTheDefault)
{
    EXPECT_TRUE(info->printerNames().contains(QStringLiteral("Label-Printer")));
    EXPECT_EQ(info->defaultPrinterName(), QStringLiteral("Office-Laser"));
    EXPECT_EQ(FindPrinter(*info, QStringLiteral("office-LASER")), QStringLiteral("Office-Laser"));
    EXPECT_EQ(FindPrinter(*info, QStringLiteral("Office Laser")), QString());

    // The same queues as lpstat lists, in its order.
    QProcess lpstat;
    lpstat.start(QStringLiteral("lpstat"), {QStringLiteral("-e")});
    ASSERT_TRUE(lpstat.waitForFinished(10000));
    EXPECT_EQ(info->printerNames(),
              QString::fromUtf8(lpstat.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts));
}

// Sizes as "name code width x height" and bins as "name code", each list followed by the
// current code. Names are found without regard to case; sizes and bins without a standard
// code are numbered from 256.
TEST_F(SandboxQueuesTest, SizesAndBinsHaveWindowsCodes)
{
    const auto sizes = [&](const char *printer) {
        QStringList list;
        for (const PaperSizeInfo &s : info->paperSizes(QString::fromUtf8(printer)))
            list << QStringLiteral("%1 %2 %3x%4")
                        .arg(s.name)
                        .arg(s.code)
                        .arg(s.widthTwips)
                        .arg(s.heightTwips);
        return list << QString::number(info->currentPaperSize(QString::fromUtf8(printer)));
    };
    const auto bins = [&](const char *printer) {
        QStringList list;
        for (const PaperBinInfo &b : info->paperBins(QString::fromUtf8(printer)))
            list << QStringLiteral("%1 %2").arg(b.name).arg(b.code);
        return list << QString::number(info->currentPaperBin(QString::fromUtf8(printer)));
    };
    EXPECT_EQ(sizes("OFFICE-laser"),
              QStringList({"Letter 1 12240x15840", "Legal 5 12240x20160", "A4 9 11900x16840",
                           "Executive 7 10440x15120", "Envelope #10 20 5940x13680", "1"}));
    EXPECT_EQ(bins("office-laser"),
              QStringList({"Upper Tray 1", "Lower Tray 2", "Manual Feed 4", "Envelope Feeder 5",
                           "Automatically Select 7", "2"}));
    EXPECT_EQ(sizes("Label-Printer"), QStringList({"Shipping Label 4 x 6 in 256 5760x8640",
                                                   "Address Label 2.25 x 1.25 in 257 3240x1800",
                                                   "Barcode Label 3 x 1 in 258 4320x1440", "256"}));
    EXPECT_EQ(bins("Label-Printer"), QStringList({"Front Roll 256", "Rear Roll 257", "257"}));
    EXPECT_EQ(sizes("No-Such-Printer"), QStringList{"0"});
    EXPECT_EQ(bins("No-Such-Printer"), QStringList{"0"});
}

} // namespace
