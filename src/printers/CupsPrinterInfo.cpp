#include "printers/PrinterInfo.h"

#include "library/Units.h"
#include "printers/CupsQueue.h"

#include <cmath>

namespace bravcpl5 {

namespace {

// Printers, paper sizes and bins from CUPS itself: Qt rounds sizes and matches them to its
// own list, and reads every destination whole for its printer list. Each request reads one
// queue once, by its name (CUPS finds queues without regard to case).
class CupsPrinterInfo final : public PaperPrinterInfo
{
public:
    QStringList printerNames() const override { return ReadCupsQueueNames(); }
    QString defaultPrinterName() const override { return ReadCupsDefaultQueue(); }

    // The queue's own sizes with the driver's names and exact dimensions, converted to
    // twips once, and its bins from every source.
    PrinterPaper paper(const QString &printer) const override
    {
        const CupsQueue queue = ReadCupsQueue(printer);
        PrinterPaper paper;
        for (const CupsPaperSize &size : queue.sizes)
            paper.sizes.append(
                {size.name, size.code, twips(size.points.width()), twips(size.points.height())});
        for (const CupsPaperBin &bin : queue.bins)
            paper.bins.append({bin.name, bin.code});
        paper.currentSize = queue.defaultSizeCode;
        paper.currentBin = queue.defaultBinCode;
        return paper;
    }

private:
    static int twips(double points) { return int(std::lround(points * TwipsPerPoint)); }
};

} // namespace

std::unique_ptr<PrinterInfo> CreateSystemPrinterInfo()
{
    return std::make_unique<CupsPrinterInfo>();
}

} // namespace bravcpl5
