#pragma once

// A report fonts document read once into what the two font look-ups need, so that the
// host can ask for every control of every report without walking the document again.
// Both keep the first "Font" element of a type in document order, each by its own rule:
// the height matches "type" as text (the decimal form of the type, exactly as an XPath
// comparison would), applying matches it as a number (so "010" is type 10 there only).

#include <QHash>
#include <QObject>
#include <QString>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>

namespace bravcpl5 {

// What one "Font" element gives a control. A setting whose attribute does not convert is
// left out, and the control keeps its own.
struct ControlFont {
    QString name;
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<std::int16_t> size;
    std::optional<bool> underline;
    std::optional<bool> strikethrough;
    std::optional<std::int32_t> color;
};

class ReportFontsIndex
{
public:
    // The height of a one-line control when no font says otherwise: 10 points.
    static constexpr float defaultHeight = 10.0f * 22.0f + 22.0f;

    ReportFontsIndex() = default;
    // Indexes the "Font" elements of "//ReportFonts/GeneralReports" (reportType 1) or
    // "//ReportFonts/ProcessReports" (3); any other report type indexes nothing.
    ReportFontsIndex(const pugi::xml_document &document, std::int16_t reportType);

    // Twips: size x 22 + 22 from the font's "size" (10 when missing); defaultHeight when
    // no font has that type or its size is not a number.
    float height(std::int16_t fieldType) const { return m_heights.value(fieldType, defaultHeight); }
    // Null when no font has that type.
    const ControlFont *font(std::int16_t fieldType) const;

private:
    QHash<std::int16_t, float> m_heights;
    QHash<std::int16_t, ControlFont> m_fonts;
};

// Sets, in this order and each on its own, the control's Font.Name, Font.Bold,
// Font.Italic, Font.Size, Font.Underline, Font.Strikethrough and ForeColor (late-bound).
void ApplyControlFont(QObject *control, const ControlFont &font);

} // namespace bravcpl5
