#include "printing/PainterPreviewSurface.h"

#include "library/Units.h"

#include <QFontMetricsF>
#include <QPaintDevice>

namespace bravcpl5 {

namespace {}

PainterPreviewSurface::PainterPreviewSurface(QPaintDevice &device, const QColor &background)
    : m_device(device), m_painter(&device), m_background(background)
{}

float PainterPreviewSurface::scaleWidth() const
{
    return float(m_device.width() * TwipsPerInch / m_device.logicalDpiX());
}

float PainterPreviewSurface::scaleHeight() const
{
    return float(m_device.height() * TwipsPerInch / m_device.logicalDpiY());
}

QPointF PainterPreviewSurface::toPixels(QPointF twips) const
{
    return {twips.x() * m_device.logicalDpiX() / TwipsPerInch,
            twips.y() * m_device.logicalDpiY() / TwipsPerInch};
}

void PainterPreviewSurface::drawRectangle(QPointF from, QPointF to)
{
    QBrush brush;
    if (m_fillStyle == FillStyle::Solid)
        brush = QBrush(m_fill, Qt::SolidPattern);
    else if (m_fillStyle == FillStyle::DiagonalCross)
        brush = QBrush(m_fill, Qt::DiagCrossPattern);
    m_painter.setPen(QPen(m_fore, 0)); // the surface's own one-pixel line
    m_painter.setBrush(brush);
    m_painter.drawRect(QRectF(toPixels(from), toPixels(to)).normalized());
}

void PainterPreviewSurface::printText(const QString &text)
{
    m_painter.setPen(m_fore);
    const QPointF at = toPixels(m_position);
    m_painter.drawText(QPointF(at.x(), at.y() + QFontMetricsF(m_painter.font()).ascent()), text);
}

} // namespace bravcpl5
