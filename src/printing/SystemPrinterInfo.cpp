#include "printing/PrinterInfo.h"

#include "library/Units.h"
#include "printing/CupsQueue.h"
#include "printing/PaperBinCodes.h"

#include <QPageSize>
#include <QPrinterInfo>
#include <cmath>

namespace bravcpl5 {

namespace {

constexpr int FirstPrinterPaperCode = 256;

// Printers and paper sizes as Qt reports them; paper bins from CUPS, which Qt does not
// expose. Sizes without a Windows code get codes from 256 up, in the printer's order, so
// each is unique for that printer.
class SystemPrinterInfo final : public PrinterInfo
{
public:
    QStringList printerNames() const override { return QPrinterInfo::availablePrinterNames(); }

    QString defaultPrinterName() const override { return QPrinterInfo::defaultPrinterName(); }

    QList<PaperSizeInfo> paperSizes(const QString &printer) const override
    {
        QList<PaperSizeInfo> sizes;
        const QPrinterInfo info = QPrinterInfo::printerInfo(FindPrinter(*this, printer));
        if (info.isNull())
            return sizes;
        int nextCustom = FirstPrinterPaperCode;
        for (const QPageSize &size : info.supportedPageSizes())
            sizes.append(describe(size, nextCustom));
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
        const QPrinterInfo info = QPrinterInfo::printerInfo(FindPrinter(*this, printer));
        if (info.isNull())
            return 0;
        const QPageSize current = info.defaultPageSize();
        for (const PaperSizeInfo &size : paperSizes(printer)) {
            if (size.name == current.name())
                return size.code;
        }
        return current.windowsId();
    }

    int currentPaperBin(const QString &printer) const override
    {
        const CupsQueue queue = ReadCupsQueue(FindPrinter(*this, printer));
        const CupsPaperBin *bin = queue.binByKeyword(queue.defaultBin);
        return bin ? bin->code : 0;
    }

private:
    static PaperSizeInfo describe(const QPageSize &size, int &nextCustom)
    {
        PaperSizeInfo paper;
        paper.name = size.name();
        // Qt gives every size of its own the code 256 (user-defined).
        const int code = size.id() == QPageSize::Custom ? 0 : size.windowsId();
        paper.code = code > 0 && code < FirstPrinterPaperCode ? code : nextCustom++;
        const QSizeF points = size.size(QPageSize::Point);
        paper.widthTwips = int(std::lround(points.width() * TwipsPerPoint));
        paper.heightTwips = int(std::lround(points.height() * TwipsPerPoint));
        return paper;
    }
};

} // namespace

std::unique_ptr<PrinterInfo> CreateSystemPrinterInfo() { return std::make_unique<SystemPrinterInfo>(); }

} // namespace bravcpl5
