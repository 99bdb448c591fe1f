#include "ColumnText.h"

#include "library/Units.h"

#include <QImage>
#include <numeric>

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

QList<double> FitWidths(const QList<double> &wanted, const QList<double> &least, double width)
{
    const auto sum = [](const QList<double> &widths) {
        return std::accumulate(widths.begin(), widths.end(), 0.0);
    };
    const auto scaled = [](QList<double> widths, double factor) {
        for (double &w : widths)
            w *= factor;
        return widths;
    };
    if (sum(wanted) <= width)
        return wanted;
    if (sum(least) >= width)
        return scaled(least, sum(least) > 0 ? width / sum(least) : 0);
    // Columns held at their least width leave the rest of the line to the others; each
    // round holds at least one more column, so this ends.
    QList<bool> held(wanted.size(), false);
    for (;;) {
        double heldWidth = 0, free = 0;
        for (qsizetype i = 0; i < wanted.size(); ++i) {
            if (held[i])
                heldWidth += least[i];
            else
                free += wanted[i];
        }
        const double factor = free > 0 ? (width - heldWidth) / free : 0;
        bool more = false;
        for (qsizetype i = 0; i < wanted.size(); ++i) {
            if (!held[i] && wanted[i] * factor < least[i]) {
                held[i] = true;
                more = true;
            }
        }
        if (!more) {
            QList<double> widths;
            for (qsizetype i = 0; i < wanted.size(); ++i)
                widths.append(held[i] ? least[i] : wanted[i] * factor);
            return widths;
        }
    }
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
