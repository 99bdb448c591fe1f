#pragma once

// The kinds of text on reports (font types 1 to 38), their names and samples for the fonts
// dialog, and the default font of each per report family. One numbering serves both
// families; each family knows a subset.

#include <QDateTime>
#include <QList>
#include <QString>
#include <cstdint>

namespace bravcpl5 {

// Report type codes.
inline constexpr std::int16_t generalReports = 1;
inline constexpr std::int16_t processReports = 3;

inline constexpr std::int32_t colorBlack = 0;
inline constexpr std::int32_t colorDarkBlue = 8388608;

// One "Font" element's settings.
struct FontDefinition {
    std::int16_t type = 0;
    QString name = QStringLiteral("Arial");
    float size = 10;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeout = false;
    std::int32_t color = colorBlack;

    bool operator==(const FontDefinition &) const = default;
};

// The name the fonts dialog shows for a type of that report family; "" for a type the
// family does not know (and for any other report type).
QString FontTypeDisplayName(std::int16_t reportType, std::int16_t fontType);
// The text the fonts dialog shows in the font itself: a few types have their own, the
// print date and time show `now` ("Short Date", "Short Time"), every other type "Example".
QString FontTypeSample(std::int16_t fontType, const QDateTime &now = QDateTime::currentDateTime());

// The family's default fonts, in list order (what the fonts dialog resets to); empty for
// any other report type.
const QList<FontDefinition> &DefaultFonts(std::int16_t reportType);
// Types 35 to 38, which the process fonts dialog adds to a list saved before they existed.
// Their colours are black, unlike the defaults.
const QList<FontDefinition> &ProcessTopUpFonts();

} // namespace bravcpl5
