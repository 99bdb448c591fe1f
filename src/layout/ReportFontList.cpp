#include "layout/ReportFontList.h"

#include "library/ValueRules.h"
#include "library/Xml.h"

namespace bravcpl5 {

namespace {

QString sectionName(std::int16_t reportType)
{
    return QString::fromLatin1(reportType == processReports ? "ProcessReports" : "GeneralReports");
}

QString flag(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }

} // namespace

void ReportFontList::read(const pugi::xml_document &document)
{
    fonts.clear();
    if (reportType != generalReports && reportType != processReports)
        return;
    const pugi::xpath_node section = SelectSingleNode(document, QStringLiteral("//ReportFonts/")
                                                                    + sectionName(reportType));
    for (pugi::xml_node node : section.node().children("Font")) {
        auto number = [&](const char *name, const char *fallback, std::int16_t defaultValue) {
            return values::textToInt16(GetXmlAttribute(node, QString::fromLatin1(name),
                                                       QString::fromLatin1(fallback)))
                .value_or(defaultValue);
        };
        FontDefinition font;
        font.type = number("type", "0", 0);
        font.name = GetXmlAttribute(node, QStringLiteral("name"), QStringLiteral("Arial"));
        font.bold = number("bold", "0", 0) != 0;
        font.italic = number("italic", "0", 0) != 0;
        font.underline = number("underline", "0", 0) != 0;
        font.strikeout = number("strikeout", "0", 0) != 0;
        font.size = number("size", "12", 12);
        font.color = values::textToInt32(
                         GetXmlAttribute(node, QStringLiteral("color"), QStringLiteral("0")))
                         .value_or(0);
        fonts.append(font);
    }
}

ReportFontList ReportFontList::fromDocument(const pugi::xml_document &document,
                                            std::int16_t reportType)
{
    ReportFontList list;
    list.reportType = reportType;
    list.read(document);
    return list;
}

void ReportFontList::addMissingTypes()
{
    if (reportType != processReports)
        return;
    for (const FontDefinition &topUp : ProcessTopUpFonts()) {
        const bool present = std::any_of(
            fonts.cbegin(), fonts.cend(),
            [&](const FontDefinition &font) { return font.type == topUp.type; });
        if (!present)
            fonts.append(topUp);
    }
}

XmlDocumentPtr ReportFontList::toDocument() const
{
    XmlDocumentPtr document = CreateXmlDocument(QStringLiteral("ReportFonts"));
    if (!document)
        return document;
    const pugi::xml_node section = AppendChildElement(sectionName(reportType),
                                                      document->document_element());
    for (const FontDefinition &font : fonts) {
        const pugi::xml_node node = AppendChildElement(QStringLiteral("Font"), section);
        SetXmlAttribute(node, QStringLiteral("type"), values::integerToText(font.type));
        SetXmlAttribute(node, QStringLiteral("name"), font.name);
        SetXmlAttribute(node, QStringLiteral("bold"), flag(font.bold));
        SetXmlAttribute(node, QStringLiteral("italic"), flag(font.italic));
        SetXmlAttribute(node, QStringLiteral("underline"), flag(font.underline));
        SetXmlAttribute(node, QStringLiteral("strikeout"), flag(font.strikeout));
        SetXmlAttribute(node, QStringLiteral("size"), values::singleToText(font.size));
        SetXmlAttribute(node, QStringLiteral("color"), values::integerToText(font.color));
    }
    return document;
}

bool ReportFontList::save(const QString &path, QString *why) const
{
    const XmlDocumentPtr document = toDocument();
    return document && SaveXmlDocument(*document, path, why);
}

} // namespace bravcpl5
