#pragma once

// What the page setup preview draws on: a picture measured in twips, with a line
// (foreground) colour, a fill colour and style for rectangles, and a drawing position for
// text. The dialog draws on widgets, tests on images or on a recording.

#include <QColor>
#include <QPointF>
#include <QString>

namespace bravcpl5 {

enum class FillStyle { Solid, Transparent, DiagonalCross };

class PreviewSurface
{
public:
    virtual ~PreviewSurface() = default;

    virtual QColor backColor() const = 0;
    virtual void setForeColor(const QColor &color) = 0;
    virtual QColor foreColor() const = 0;
    virtual void setFillColor(const QColor &color) = 0;
    virtual void setFillStyle(FillStyle style) = 0;
    // The drawable area, in twips.
    virtual float scaleWidth() const = 0;
    virtual float scaleHeight() const = 0;
    // A rectangle between two corners, outlined in the foreground colour and filled in the
    // fill colour and style.
    virtual void drawRectangle(QPointF from, QPointF to) = 0;
    virtual void moveTo(QPointF position) = 0;
    // Text in the foreground colour, its top left corner at the drawing position.
    virtual void printText(const QString &text) = 0;
};

} // namespace bravcpl5
