#include "TestPage.h"

#include "library/LateBinding.h"
#include "printers/PrinterInfo.h"

#include <QLocale>
#include <QPainter>
#include <cmath>

using namespace bravcpl5;

namespace {

// What the test page reports besides the geometry it draws.
struct TestPageInfo {
    QString configuration;
    QString printer;    // the printer the page is for; "" when there is none
    bool toPdf = false; // written to a PDF rather than printed
    int paperSize = 0;  // the codes the configuration stores
    int paperSource = 0;
    float paperWidth = 0; // twips, the page settings' paper width the print width comes from
    float printWidth = 0; // twips, as the configuration set it
};

// "8.5", "0.156": inches to the thousandth, without trailing zeros.
QString number(double twips)
{
    return QLocale().toString(std::round(twips / TwipsPerInch * 1000) / 1000, 'g',
                              QLocale::FloatingPointShortest);
}

QString inches(double twips) { return number(twips) + QStringLiteral(" in"); }

QString size(const QSizeF &twips)
{
    // Between two numbers in Arabic digits the "×" would turn the pair around in this
    // left-to-right text; marks beside it keep the width first.
    const QString times = QLocale().textDirection() == Qt::RightToLeft
                              ? QStringLiteral(" \u200E×\u200E ")
                              : QStringLiteral(" × ");
    return number(twips.width()) + times + number(twips.height()) + QStringLiteral(" in");
}

QFont fontOfTwips(int twips, bool bold = false)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(twips); // the painter works in twips
    font.setBold(bold);
    return font;
}

// A line of the description, with a code in small print after it.
struct Line {
    QString text;
    QString code = {};
};

QString binName(const ResolvedReportPage &resolved, const TestPageInfo &info)
{
    if (!resolved.binName.isEmpty())
        return resolved.binName;
    for (const PaperBinInfo &bin : CurrentPrinterInfo().paperBins(info.printer))
        if (bin.code == info.paperSource)
            return bin.name;
    return info.printer.isEmpty() ? QStringLiteral("not known without a printer")
                                  : QStringLiteral("the printer's own (it offers no choice)");
}

// Why the report's print width and the content area may differ: the library takes the
// print width from the page settings' paper width, which is the stored width of the sheet
// (upright), while the content area is the paper as it is printed, less the gutter too.
QString printWidthLine(const ReportPageToDraw &page, const ResolvedReportPage &resolved,
                       const TestPageInfo &info)
{
    const QString width = QStringLiteral("Print width %1: ").arg(inches(info.printWidth));
    if (std::abs(info.printWidth - page.content.width()) < 1)
        return width
               + QStringLiteral("the paper's width less the left and right margins, the same as "
                                "the content area's width.");
    return width
           + QStringLiteral("the library gives the report the configuration's paper width (%1) "
                            "less its left and right margins; the content area is %2 wide: the "
                            "paper as printed (%3 across) less the margins and gutter.")
                 .arg(inches(info.paperWidth), inches(page.content.width()),
                      inches(resolved.paperTwips().width()));
}

QList<Line> describe(const ReportPageToDraw &page, const ResolvedReportPage &resolved,
                     const TestPageInfo &info)
{
    const QMarginsF &m = resolved.margins;
    QString printer = info.printer.isEmpty() ? QStringLiteral("none") : info.printer;
    if (info.toPdf)
        printer += QStringLiteral(" (written to a PDF file)");
    const QString paperName = resolved.paper.name().isEmpty() ? QStringLiteral("Custom size")
                                                              : resolved.paper.name();
    QString gutter = QStringLiteral("none");
    if (resolved.gutter > 0)
        gutter = QStringLiteral("%1 at the binding edge").arg(inches(resolved.gutter));
    QList<Line> lines = {
        {QStringLiteral("Configuration: %1").arg(info.configuration)},
        {QStringLiteral("Printer: %1").arg(printer)},
        {QStringLiteral("Paper: %1, %2").arg(paperName, size(resolved.paperPoints * TwipsPerPoint)),
         QStringLiteral("code %1").arg(info.paperSize)},
        {QStringLiteral("Paper source: %1").arg(binName(resolved, info)),
         QStringLiteral("code %1").arg(info.paperSource)},
        {QStringLiteral("Orientation: %1")
             .arg(resolved.orientation == QPageLayout::Landscape ? QStringLiteral("landscape")
                                                                 : QStringLiteral("portrait"))},
        {QStringLiteral("Margins: top %1, bottom %2, left %3, right %4")
             .arg(inches(m.top()), inches(m.bottom()), inches(m.left()), inches(m.right()))},
        {QStringLiteral("Gutter: %1; mirror margins %2")
             .arg(gutter, resolved.mirrorMargins ? QStringLiteral("on") : QStringLiteral("off"))},
        {QStringLiteral("Content area: %1 (page %2)")
             .arg(size(page.content.size()))
             .arg(page.number)},
        {printWidthLine(page, resolved, info)},
    };
    for (const QString &change : resolved.adjustments)
        lines.append({QStringLiteral("Changed for the printer: %1").arg(change)});
    return lines;
}

// The margins' widths written in the margins: across the top and bottom, upright along the
// sides, where a narrow margin still has room.
void drawMarginWidths(QPainter &painter, const QRectF &paper, const QRectF &content)
{
    painter.save();
    painter.setFont(fontOfTwips(160));
    painter.setPen(QColor(0, 90, 200));
    painter.drawText(QRectF(content.left(), 0, content.width(), content.top()), Qt::AlignCenter,
                     inches(content.top()));
    painter.drawText(QRectF(content.left(), content.bottom(), content.width(),
                            paper.height() - content.bottom()),
                     Qt::AlignCenter, inches(paper.height() - content.bottom()));
    const auto side = [&](double left, double width) {
        painter.save();
        painter.translate(left + width / 2, content.center().y());
        painter.rotate(-90);
        painter.drawText(QRectF(-content.height() / 2, -width / 2, content.height(), width),
                         Qt::AlignCenter, inches(width));
        painter.restore();
    };
    side(0, content.left());
    side(content.right(), paper.width() - content.right());
    painter.restore();
}

bool drawTestPage(QPainter &painter, const ReportPageToDraw &page,
                  const ResolvedReportPage &resolved, const TestPageInfo &info)
{
    const QRectF &content = page.content;
    const double hairline = 10; // half a point

    // The gutter lies beside the content, on the binding side.
    const bool facing = resolved.mirrorMargins && page.number % 2 == 0;
    const QRectF gutter = facing ? QRectF(content.right(), content.top(), resolved.gutter,
                                          content.height())
                                 : QRectF(content.left() - resolved.gutter, content.top(),
                                          resolved.gutter, content.height());
    painter.fillRect(gutter, QBrush(QColor(120, 120, 120), Qt::BDiagPattern));

    painter.setPen(QPen(Qt::black, 2 * hairline));
    painter.drawRect(page.paper.adjusted(hairline, hairline, -hairline, -hairline));
    painter.setPen(QPen(QColor(0, 90, 200), hairline, Qt::DashLine));
    painter.drawRect(content);
    drawMarginWidths(painter, page.paper, content);

    painter.setPen(Qt::black);
    painter.setFont(fontOfTwips(280, true));
    const QRectF text = content.adjusted(120, 120, -120, -120);
    painter.drawText(text, Qt::AlignTop | Qt::AlignLeft, QStringLiteral("Test page"));
    const QFont body = fontOfTwips(200);
    const QFont small = fontOfTwips(140);
    double y = text.top() + 480;
    for (const Line &line : describe(page, resolved, info)) {
        painter.setFont(body);
        painter.setPen(Qt::black);
        QRectF used;
        painter.drawText(QRectF(text.left(), y, text.width(), text.bottom() - y),
                         Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap, line.text, &used);
        if (!line.code.isEmpty()) {
            painter.setFont(small);
            painter.setPen(QColor(90, 90, 90));
            painter.drawText(
                QRectF(used.right() + 120, used.top(), text.right() - used.right(), used.height()),
                Qt::AlignVCenter | Qt::AlignLeft, line.code);
        }
        y = used.bottom() + 60;
    }
    return resolved.mirrorMargins && page.number < 2;
}

} // namespace

void SetUpTestPage(QObject *library, const QString &configuration, ReferenceReport &report)
{
    report.setDocumentName(QStringLiteral("Test page - %1").arg(configuration));
    late::call(late::object(library, "PrinterConfigurations"), "SetupPageFromPrinterConfiguration",
               {configuration, QVariant::fromValue<QObject *>(&report), false});
}

bool PrintTestPage(ReferenceReport &report, const QString &configuration, const QString &printer)
{
    const TestPageInfo info{configuration,
                            printer,
                            !report.outputFileName().isEmpty(),
                            report.pageSettings()->paperSize(),
                            report.pageSettings()->paperSource(),
                            report.pageSettings()->paperWidth(),
                            report.printWidth()};
    return report.print([&](QPainter &painter, const ReportPageToDraw &page) {
        return drawTestPage(painter, page, report.lastPage(), info);
    });
}
