#include "printing/PrinterInfo.h"

#include <QPageSize>
#include <QPrinterInfo>
#include <cmath>

namespace bravcpl5 {

namespace {

constexpr double twipsPerPoint = 20.0;

// Printers and paper sizes as Qt reports them. Sizes without a Windows code get codes
// from 256 up, in the printer's order, so each is unique for that printer.
class SystemPrinterInfo final : public PrinterInfo
{
public:
    QStringList printerNames() const override { return QPrinterInfo::availablePrinterNames(); }

    QString defaultPrinterName() const override { return QPrinterInfo::defaultPrinterName(); }

    QList<PaperSizeInfo> paperSizes(const QString &printer) const override
    {
        QList<PaperSizeInfo> sizes;
        const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
        if (info.isNull())
            return sizes;
        int nextCustom = 256;
        for (const QPageSize &size : info.supportedPageSizes())
            sizes.append(describe(size, nextCustom));
        return sizes;
    }

    QList<PaperBinInfo> paperBins(const QString &) const override { return {}; }

    int currentPaperSize(const QString &printer) const override
    {
        const QPrinterInfo info = QPrinterInfo::printerInfo(printer);
        if (info.isNull())
            return 0;
        const QPageSize current = info.defaultPageSize();
        for (const PaperSizeInfo &size : paperSizes(printer)) {
            if (size.name == current.name())
                return size.code;
        }
        return current.windowsId();
    }

    int currentPaperBin(const QString &) const override { return 0; }

private:
    static PaperSizeInfo describe(const QPageSize &size, int &nextCustom)
    {
        PaperSizeInfo paper;
        paper.name = size.name();
        paper.code = size.windowsId() > 0 ? size.windowsId() : nextCustom++;
        const QSizeF points = size.size(QPageSize::Point);
        paper.widthTwips = int(std::lround(points.width() * twipsPerPoint));
        paper.heightTwips = int(std::lround(points.height() * twipsPerPoint));
        return paper;
    }
};

} // namespace

std::unique_ptr<PrinterInfo> CreateSystemPrinterInfo() { return std::make_unique<SystemPrinterInfo>(); }

} // namespace bravcpl5
