#pragma once

// The children of a printer configuration's "PageSetup" element, named once for both of
// its readers: the page setup dialog's fields (PageSetup) and a report's page settings
// (PageSetupToReport). Lengths are inches, codes plain integers.

namespace bravcpl5::pagesetup {

inline constexpr auto xpath = "//PageSetup";

inline constexpr auto topMargin = "TopMargin";
inline constexpr auto bottomMargin = "BottomMargin";
inline constexpr auto leftMargin = "LeftMargin";
inline constexpr auto rightMargin = "RightMargin";
inline constexpr auto gutter = "Gutter";
inline constexpr auto mirrorMargins = "MirrorMargins";
inline constexpr auto orientation = "Orientation"; // 0 portrait, else landscape
inline constexpr auto paperSize = "PaperSize";     // Windows paper code; 256 and up custom
inline constexpr auto paperWidth = "PaperWidth";
inline constexpr auto paperHeight = "PaperHeight";
inline constexpr auto paperSource = "PaperSource"; // Windows bin code
inline constexpr auto columnsPerSheet = "ColumnsPerSheet";
inline constexpr auto printDirection = "PrintDirection";
inline constexpr auto horizontalGap = "HorizontalGap";
inline constexpr auto verticalGap = "VerticalGap";
inline constexpr auto labelWidth = "LabelWidth";
inline constexpr auto labelHeight = "LabelHeight";

} // namespace bravcpl5::pagesetup
