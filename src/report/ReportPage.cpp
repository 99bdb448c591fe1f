#include "report/ReportPage.h"

#include "printers/PaperSizeCodes.h"

#include <algorithm>

namespace bravcpl5 {

namespace {

// The least width and height left for content, so that a page always has somewhere to draw.
constexpr double minimumContent = TwipsPerPoint;

QString inches(double twips)
{
    return QString::number(twips / TwipsPerInch, 'g', 4) + QStringLiteral(" in");
}

QPageSize sizeFromTwips(double width, double height)
{
    return QPageSize(QSizeF(width / TwipsPerPoint, height / TwipsPerPoint), QPageSize::Point,
                     QString(), QPageSize::ExactMatch);
}

// The paper the values ask for: a standard code, else the width and height given, else
// the printer's own size of that code.
QPageSize requestedPaper(const ReportPageValues &values, const QList<PaperSizeInfo> &printerSizes,
                         QStringList &adjustments)
{
    const QPageSize::PageSizeId id = values.paperSize > 0
                                             && values.paperSize < FirstPrinterPaperCode
                                         ? QPageSize::id(values.paperSize)
                                         : QPageSize::Custom;
    if (id != QPageSize::Custom)
        return QPageSize(id);
    if (values.paperWidth > 0 && values.paperHeight > 0)
        return sizeFromTwips(values.paperWidth, values.paperHeight);
    for (const PaperSizeInfo &size : printerSizes) {
        if (size.code == values.paperSize)
            return sizeFromTwips(size.widthTwips, size.heightTwips);
    }
    adjustments.append(QStringLiteral("Paper size %1 without a width and height: Letter used")
                           .arg(values.paperSize));
    return QPageSize(QPageSize::Letter);
}

// The queue's own size for the values (a printer's own code, 256 and up, by the stored
// width and height, as the code may have been numbered on another client), else the
// queue's default. The paper becomes exactly that size, fractions of a point kept.
const CupsPaperSize *queuePaper(const ReportPageValues &values, const CupsQueue &queue,
                                QPageSize &paper, QStringList &adjustments)
{
    if (!queue.found || queue.sizes.isEmpty())
        return nullptr;
    const QSizeF points = paper.size(QPageSize::Point);
    const CupsPaperSize *size = queue.storedSize(values.paperSize, points);
    if (!size) {
        size = queue.defaultSize();
        adjustments.append(
            QStringLiteral("Paper size %1 (%2 x %3) not offered by the printer: %4 used")
                .arg(values.paperSize)
                .arg(inches(points.width() * TwipsPerPoint),
                     inches(points.height() * TwipsPerPoint), size->name));
    }
    paper = QPageSize(size->points, QPageSize::Point, size->name, QPageSize::ExactMatch);
    return size;
}

const CupsPaperBin *queueBin(const ReportPageValues &values, const CupsQueue &queue,
                             QStringList &adjustments)
{
    if (!queue.found || queue.bins.isEmpty())
        return nullptr;
    if (const CupsPaperBin *bin = queue.binByCode(values.paperSource))
        return bin;
    const CupsPaperBin *fallback = queue.defaultBin();
    adjustments.append(QStringLiteral("Paper source %1 not offered by the printer: %2 used")
                           .arg(values.paperSource)
                           .arg(fallback->name));
    return fallback;
}

// The printer's unreachable edges, turned with the page (landscape turns the paper a
// quarter counter-clockwise: its top edge comes to the left).
QMarginsF minimumMargins(const CupsPaperSize *size, QPageLayout::Orientation orientation)
{
    if (!size)
        return QMarginsF();
    const QMarginsF m = size->unprintable * TwipsPerPoint;
    if (orientation == QPageLayout::Portrait)
        return m;
    return QMarginsF(m.top(), m.right(), m.bottom(), m.left());
}

// Fits two opposite margins and the gutter between them into `extent`, taking first
// from the gutter, then from the larger margin, never going below the minimums.
void fitAxis(double &first, double &second, double &gutter, double minFirst, double minSecond,
             double extent)
{
    const double room = extent - minimumContent;
    if (first + second + gutter > room)
        gutter = std::max(0.0, room - first - second);
    double excess = first + second - room;
    double *larger = first >= second ? &first : &second;
    double *smaller = larger == &first ? &second : &first;
    const double minLarger = larger == &first ? minFirst : minSecond;
    const double minSmaller = larger == &first ? minSecond : minFirst;
    for (auto [margin, least] : {std::pair{larger, minLarger}, std::pair{smaller, minSmaller}}) {
        if (excess <= 0)
            break;
        const double cut = std::min(excess, std::max(0.0, *margin - least));
        *margin -= cut;
        excess -= cut;
    }
}

void noteMargin(const char *name, double before, double after, QStringList &adjustments)
{
    if (before != after)
        adjustments.append(QStringLiteral("%1 %2 changed to %3")
                               .arg(QLatin1String(name), inches(before), inches(after)));
}

} // namespace

QSizeF ResolvedReportPage::paperTwips() const
{
    const QSizeF size = paperPoints * TwipsPerPoint;
    return orientation == QPageLayout::Portrait ? size : size.transposed();
}

QRectF ResolvedReportPage::contentRect(int pageNumber) const
{
    const bool facing = mirrorMargins && pageNumber % 2 == 0;
    const double left = facing ? margins.right() : margins.left() + gutter;
    const double right = facing ? margins.left() + gutter : margins.right();
    const QSizeF size = paperTwips();
    return QRectF(left, margins.top(), size.width() - left - right,
                  size.height() - margins.top() - margins.bottom());
}

ResolvedReportPage ResolveReportPage(const ReportPageValues &values, const CupsQueue &queue,
                                     const QList<PaperSizeInfo> &printerSizes)
{
    ResolvedReportPage page;
    QStringList &notes = page.adjustments;
    page.paper = requestedPaper(values, printerSizes, notes);
    const CupsPaperSize *size = queuePaper(values, queue, page.paper, notes);
    page.paperPoints = size ? size->points : page.paper.size(QPageSize::Point);
    const CupsPaperBin *bin = queueBin(values, queue, notes);
    page.mediaKeyword = size ? size->keyword : QString();
    page.binKeyword = bin ? bin->keyword : QString();
    page.binName = bin ? bin->name : QString();
    page.jobOptions = queue.jobOptions(size, bin);

    if (values.orientation != 1 && values.orientation != 2)
        notes.append(QStringLiteral("Orientation %1 printed as portrait").arg(values.orientation));
    page.orientation = values.orientation == 2 ? QPageLayout::Landscape : QPageLayout::Portrait;
    page.mirrorMargins = values.mirrorMargins;

    const QMarginsF least = minimumMargins(size, page.orientation);
    double left = std::max(values.leftMargin, least.left());
    double top = std::max(values.topMargin, least.top());
    double right = std::max(values.rightMargin, least.right());
    double bottom = std::max(values.bottomMargin, least.bottom());
    double gutter = std::max(values.gutter, 0.0);
    double noGutter = 0;
    const QSizeF paper = page.paperTwips();
    fitAxis(left, right, gutter, least.left(), least.right(), paper.width());
    fitAxis(top, bottom, noGutter, least.top(), least.bottom(), paper.height());
    noteMargin("Left margin", values.leftMargin, left, notes);
    noteMargin("Top margin", values.topMargin, top, notes);
    noteMargin("Right margin", values.rightMargin, right, notes);
    noteMargin("Bottom margin", values.bottomMargin, bottom, notes);
    noteMargin("Gutter", values.gutter, gutter, notes);
    page.margins = QMarginsF(left, top, right, bottom);
    page.gutter = gutter;
    return page;
}

} // namespace bravcpl5
