#include "forms/Glyphs.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
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
            painter.fillRect(
                QRectF((4 + column * 3) * unit, (7 + row * 2.5) * unit, 2 * unit, 1.5 * unit), ink);
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

QPixmap SheetGlyph(Qt::Orientation orientation, qreal devicePixelRatio)
{
    const QSizeF logical = orientation == Qt::Vertical ? QSizeF(24, 30) : QSizeF(30, 24);
    QPixmap pixmap((logical * devicePixelRatio).toSize());
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette palette = QApplication::palette();
    const QRectF sheet = QRectF(QPointF(0, 0), logical).adjusted(1.5, 1.5, -1.5, -1.5);
    const qreal fold = 5;
    // The sheet with its top right corner folded over.
    QPainterPath outline;
    outline.moveTo(sheet.topLeft());
    outline.lineTo(sheet.right() - fold, sheet.top());
    outline.lineTo(sheet.right(), sheet.top() + fold);
    outline.lineTo(sheet.bottomRight());
    outline.lineTo(sheet.bottomLeft());
    outline.closeSubpath();
    painter.setPen(QPen(palette.color(QPalette::WindowText), 1));
    painter.setBrush(palette.color(QPalette::Base));
    painter.drawPath(outline);
    painter.drawPolyline(QPolygonF({QPointF(sheet.right() - fold, sheet.top()),
                                    QPointF(sheet.right() - fold, sheet.top() + fold),
                                    QPointF(sheet.right(), sheet.top() + fold)}));
    // Lines of text, the last one short.
    painter.setPen(QPen(palette.color(QPalette::Mid), 1.5));
    const qreal left = sheet.left() + 4;
    const qreal right = sheet.right() - 4;
    for (qreal y = sheet.top() + fold + 4; y < sheet.bottom() - 3; y += 4)
        painter.drawLine(QPointF(left, y),
                         QPointF(y + 4 < sheet.bottom() - 3 ? right : (left + right) / 2, y));
    return pixmap;
}

} // namespace bravcpl5
