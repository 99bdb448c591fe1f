#pragma once

// The elements of a printer configuration file ("*.pcx"), named once: its identification,
// which the store reads and writes, and the children of its "PageSetup" element, which the
// page setup (PageSetup) and a report's page settings (PageSetupToReport) read. Lengths are
// inches, codes plain integers. Nothing else names an element of these files.

namespace bravcpl5 {

namespace identification {
inline constexpr auto xpath = "//Identification";
inline constexpr auto name = "Name";
inline constexpr auto system = "System"; // > 0: shared by everyone; a user's copy stores 0
} // namespace identification

namespace pagesetup {
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
} // namespace pagesetup

} // namespace bravcpl5
