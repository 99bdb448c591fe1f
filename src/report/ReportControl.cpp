#include "report/ReportControl.h"

#include "layout/FormatPickers.h"
#include "layout/WindowsColor.h"
#include "library/Units.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>

namespace bravcpl5 {

ReportControl::ReportControl(QObject *parent)
    : QObject(parent), m_font(new ReportFont(this)), m_border(new ReportBorder(this))
{}

void ReportControl::setTwipsRect(const QRectF &rect)
{
    m_left = rect.left();
    m_top = rect.top();
    m_width = rect.width();
    m_height = rect.height();
}

void ReportControl::draw(QPainter &painter, const QRectF &rect) const
{
    // A thin line is one pixel of a 96 dpi screen, whatever the device.
    const int dpi = painter.device() ? painter.device()->logicalDpiX() : 96;
    const qreal thin = qMax<qreal>(1.0, dpi / 96.0);

    painter.save();
    if (m_backStyle == 1)
        painter.fillRect(rect, ColorFromWindows(m_backColor));

    Qt::Alignment horizontal = Qt::AlignLeft;
    if (m_alignment == pickers::alignRight)
        horizontal = Qt::AlignRight;
    else if (m_alignment == pickers::alignCenter)
        horizontal = Qt::AlignHCenter;
    const qreal padding = qMax<qreal>(2.0, TextPaddingTwips * dpi / TwipsPerInch);
    const QRectF room = rect.adjusted(padding, 0, -padding, 0);
    const QFont font = m_font->toQFont();
    const QFontMetricsF metrics(font, painter.device());
    QStringList lines = displayText().split(u'\n');
    for (QString &line : lines)
        line = metrics.elidedText(line, Qt::ElideRight, room.width());
    painter.setClipRect(rect);
    painter.setFont(font);
    painter.setPen(ColorFromWindows(m_foreColor));
    painter.drawText(room, int(horizontal | Qt::AlignVCenter), lines.join(u'\n'));
    painter.setClipping(false);
    m_border->draw(painter, rect, thin);
    painter.restore();
}

} // namespace bravcpl5
