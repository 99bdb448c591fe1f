#include "LabelSheet.h"

#include "library/Units.h"
#include "library/ValueRules.h"
#include "printing/PageSetup.h"

#include <QLocale>
#include <QPainter>
#include <cmath>

using namespace bravcpl5;

namespace {

double twips(const QString &inches, double fallback)
{
    const auto value = values::parseNumber(inches, QLocale::c());
    return value && *value > 0 ? *value * TwipsPerInch : fallback;
}

QFont fontOfTwips(double twips, bool bold = false)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(qMax(1, int(twips))); // the painter works in twips
    font.setBold(bold);
    return font;
}

} // namespace

LabelGeometry ReadLabelGeometry(const QString &configurationFile)
{
    PageSetupChoices directions;
    for (const PrintDirectionChoice &choice : PrintDirections())
        directions.printDirections.append(int(choice.code));
    PageSetup fields;
    ReadPageSetup(configurationFile, directions, PaperDefaults(), fields);
    LabelGeometry geometry;
    const auto columns = values::parseNumber(fields.columnsPerSheet, QLocale::c());
    geometry.columns = columns ? qBound(1, int(std::lround(*columns)), 16) : 1;
    geometry.labelWidth = twips(fields.labelWidth, 4 * TwipsPerInch);
    geometry.labelHeight = twips(fields.labelHeight, TwipsPerInch);
    geometry.horizontalGap = twips(fields.horizontalGap, 0);
    geometry.verticalGap = twips(fields.verticalGap, 0);
    geometry.left = twips(fields.leftMargin, 0);
    geometry.top = twips(fields.topMargin, 0);
    geometry.right = twips(fields.rightMargin, 0);
    geometry.bottom = twips(fields.bottomMargin, 0);
    if (fields.printDirection == int(PrintDirection::DownThenAcross))
        geometry.direction = PrintDirection::DownThenAcross;
    return geometry;
}

QList<QRectF> LabelPlaces(const LabelGeometry &g, const QSizeF &paper)
{
    QList<QRectF> places;
    const QSizeF area(paper.width() - g.left - g.right, paper.height() - g.top - g.bottom);
    const double stepX = g.labelWidth + g.horizontalGap, stepY = g.labelHeight + g.verticalGap;
    if (g.labelWidth <= 0 || g.labelHeight <= 0)
        return places;
    // A label that reaches past the content area by less than a point still fits: the
    // lengths come from inches with three decimals, and print systems give paper sizes in
    // whole points (A4 is 595 pt wide, a label product's A4 595.3), which would otherwise
    // cost an A4 sheet filled to its right margin its last column.
    const double slack = TwipsPerPoint;
    int columns = 0;
    while (columns < g.columns && columns * stepX + g.labelWidth <= area.width() + slack)
        ++columns;
    int rows = 0;
    while (rows * stepY + g.labelHeight <= area.height() + slack)
        ++rows;
    const bool across = g.direction == PrintDirection::AcrossThenDown;
    for (int i = 0; i < rows * columns; ++i) {
        const int row = across ? i / columns : i % rows;
        const int column = across ? i % columns : i / rows;
        places.append(
            QRectF(g.left + column * stepX, g.top + row * stepY, g.labelWidth, g.labelHeight));
    }
    return places;
}

int DrawLabels(QPainter &painter, const QList<QRectF> &places, const QList<Record> &records,
               int first, bool outlines)
{
    int drawn = 0;
    for (const QRectF &place : places) {
        if (first + drawn >= records.size())
            break;
        const Record &r = records[first + drawn];
        if (outlines) {
            painter.setPen(QPen(Qt::gray, 0));
            painter.drawRoundedRect(place, TwipsPerInch / 16, TwipsPerInch / 16);
        }
        const QRectF inside = place.adjusted(TwipsPerInch / 10, TwipsPerInch / 14,
                                             -TwipsPerInch / 10, -TwipsPerInch / 14);
        const double line = inside.height() / 4;
        // Texts longer than the label end in "…" rather than running into the next one.
        const auto fitted = [&](const QString &text) {
            return painter.fontMetrics().elidedText(text, Qt::ElideRight, int(inside.width()));
        };
        painter.setPen(Qt::black);
        painter.setFont(fontOfTwips(line * 0.8, true));
        painter.drawText(QRectF(inside.left(), inside.top(), inside.width(), line),
                         Qt::AlignLeft | Qt::AlignVCenter,
                         fitted(r.value(QStringLiteral("Product")).toString()));
        painter.setFont(fontOfTwips(line * 0.65));
        painter.drawText(QRectF(inside.left(), inside.top() + line, inside.width(), line),
                         Qt::AlignLeft | Qt::AlignVCenter,
                         fitted(QStringLiteral("%1 - %2").arg(
                             r.value(QStringLiteral("ProductType")).toString(),
                             r.value(QStringLiteral("Manufacturer")).toString())));
        painter.drawText(QRectF(inside.left(), inside.top() + 2 * line, inside.width(), line),
                         Qt::AlignLeft | Qt::AlignVCenter,
                         QStringLiteral("%1 x %2 in. max.")
                             .arg(r.value(QStringLiteral("MaxWidth")).toInt())
                             .arg(r.value(QStringLiteral("MaxHeight")).toInt()));
        painter.setFont(fontOfTwips(line * 0.8, true));
        painter.drawText(
            QRectF(inside.left(), inside.top() + 3 * line, inside.width(), line),
            Qt::AlignRight | Qt::AlignVCenter,
            QLocale().toCurrencyString(r.value(QStringLiteral("ListPrice")).toDouble()));
        ++drawn;
    }
    return drawn;
}
