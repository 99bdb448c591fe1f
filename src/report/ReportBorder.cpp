#include "report/ReportBorder.h"

#include "layout/WindowsColor.h"

#include <QPainter>
#include <QPen>

namespace bravcpl5 {

namespace {

constexpr int firstThickStyle = 7;
constexpr int doubleStyle = 6;

Qt::PenStyle penStyle(int plainStyle)
{
    switch (plainStyle) {
    case 2:
        return Qt::DashLine;
    case 3:
        return Qt::DotLine;
    case 4:
        return Qt::DashDotLine;
    case 5:
        return Qt::DashDotDotLine;
    default:
        return Qt::SolidLine;
    }
}

// One side: `edge` runs along the rectangle's edge and `inward` points into it (unit).
void drawSide(QPainter &painter, const QLineF &edge, QPointF inward, int style, qint32 color,
              qreal thinWidth)
{
    if (style <= 0 || style > firstThickStyle + doubleStyle - 1)
        return;
    const bool thick = style >= firstThickStyle;
    const int plain = thick ? style - firstThickStyle + 1 : style;
    const qreal width = thick ? thinWidth * 2.5 : thinWidth;
    QPen pen(ColorFromWindows(color), width, penStyle(plain), Qt::FlatCap);
    painter.setPen(pen);
    painter.drawLine(edge.translated(inward * (width / 2)));
    if (plain == doubleStyle)
        painter.drawLine(edge.translated(inward * (width * 2.5)));
}

} // namespace

void ReportBorder::draw(QPainter &painter, const QRectF &rect, qreal thinWidth) const
{
    painter.save();
    drawSide(painter, {rect.topLeft(), rect.bottomLeft()}, {1, 0}, m_leftStyle, m_leftColor,
             thinWidth);
    drawSide(painter, {rect.topLeft(), rect.topRight()}, {0, 1}, m_topStyle, m_topColor, thinWidth);
    drawSide(painter, {rect.topRight(), rect.bottomRight()}, {-1, 0}, m_rightStyle, m_rightColor,
             thinWidth);
    drawSide(painter, {rect.bottomLeft(), rect.bottomRight()}, {0, -1}, m_bottomStyle,
             m_bottomColor, thinWidth);
    painter.restore();
}

} // namespace bravcpl5
