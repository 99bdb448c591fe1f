#include "TestPage.h"

#include <QPainter>

using namespace bravcpl5;

namespace {

QString inches(double twips)
{
    return QString::number(twips / TwipsPerInch, 'f', 3) + QStringLiteral("\"");
}

QFont fontOfTwips(int twips, bool bold = false)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(twips); // the painter works in twips
    font.setBold(bold);
    return font;
}

QStringList describe(const ReportPageToDraw &page, const ResolvedReportPage &resolved,
                     const TestPageInfo &info)
{
    const QSizeF paper = resolved.paperTwips();
    const QMarginsF &m = resolved.margins;
    QStringList lines = {
        QStringLiteral("Configuration: %1").arg(info.configuration),
        QStringLiteral("Printer: %1")
            .arg(info.printer.isEmpty() ? QStringLiteral("(PDF only)") : info.printer),
        QStringLiteral("Page %1").arg(page.number),
        QStringLiteral("Paper size %1: %2 x %3, %4")
            .arg(info.paperSize)
            .arg(inches(paper.width()), inches(paper.height()),
                 resolved.orientation == QPageLayout::Landscape ? QStringLiteral("landscape")
                                                                : QStringLiteral("portrait")),
        QStringLiteral("Paper source %1%2")
            .arg(info.paperSource)
            .arg(resolved.binName.isEmpty() ? QString()
                                            : QStringLiteral(" (%1)").arg(resolved.binName)),
        QStringLiteral("Margins: top %1, bottom %2, left %3, right %4")
            .arg(inches(m.top()), inches(m.bottom()), inches(m.left()), inches(m.right())),
        QStringLiteral("Gutter %1, mirror margins %2")
            .arg(inches(resolved.gutter),
                 resolved.mirrorMargins ? QStringLiteral("on") : QStringLiteral("off")),
        QStringLiteral("Print width %1").arg(inches(info.printWidth)),
        QStringLiteral("Content %1 x %2")
            .arg(inches(page.content.width()), inches(page.content.height())),
    };
    for (const QString &change : resolved.adjustments)
        lines.append(QStringLiteral("Changed for the printer: %1").arg(change));
    return lines;
}

} // namespace

bool DrawTestPage(QPainter &painter, const ReportPageToDraw &page,
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

    // Margin widths written in the margins, where there is room.
    painter.setFont(fontOfTwips(160));
    painter.setPen(QColor(0, 90, 200));
    const QRectF paper = page.paper;
    painter.drawText(QRectF(content.left(), 0, content.width(), content.top()), Qt::AlignCenter,
                     inches(content.top()));
    painter.drawText(QRectF(content.left(), content.bottom(), content.width(),
                            paper.height() - content.bottom()),
                     Qt::AlignCenter, inches(paper.height() - content.bottom()));
    painter.drawText(QRectF(0, content.top(), content.left(), content.height()), Qt::AlignCenter,
                     inches(content.left()));
    painter.drawText(
        QRectF(content.right(), content.top(), paper.width() - content.right(), content.height()),
        Qt::AlignCenter, inches(paper.width() - content.right()));

    painter.setPen(Qt::black);
    painter.setFont(fontOfTwips(280, true));
    const QRectF text = content.adjusted(120, 120, -120, -120);
    painter.drawText(text, Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap,
                     QStringLiteral("Test page"));
    painter.setFont(fontOfTwips(200));
    painter.drawText(text.adjusted(0, 480, 0, 0), Qt::AlignTop | Qt::AlignLeft | Qt::TextWordWrap,
                     describe(page, resolved, info).join(u'\n'));
    return resolved.mirrorMargins && page.number < 2;
}
