#include "forms/Glyphs.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace bravcpl5 {

namespace {

QPixmap calendarSheet(int size, const QColor &ink, const QColor &accent)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal unit = size / 16.0;
    const QRectF sheet(1.5 * unit, 2.5 * unit, 13 * unit, 12 * unit);
    painter.setPen(QPen(ink, unit));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(sheet, unit, unit);
    painter.fillRect(QRectF(sheet.left(), sheet.top(), sheet.width(), 3 * unit), accent);
    // Rings at the top, and a 3 x 3 grid of days.
    painter.drawLine(QPointF(5 * unit, 1 * unit), QPointF(5 * unit, 4 * unit));
    painter.drawLine(QPointF(11 * unit, 1 * unit), QPointF(11 * unit, 4 * unit));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            painter.fillRect(QRectF((4 + column * 3) * unit, (7 + row * 2.5) * unit, 2 * unit,
                                    1.5 * unit),
                             ink);
    }
    return pixmap;
}

} // namespace

QIcon CalendarGlyph()
{
    const QPalette palette = QApplication::palette();
    QIcon icon;
    for (int size : {16, 20, 24, 32, 48, 64}) {
        icon.addPixmap(calendarSheet(size, palette.color(QPalette::Active, QPalette::ButtonText),
                                     palette.color(QPalette::Active, QPalette::Highlight)));
        icon.addPixmap(calendarSheet(size, palette.color(QPalette::Disabled, QPalette::ButtonText),
                                     palette.color(QPalette::Disabled, QPalette::ButtonText)),
                       QIcon::Disabled);
    }
    return icon;
}

} // namespace bravcpl5
