#pragma once

// Small glyphs drawn in code, so that they stay sharp at any screen scale.

#include <QIcon>

namespace bravcpl5 {

// A tiny month sheet for the buttons that drop a calendar down.
QIcon CalendarGlyph();

// A sheet of paper with a few lines of text, upright or on its side, for the orientation
// options; drawn for the given device pixel ratio.
QPixmap SheetGlyph(Qt::Orientation orientation, qreal devicePixelRatio);

} // namespace bravcpl5
