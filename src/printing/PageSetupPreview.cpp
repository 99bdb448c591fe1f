#include "printing/PageSetupPreview.h"

#include "library/ValueRules.h"

namespace bravcpl5 {

namespace {

const QColor black(0, 0, 0);
const QColor white(255, 255, 255);
const QColor shadowGrey(150, 150, 150);
const QColor printableArea(0xF5, 0xF5, 0xF5);
const QColor labelFill(0xE0, 0xE0, 0xE0);
constexpr float shadowOffset = 30;
constexpr double scaleStep = 0.01;

// Raised when a computation leaves the single range (or is not a number): the drawing
// stops there and what was drawn stays.
struct OutOfRange {
};

float single(double value)
{
    const auto result = values::toSingle(value);
    if (!result)
        throw OutOfRange{};
    return *result;
}

// The sums are rounded to single precision before they are compared, so a page that
// just fits is judged as the stored singles say.
bool invalidSettings(const PageSetupPreviewInfo &i)
{
    const double columns = i.ColumnsPerSheet;
    const double across = double(i.RightMargin) + i.Gutter + i.LeftMargin;
    const double down = double(i.TopMargin) + i.BottomMargin;
    if (single(down) >= i.PaperHeight)
        return true;
    if (single(across) >= i.PaperWidth)
        return true;
    // Label rows are counted as the number of columns here; the check has always done so.
    if (single(down + i.LabelHeight * columns + (i.VerticalGap * columns - i.VerticalGap))
        >= i.PaperHeight)
        return true;
    return single(across + i.LabelWidth * columns + (columns * i.HorizontalGap - i.HorizontalGap))
           >= i.PaperWidth;
}

void drawInvalidSettings(PreviewSurface &surface)
{
    surface.moveTo({100, 100});
    surface.setForeColor(black);
    surface.printText(QStringLiteral("Invalid Settings"));
}

void drawBox(PreviewSurface &surface, QColor fill, FillStyle style, float x0, float y0, float x1,
             float y1)
{
    surface.setFillColor(fill);
    surface.setFillStyle(style);
    surface.drawRectangle({x0, y0}, {x1, y1});
}

void drawLabels(const PageSetupPreviewInfo &i, PreviewSurface &surface, float s, float left,
                float top, float bottom)
{
    const float lw = single(double(s) * i.LabelWidth);
    const float lh = single(double(s) * i.LabelHeight);
    const float columnStep = single(double(lw) + double(s) * i.HorizontalGap);
    const float rowStep = single(double(lh) + double(s) * i.VerticalGap);
    const auto columns = values::toInt16(i.ColumnsPerSheet);
    if (!columns)
        throw OutOfRange{};
    surface.setForeColor(black);
    float y = top;
    while (single(double(y) + lh) <= bottom) {
        float x = left;
        for (int column = 1; column <= *columns; ++column) {
            drawBox(surface, labelFill, FillStyle::Solid, x, y, single(double(x) + lw),
                    single(double(y) + lh));
            x = single(double(x) + columnStep);
        }
        const float next = single(double(y) + rowStep);
        if (next <= y)
            break; // a row that does not move down would repeat for ever
        y = next;
    }
}

void drawPage(const PageSetupPreviewInfo &i, PreviewSurface &surface)
{
    const float s = GetPreviewScale(i, surface);
    const float pw = single(double(s) * i.PaperWidth);
    const float ph = single(double(s) * i.PaperHeight);
    const float g = single(double(s) * i.Gutter);
    const float x0 = single((double(surface.scaleWidth()) - pw) / 2);
    const float y0 = single((double(surface.scaleHeight()) - ph) / 2);
    const float x1 = single(double(x0) + pw);
    const float y1 = single(double(y0) + ph);

    surface.setForeColor(shadowGrey);
    drawBox(surface, shadowGrey, FillStyle::Solid, x0 + shadowOffset, y0 + shadowOffset,
            x1 + shadowOffset, y1 + shadowOffset);
    surface.setForeColor(black);
    drawBox(surface, white, FillStyle::Solid, x0, y0, x1, y1);
    // The gutter is always on the left edge; with none it is a line along that edge.
    drawBox(surface, black, FillStyle::DiagonalCross, x0, y0, single(double(x0) + g), y1);

    const float left = single(double(x0) + g + double(s) * i.LeftMargin);
    const float top = single(double(y0) + double(s) * i.TopMargin);
    const float right = single(double(x1) - double(s) * i.RightMargin);
    const float bottom = single(double(y1) - double(s) * i.BottomMargin);
    if (i.ShowLabels) {
        drawLabels(i, surface, s, left, top, bottom); // on the white sheet
    } else {
        surface.setForeColor(black);
        drawBox(surface, printableArea, FillStyle::Solid, left, top, right, bottom);
    }
}

} // namespace

float GetPreviewScale(const PageSetupPreviewInfo &info, const PreviewSurface &surface)
{
    // Down to a scale of -1 at most, so that no surface can keep the loop going.
    constexpr int maxSteps = 200;
    const float width = surface.scaleWidth();
    const float height = surface.scaleHeight();
    float scale = 1.0f;
    float w = info.PaperWidth;
    float h = info.PaperHeight;
    for (int step = 0; step < maxSteps && (w > width || h > height); ++step) {
        scale = float(scale - scaleStep);
        w = float(double(scale) * info.PaperWidth);
        h = float(double(scale) * info.PaperHeight);
    }
    return float(scale - scaleStep);
}

void DrawPageSetupPreview(const PageSetupPreviewInfo &info, PreviewSurface &surface)
{
    const QColor background = surface.backColor();
    surface.setForeColor(background);
    drawBox(surface, background, FillStyle::Solid, 0, 0, surface.scaleWidth(),
            surface.scaleHeight());
    try {
        if (invalidSettings(info))
            drawInvalidSettings(surface);
        else
            drawPage(info, surface);
    } catch (const OutOfRange &) {
        // What was drawn stays.
    }
}

} // namespace bravcpl5
