#pragma once

// A preview surface for tests that records what is drawn: every rectangle with the colours
// and fill style it was drawn in, and every text with where and in what colour.

#include "printing/PreviewSurface.h"

#include <QList>

namespace bravcpl5::test {

struct DrawnRectangle {
    QPointF from, to;
    QColor outline, fill;
    FillStyle style;
};

struct DrawnText {
    QPointF at;
    QColor color;
    QString text;
};

class RecordingPreviewSurface final : public PreviewSurface
{
public:
    RecordingPreviewSurface(float widthTwips, float heightTwips,
                            QColor background = QColor(240, 240, 240))
        : m_width(widthTwips), m_height(heightTwips), m_background(background)
    {}

    QColor backColor() const override { return m_background; }
    void setForeColor(const QColor &color) override { m_fore = color; }
    QColor foreColor() const override { return m_fore; }
    void setFillColor(const QColor &color) override { m_fill = color; }
    void setFillStyle(FillStyle style) override { m_style = style; }
    float scaleWidth() const override { return m_width; }
    float scaleHeight() const override { return m_height; }
    void drawRectangle(QPointF from, QPointF to) override
    {
        rectangles.append({from, to, m_fore, m_fill, m_style});
    }
    void moveTo(QPointF position) override { m_position = position; }
    void printText(const QString &text) override { texts.append({m_position, m_fore, text}); }

    QList<DrawnRectangle> rectangles;
    QList<DrawnText> texts;

private:
    float m_width, m_height;
    QColor m_background;
    QColor m_fore{Qt::black}, m_fill{Qt::black};
    FillStyle m_style = FillStyle::Transparent;
    QPointF m_position;
};

} // namespace bravcpl5::test
