// What a dialog holds: each printer read once for its lifetime, whatever the case of the
// name it is asked by, and again after refresh().

#include "printers/CachedPrinterInfo.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

// Counts the reads that reach the print system.
struct CountingPrinters final : PrinterInfo {
    mutable int lists = 0, defaults = 0, reads = 0;
    mutable QString newDefault = QStringLiteral("Laser");
    QStringList printerNames() const override { return ++lists, QStringList{"Laser", "Labels"}; }
    QString defaultPrinterName() const override { return ++defaults, newDefault; }
    QList<PaperSizeInfo> paperSizes(const QString &) const override
    {
        return ++reads, QList<PaperSizeInfo>{{"A4", 9, 11906, 16838}};
    }
    QList<PaperBinInfo> paperBins(const QString &) const override
    {
        return ++reads, QList<PaperBinInfo>{{"Upper", 1}};
    }
    int currentPaperSize(const QString &) const override { return ++reads, 9; }
    int currentPaperBin(const QString &) const override { return ++reads, 1; }
    // One read for all four, as the system's does.
    PrinterPaper paper(const QString &printer) const override
    {
        ++reads;
        return {{{"A4 " + printer, 9, 11906, 16838}}, {{"Upper", 1}}, 9, 1};
    }
};

TEST(CachedPrinterInfoTest, ReadsEachThingOnceUntilRefreshed)
{
    CountingPrinters system;
    CachedPrinterInfo info(system);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(info.printerNames().size(), 2);
        EXPECT_EQ(info.defaultPrinterName(), QStringLiteral("Laser"));
        EXPECT_EQ(info.paperSizes(QStringLiteral("Laser")).first().name,
                  QStringLiteral("A4 Laser"));
        EXPECT_EQ(info.paperBins(QStringLiteral("LASER")).first().code, 1);
        EXPECT_EQ(info.currentPaperSize(QStringLiteral("laser")), 9);
        EXPECT_EQ(info.currentPaperBin(QStringLiteral("Labels")), 1);
    }
    EXPECT_EQ(system.lists, 1);
    EXPECT_EQ(system.defaults, 1);
    EXPECT_EQ(system.reads, 2); // Laser in any case, and Labels

    // Refresh sees what changed since.
    system.newDefault = QStringLiteral("Labels");
    EXPECT_EQ(info.defaultPrinterName(), QStringLiteral("Laser"));
    info.refresh();
    EXPECT_EQ(info.defaultPrinterName(), QStringLiteral("Labels"));
    info.paper(QStringLiteral("Laser"));
    EXPECT_EQ(system.reads, 3);
}

} // namespace
