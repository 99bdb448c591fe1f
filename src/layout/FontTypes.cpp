#include "layout/FontTypes.h"

#include "library/ValueRules.h"

#include <array>

namespace bravcpl5 {

namespace {

constexpr std::array<const char *, 38> displayNames = {
    "Company Name",
    "Title",
    "Subtitle",
    "Field Heading",
    "Data Field",
    "Print Date",
    "Print Time",
    "Extra Line",
    "Page Number",
    "Group Header Heading",
    "Group Header Data Field",
    "Group Footer Heading",
    "Group Footer Data Field",
    "Company Address",
    "Report Heading",
    "Identification Fields",
    "Address Heading",
    "Address",
    "Order Information Headings",
    "Order Information",
    "Line Item Headings",
    "Line Item Values",
    "Line Item Options",
    "Total Heading",
    "Totals",
    "Comments Heading",
    "Comments",
    "Notes Heading",
    "Signature Heading",
    "Signatures",
    "Other Headings",
    "Other Address Fields",
    "Company Tag Line 1",
    "Company Tag Line 2",
    "Line Item Totals",
    "Payments Heading",
    "Payments",
    "You Saved",
};

bool knownByFamily(std::int16_t reportType, std::int16_t fontType)
{
    if (reportType == generalReports)
        return fontType >= 1 && fontType <= 13;
    if (reportType == processReports)
        return fontType == 1 || (fontType >= 6 && fontType <= 9)
               || (fontType >= 14 && fontType <= 38);
    return false;
}

FontDefinition font(std::int16_t type, float size, bool bold, bool underline, std::int32_t color)
{
    FontDefinition definition;
    definition.type = type;
    definition.size = size;
    definition.bold = bold;
    definition.underline = underline;
    definition.color = color;
    return definition;
}

} // namespace

QString FontTypeDisplayName(std::int16_t reportType, std::int16_t fontType)
{
    if (!knownByFamily(reportType, fontType))
        return QString();
    return QString::fromLatin1(displayNames[std::size_t(fontType - 1)]);
}

QString FontTypeSample(std::int16_t fontType, const QDateTime &now)
{
    switch (fontType) {
    case 1:
        return QStringLiteral("Company Name");
    case 2:
        return QStringLiteral("Report Title");
    case 3:
        return QStringLiteral("Report Subtitle");
    case 6:
        return values::toShortDate(now.date());
    case 7:
        return now.time().toString(QStringLiteral("HH:mm"));
    case 8:
        return QStringLiteral("Report extra line.");
    case 9:
        return QStringLiteral("1 of 3");
    default:
        return QStringLiteral("Example");
    }
}

const QList<FontDefinition> &DefaultFonts(std::int16_t reportType)
{
    static const QList<FontDefinition> general = {
        font(1, 10, false, false, colorBlack),  font(2, 12, false, false, colorBlack),
        font(3, 10, true, false, colorBlack),   font(4, 10, true, true, colorBlack),
        font(5, 10, false, false, colorBlack),  font(6, 8, false, false, colorBlack),
        font(7, 8, false, false, colorBlack),   font(8, 10, false, false, colorBlack),
        font(9, 10, false, false, colorBlack),  font(10, 10, true, true, colorBlack),
        font(11, 10, false, false, colorBlack), font(12, 10, true, true, colorBlack),
        font(13, 10, false, false, colorBlack),
    };
    // No rows for the extra line and the page number, although the family names them.
    static const QList<FontDefinition> process = {
        font(6, 8, false, false, colorBlack),     font(7, 8, false, false, colorBlack),
        font(1, 14, true, false, colorBlack),     font(33, 9, false, false, colorBlack),
        font(34, 8, false, false, colorBlack),    font(14, 9, false, false, colorBlack),
        font(15, 14, true, false, colorDarkBlue), font(16, 10, true, false, colorBlack),
        font(17, 12, true, false, colorDarkBlue), font(18, 10, false, false, colorBlack),
        font(19, 10, true, false, colorBlack),    font(20, 10, false, false, colorBlack),
        font(21, 10, true, false, colorBlack),    font(22, 10, false, false, colorBlack),
        font(23, 10, true, false, colorBlack),    font(24, 10, true, false, colorBlack),
        font(25, 10, false, false, colorBlack),   font(26, 12, true, false, colorDarkBlue),
        font(27, 10, false, false, colorBlack),   font(28, 12, true, false, colorDarkBlue),
        font(29, 12, true, false, colorDarkBlue), font(30, 10, false, false, colorBlack),
        font(31, 10, true, false, colorBlack),    font(32, 10, false, false, colorBlack),
        font(35, 10, true, false, colorBlack),    font(36, 10, true, false, colorDarkBlue),
        font(37, 10, false, false, colorBlack),   font(38, 10, false, false, colorBlack),
    };
    static const QList<FontDefinition> none;
    if (reportType == generalReports)
        return general;
    if (reportType == processReports)
        return process;
    return none;
}

const QList<FontDefinition> &ProcessTopUpFonts()
{
    static const QList<FontDefinition> topUp = {
        font(35, 10, true, false, colorBlack),
        font(36, 10, true, false, colorBlack),
        font(37, 10, false, false, colorBlack),
        font(38, 10, false, false, colorBlack),
    };
    return topUp;
}

} // namespace bravcpl5
