#pragma once

// The furniture a general report prints around its body, as the layout document sets it:
// which lines the header and the footer hold, their texts in their formats, their font
// types and alignment. Reports and the layout dialog's preview both take their lines from
// here, so that what the dialog shows is what prints.

#include "layout/GeneralReportLayout.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <cstdint>

namespace bravcpl5 {

// The general report font types of the furniture.
namespace furnitureFont {
inline constexpr std::int16_t company = 1;
inline constexpr std::int16_t title = 2;
inline constexpr std::int16_t subTitle = 3;
inline constexpr std::int16_t printDate = 6;
inline constexpr std::int16_t printTime = 7;
inline constexpr std::int16_t extraLine = 8;
inline constexpr std::int16_t pageNumber = 9;
} // namespace furnitureFont

struct FurnitureLine {
    QString text;
    std::int16_t fontType = 0;
    std::int16_t alignment = 0; // as stored: 0 left, 1 right, 2 centre
    bool notBold = false;       // the description prints in the subtitle's font, never bold

    bool operator==(const FurnitureLine &) const = default;
};

// What the report itself names.
struct ReportTitles {
    QString title;
    QString subTitle;
    QString description;
};

// The header's lines in print order: company, title, subtitle, description, print date,
// print time (which has no alignment of its own and goes with the date). Hidden items are
// left out.
QList<FurnitureLine> HeaderFurniture(const GeneralReportLayout &layout, const ReportTitles &titles,
                                     const QDateTime &printed);

// The footer's lines for one page: the extra line, then the page number.
QList<FurnitureLine> FooterFurniture(const GeneralReportLayout &layout, int page, int pageCount);

} // namespace bravcpl5
