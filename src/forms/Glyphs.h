#pragma once

// Small glyphs drawn in code, so that they stay sharp at any screen scale.

#include <QIcon>

namespace bravcpl5 {

// A tiny month sheet for the buttons that drop a calendar down.
QIcon CalendarGlyph();

} // namespace bravcpl5
