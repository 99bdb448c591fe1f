#pragma once

// Lengths: settings files store inches; dialogs, previews and report objects work in
// twips, 1440 to the inch (20 to the point).

namespace bravcpl5 {

inline constexpr double TwipsPerInch = 1440.0;
inline constexpr double TwipsPerPoint = 20.0;

} // namespace bravcpl5
