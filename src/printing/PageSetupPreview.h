#pragma once

// The small picture of a page that the page setup dialog shows: the sheet with a drop
// shadow, the gutter, and the printable area inside the margins (or the grid of labels),
// scaled to fit the surface; "Invalid Settings" when the values cannot form a page.

#include "printing/PreviewSurface.h"

namespace bravcpl5 {

// Lengths in twips; the paper already swapped for landscape.
struct PageSetupPreviewInfo {
    float PaperWidth = 0;
    float PaperHeight = 0;
    float LeftMargin = 0;
    float TopMargin = 0;
    float RightMargin = 0;
    float BottomMargin = 0;
    float Gutter = 0;
    float ColumnsPerSheet = 0; // a plain count
    float LabelWidth = 0;
    float LabelHeight = 0;
    float HorizontalGap = 0;
    float VerticalGap = 0;
    bool ShowLabels = false; // the label grid instead of the printable area

    bool operator==(const PageSetupPreviewInfo &) const = default;
};

void DrawPageSetupPreview(const PageSetupPreviewInfo &info, PreviewSurface &surface);

// One step (0.01) below the largest scale, from 1 down, at which the page fits the
// surface: a page that fits at full size is drawn at 0.99, leaving room for the shadow.
float GetPreviewScale(const PageSetupPreviewInfo &info, const PreviewSurface &surface);

} // namespace bravcpl5
