#include "ColumnText.h"

#include "library/Units.h"

#include <QImage>

QFontMetricsF PrintedMetrics(const QFont &font)
{
    static const QImage page = [] {
        QImage image(1, 1, QImage::Format_Mono);
        const int dotsPerMeter = qRound(bravcpl5::TwipsPerInch / 0.0254);
        image.setDotsPerMeterX(dotsPerMeter);
        image.setDotsPerMeterY(dotsPerMeter);
        return image;
    }();
    return QFontMetricsF(font, &page);
}

QStringList WrapWords(const QString &text, const QFontMetricsF &metrics, double width, int maxLines)
{
    QStringList lines;
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (lines.isEmpty()
            || (lines.size() < maxLines
                && metrics.horizontalAdvance(lines.last() + u' ' + word) > width))
            lines.append(word);
        else
            lines.last() += u' ' + word;
    }
    QStringList fitted;
    for (const QString &line : std::as_const(lines)) {
        const QString elided = metrics.elidedText(line, Qt::ElideRight, width);
        if (!elided.isEmpty())
            fitted.append(elided);
    }
    return fitted;
}
