#pragma once

// What the library asks of a report object when it prepares one for printing
// (PrinterConfigurations::SetupPageFromPrinterConfiguration). As with the host, nothing is
// linked: every member is reached by name (library/LateBinding.h), so a report is any
// QObject answering these names with Q_PROPERTY reads and writes.
//
//   Report
//     Printer        QObject*   the report's printer
//     PageSettings   QObject*   the report's page settings
//     PrintWidth     float      width of the printed area, twips (written)
//
//   Printer
//     DeviceName     QString    the printer's name; "" for the default printer
//
//   PageSettings, written in this order (lengths in twips)
//     PaperSize      int        Windows paper code; 256 and up for a custom size
//     PaperWidth     float
//     PaperHeight    float
//     PaperSource    int        Windows paper bin code
//     TopMargin      float
//     BottomMargin   float
//     LeftMargin     float
//     RightMargin    float
//     Gutter         float
//     MirrorMargins  bool
//     Orientation    int        1 portrait, 2 landscape
//   and PaperWidth, LeftMargin and RightMargin are read back to work out PrintWidth.
//
// A report may refuse a value (a failed property write): that member keeps its value and
// the next one is still set.

namespace bravcpl5::report {

inline constexpr auto printer = "Printer";
inline constexpr auto pageSettings = "PageSettings";
inline constexpr auto printWidth = "PrintWidth";
inline constexpr auto deviceName = "DeviceName";

inline constexpr auto paperSize = "PaperSize";
inline constexpr auto paperWidth = "PaperWidth";
inline constexpr auto paperHeight = "PaperHeight";
inline constexpr auto paperSource = "PaperSource";
inline constexpr auto topMargin = "TopMargin";
inline constexpr auto bottomMargin = "BottomMargin";
inline constexpr auto leftMargin = "LeftMargin";
inline constexpr auto rightMargin = "RightMargin";
inline constexpr auto gutter = "Gutter";
inline constexpr auto mirrorMargins = "MirrorMargins";
inline constexpr auto orientation = "Orientation";

inline constexpr int portrait = 1;
inline constexpr int landscape = 2;

} // namespace bravcpl5::report
