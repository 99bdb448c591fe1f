#pragma once

// Colours as the settings files and report controls hold them: a Windows colour value,
// red in the low byte, then green, then blue (8388608 is dark blue, 0 black).

#include <QColor>
#include <cstdint>

namespace bravcpl5 {

inline QColor ColorFromWindows(std::int32_t value)
{
    return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

inline std::int32_t WindowsColor(const QColor &color)
{
    return std::int32_t(color.red() | color.green() << 8 | color.blue() << 16);
}

} // namespace bravcpl5
