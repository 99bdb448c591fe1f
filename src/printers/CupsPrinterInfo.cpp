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
        for (const CupsPaperSize &size : queue.sizes) {
            const QMarginsF &m = size.unprintable;
            paper.sizes.append(
                {size.name, size.code, twips(size.points.width()), twips(size.points.height()),
                 QMargins(twips(m.left()), twips(m.top()), twips(m.right()), twips(m.bottom()))});
        }
        for (const CupsPaperBin &bin : queue.bins)
            paper.bins.append({bin.name, bin.code});
        paper.currentSize = queue.defaultSizeCode;
        paper.currentBin = queue.defaultBinCode;
        paper.customMinTwips = twips(queue.customMin);
        paper.customMaxTwips = twips(queue.customMax);
        paper.state = {queue.found, queue.stopped, queue.acceptingJobs, queue.stateReasons};
        return paper;
    }

private:
    static int twips(double points) { return int(std::lround(points * TwipsPerPoint)); }
    static QSize twips(const QSizeF &points)
    {
        return QSize(twips(points.width()), twips(points.height()));
    }
};

} // namespace

std::unique_ptr<PrinterInfo> CreateSystemPrinterInfo()
{
    return std::make_unique<CupsPrinterInfo>();
}

} // namespace bravcpl5
