#include "layout/ReportFontsIndex.h"

#include "layout/FontTypes.h"
#include "library/LateBinding.h"
#include "library/ValueRules.h"
#include "library/Xml.h"

namespace bravcpl5 {

namespace {

const char *fontsPath(std::int16_t reportType)
{
    if (reportType == generalReports)
        return "//ReportFonts/GeneralReports/Font";
    if (reportType == processReports)
        return "//ReportFonts/ProcessReports/Font";
    return nullptr;
}

// The type whose decimal text this is exactly, as "[@type = 'n']" compares.
std::optional<std::int16_t> typeAsText(const QString &text)
{
    bool ok = false;
    const short type = text.toShort(&ok);
    if (!ok || QString::number(type) != text)
        return std::nullopt;
    return type;
}

// Style switches are whole numbers, 0 = off; an empty text reads as 0.
std::optional<bool> flag(const QString &text)
{
    const auto number = values::toInt16(values::leadingNumber(text));
    return number ? std::optional<bool>(*number != 0) : std::nullopt;
}

float heightOf(pugi::xml_node font)
{
    const auto size = values::textToSingle(
        GetXmlAttribute(font, QStringLiteral("size"), QStringLiteral("10")));
    return size ? *size * 22.0f + 22.0f : ReportFontsIndex::defaultHeight;
}

ControlFont controlFontOf(pugi::xml_node font)
{
    auto attribute = [&](const char *name, const char *defaultValue) {
        return GetXmlAttribute(font, QString::fromLatin1(name), QString::fromLatin1(defaultValue));
    };
    ControlFont control;
    control.name = attribute("name", "Arial");
    control.bold = flag(attribute("bold", "0"));
    control.italic = flag(attribute("italic", "0"));
    control.size = values::textToInt16(attribute("size", "12"));
    control.underline = flag(attribute("underline", "0"));
    control.strikethrough = flag(attribute("strikeout", "0"));
    control.color = values::textToInt32(attribute("color", "0"));
    return control;
}

} // namespace

ReportFontsIndex::ReportFontsIndex(const pugi::xml_document &document, std::int16_t reportType)
{
    const char *path = fontsPath(reportType);
    if (!path)
        return;
    // The only query that takes every match; Xml.h answers single nodes.
    pugi::xpath_node_set fonts;
    try {
        fonts = document.select_nodes(path);
    } catch (const std::exception &) {
        return;
    }
    fonts.sort();
    for (const pugi::xpath_node &selected : fonts) {
        const pugi::xml_node font = selected.node();
        const auto textType = typeAsText(GetXmlAttribute(font, QStringLiteral("type"), QString()));
        if (textType && !m_heights.contains(*textType))
            m_heights.insert(*textType, heightOf(font));
        const auto numberType = values::textToInt16(
            GetXmlAttribute(font, QStringLiteral("type"), QStringLiteral("0")));
        if (numberType && !m_fonts.contains(*numberType))
            m_fonts.insert(*numberType, controlFontOf(font));
    }
}

const ControlFont *ReportFontsIndex::font(std::int16_t fieldType) const
{
    const auto found = m_fonts.constFind(fieldType);
    return found == m_fonts.constEnd() ? nullptr : &found.value();
}

void ApplyControlFont(QObject *control, const ControlFont &font)
{
    QObject *controlFont = late::object(control, "Font");
    late::set(controlFont, "Name", font.name);
    if (font.bold)
        late::set(controlFont, "Bold", *font.bold);
    if (font.italic)
        late::set(controlFont, "Italic", *font.italic);
    if (font.size)
        late::set(controlFont, "Size", int(*font.size));
    if (font.underline)
        late::set(controlFont, "Underline", *font.underline);
    if (font.strikethrough)
        late::set(controlFont, "Strikethrough", *font.strikethrough);
    if (font.color)
        late::set(control, "ForeColor", *font.color);
}

} // namespace bravcpl5
