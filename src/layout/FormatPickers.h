#pragma once

// The codes behind the host's format pickers and the names of their images, in one place:
// the library applies the codes to report controls, and the picker image generator
// (tools/picker-images) draws the images from the same tables. Plain data, no Qt, so the
// generator can be built before the library.

#include <cstdint>

namespace bravcpl5::pickers {

// The report engine's line styles that the border presets use.
inline constexpr std::int16_t lineNone = 0;
inline constexpr std::int16_t lineThin = 1;
inline constexpr std::int16_t lineDouble = 6;
inline constexpr std::int16_t lineThick = 7;

// Text alignment codes of report controls (and of the layout document).
inline constexpr std::int16_t alignLeft = 0;
inline constexpr std::int16_t alignRight = 1;
inline constexpr std::int16_t alignCenter = 2;

struct AlignmentPicker {
    std::int16_t code;
    const char *imageName;
};

inline constexpr AlignmentPicker alignmentPickers[] = {
    {alignLeft, "ALIGNLEFT"},
    {alignCenter, "ALIGNCENTER"},
    {alignRight, "ALIGNRIGHT"},
};

// A border preset sets the sides whose style is not lineNone, in the order left, top,
// right, bottom, and leaves the others alone. imageName is null for the preset that has
// no picker image.
struct BorderPreset {
    std::int16_t code;
    const char *imageName;
    std::int16_t left, top, right, bottom;
};

inline constexpr BorderPreset borderPresets[] = {
    {0, "BORDERNONE", lineNone, lineNone, lineNone, lineNone},
    {1, "BORDERBOX", lineThin, lineThin, lineThin, lineThin},
    {2, "BORDERBOTTOM", lineNone, lineNone, lineNone, lineThin},
    {3, "BORDERDOUBLEBOTTOM", lineNone, lineNone, lineNone, lineDouble},
    {4, "BORDERTOPBOTTOM", lineNone, lineThin, lineNone, lineThin},
    {5, "BORDERTHICKBOX", lineThick, lineThick, lineThick, lineThick},
    {6, "BORDERTOPTHICKBOTTOM", lineNone, lineThin, lineNone, lineThick},
    {7, "BORDERTHICKBOTTOM", lineNone, lineNone, lineNone, lineThick},
    {8, "BORDERLEFT", lineThin, lineNone, lineNone, lineNone},
    {9, "BORDERRIGHT", lineNone, lineNone, lineThin, lineNone},
    {10, "BORDERLEFTRIGHT", lineThin, lineNone, lineThin, lineNone},
    {11, "BORDERTHICKLEFT", lineThick, lineNone, lineNone, lineNone},
    {12, "BORDERTHICKRIGHT", lineNone, lineNone, lineThick, lineNone},
    {13, "BORDERTHICKTOP", lineNone, lineThick, lineNone, lineNone},
    {14, nullptr, lineNone, lineThick, lineNone, lineThin},
};

// The picker palette; rgb is 0xRRGGBB.
struct SwatchColor {
    const char *suffix;
    std::uint32_t rgb;
};

inline constexpr SwatchColor swatchColors[] = {
    {"AUTOMATIC", 0x000000},   {"BLACK", 0x000000},     {"BLUE", 0x0000FF},
    {"BRIGHTGREEN", 0x00FF00}, {"DARKBLUE", 0x000080},  {"DARKRED", 0x800000},
    {"DARKYELLOW", 0x808000},  {"GRAY25", 0xC0C0C0},    {"GRAY50", 0x808080},
    {"GREEN", 0x008000},       {"PINK", 0xFF00FF},      {"RED", 0xFF0000},
    {"TEAL", 0x008080},        {"TURQUOISE", 0x00FFFF}, {"VIOLET", 0x800080},
    {"WHITE", 0xFFFFFF},       {"YELLOW", 0xFFFF00},
};

// The three colour image sets: a prefix before each suffix above. The border colour set
// shows a framed swatch, the other two a plain one; the text colour set has no
// "AUTOMATIC" entry.
struct SwatchSet {
    const char *prefix;
    bool framed;
    bool withAutomatic;
};

inline constexpr SwatchSet swatchSets[] = {
    {"COLOR", true, true},
    {"TEXTCOLOR", false, false},
    {"BACKCOLOR", false, true},
};

inline constexpr const char *automaticSuffix = "AUTOMATIC";

} // namespace bravcpl5::pickers
