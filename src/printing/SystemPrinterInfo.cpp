#include "printing/PrinterInfo.h"

#include "library/Units.h"
#include "printing/CupsQueue.h"
#include "printing/PaperSizeCodes.h"

#include <QPrinterInfo>
#include <cmath>

namespace bravcpl5 {

namespace {

// Printers as Qt reports them; paper sizes and bins from the CUPS queue itself, since Qt
// rounds sizes and matches them to its own list.
class SystemPrinterInfo final : public PrinterInfo
{
public:
    QStringList printerNames() const override { return QPrinterInfo::availablePrinterNames(); }

    QString defaultPrinterName() const override { return QPrinterInfo::defaultPrinterName(); }

    // The queue's own sizes with the driver's names and exact dimensions, converted to
    // twips once; codes by dimensions, so twins and variants stay apart.
    QList<PaperSizeInfo> paperSizes(const QString &printer) const override
    {
        const CupsQueue queue = ReadCupsQueue(FindPrinter(*this, printer));
        QList<QSizeF> points;
        for (const CupsPaperSize &size : queue.sizes)
            points.append(size.points);
        const QList<int> codes = NumberPaperSizes(points);
        QList<PaperSizeInfo> sizes;
        for (int i = 0; i < queue.sizes.size(); ++i)
            sizes.append({queue.sizes[i].name, codes[i], twips(points[i].width()), twips(points[i].height())});
        return sizes;
    }

    QList<PaperBinInfo> paperBins(const QString &printer) const override
    {
        QList<PaperBinInfo> bins;
        for (const CupsPaperBin &bin : ReadCupsQueue(FindPrinter(*this, printer)).bins)
            bins.append({bin.name, bin.code});
        return bins;
    }

    int currentPaperSize(const QString &printer) const override
    {
        const CupsQueue queue = ReadCupsQueue(FindPrinter(*this, printer));
        const QList<PaperSizeInfo> sizes = paperSizes(printer);
        for (int i = 0; i < queue.sizes.size() && i < sizes.size(); ++i) {
            if (queue.sizes[i].keyword == queue.defaultSize)
                return sizes[i].code;
        }
        return 0;
    }

    int currentPaperBin(const QString &printer) const override
    {
        const CupsQueue queue = ReadCupsQueue(FindPrinter(*this, printer));
        const CupsPaperBin *bin = queue.binByKeyword(queue.defaultBin);
        return bin ? bin->code : 0;
    }

private:
    static int twips(double points) { return int(std::lround(points * TwipsPerPoint)); }
};

} // namespace

std::unique_ptr<PrinterInfo> CreateSystemPrinterInfo() { return std::make_unique<SystemPrinterInfo>(); }

} // namespace bravcpl5
