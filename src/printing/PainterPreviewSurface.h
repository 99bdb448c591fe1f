#pragma once

// A preview surface over a paint device (a widget in its paint event, or an image), at
// the device's logical resolution: 1440 twips per logical inch.

#include "printing/PreviewSurface.h"

#include <QPainter>

namespace bravcpl5 {

class PainterPreviewSurface final : public PreviewSurface
{
public:
    PainterPreviewSurface(QPaintDevice &device, const QColor &background);

    QColor backColor() const override { return m_background; }
    void setForeColor(const QColor &color) override { m_fore = color; }
    QColor foreColor() const override { return m_fore; }
    void setFillColor(const QColor &color) override { m_fill = color; }
    void setFillStyle(FillStyle style) override { m_fillStyle = style; }
    float scaleWidth() const override;
    float scaleHeight() const override;
    void drawRectangle(QPointF from, QPointF to) override;
    void moveTo(QPointF position) override { m_position = position; }
    void printText(const QString &text) override;

private:
    QPointF toPixels(QPointF twips) const;

    QPaintDevice &m_device;
    QPainter m_painter;
    QColor m_background;
    QColor m_fore{Qt::black};
    QColor m_fill{Qt::black};
    FillStyle m_fillStyle = FillStyle::Transparent;
    QPointF m_position;
};

} // namespace bravcpl5
