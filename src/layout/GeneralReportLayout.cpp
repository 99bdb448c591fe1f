#include "layout/GeneralReportLayout.h"

#include "library/ValueRules.h"

#include <span>

namespace bravcpl5 {

namespace {

enum Attribute : unsigned { Show = 1, Label = 2, Format = 4, Alignment = 8 };

struct ItemRule {
    const char *element;
    LayoutItem GeneralReportLayout::*item;
    unsigned attributes; // written in the order show, label, format, alignment
};

struct SectionRule {
    const char *element;
    bool GeneralReportLayout::*allPages;
    std::span<const ItemRule> items;
};

using L = GeneralReportLayout;

// The file's sections and items, in the order the writer emits them.
const ItemRule headerItems[] = {
    {"Company", &L::company, Show | Label | Alignment},
    {"Title", &L::title, Show | Alignment},
    {"Description", &L::description, Show | Alignment},
    {"SubTitle", &L::subTitle, Show | Alignment},
    {"PrintDate", &L::printDate, Show | Format | Alignment},
    {"PrintTime", &L::printTime, Show | Format},
};
const ItemRule footerItems[] = {
    {"ExtraLine", &L::extraLine, Show | Label | Alignment},
    {"PageNumber", &L::pageNumber, Show | Format | Alignment},
};
const SectionRule headerRule{"Header", &L::headerOnAllPages, headerItems};
const SectionRule footerRule{"Footer", &L::footerOnAllPages, footerItems};

QString latin1(const char *text) { return QString::fromLatin1(text); }
QString flagText(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }

// The value read is kept only when it is a number; otherwise `value` stays as it was.
void readFlag(pugi::xml_node node, const char *name, bool defaultValue, bool &value)
{
    if (const auto number = values::textToInt16(
            GetXmlAttribute(node, latin1(name), flagText(defaultValue))))
        value = *number != 0;
}

void readCode(pugi::xml_node node, const char *name, std::int16_t defaultValue, std::int16_t &value)
{
    const QString text = GetXmlAttribute(node, latin1(name), values::integerToText(defaultValue));
    if (const auto number = values::textToInt16(text))
        value = *number;
}

void readSection(const pugi::xml_document &document, const SectionRule &rule, L &layout)
{
    const L defaults;
    const pugi::xml_node section =
        SelectSingleNode(document, QStringLiteral("//Definition/") + latin1(rule.element)).node();
    if (!section)
        return;
    readFlag(section, "allpages", defaults.*rule.allPages, layout.*rule.allPages);
    for (const ItemRule &itemRule : rule.items) {
        const pugi::xml_node node = GetChildNode(latin1(itemRule.element), section, false);
        const LayoutItem &fallback = defaults.*itemRule.item;
        LayoutItem &item = layout.*itemRule.item;
        if (itemRule.attributes & Show)
            readFlag(node, "show", fallback.show, item.show);
        if (itemRule.attributes & Label)
            item.label = GetXmlAttribute(node, QStringLiteral("label"), fallback.label);
        if (itemRule.attributes & Format)
            item.format = GetXmlAttribute(node, QStringLiteral("format"), fallback.format);
        if (itemRule.attributes & Alignment)
            readCode(node, "alignment", fallback.alignment, item.alignment);
    }
}

void writeSection(pugi::xml_node root, const SectionRule &rule, const L &layout)
{
    const pugi::xml_node section = GetChildNode(latin1(rule.element), root, true);
    SetXmlAttribute(section, QStringLiteral("allpages"), flagText(layout.*rule.allPages));
    for (const ItemRule &itemRule : rule.items) {
        const pugi::xml_node node = GetChildNode(latin1(itemRule.element), section, true);
        const LayoutItem &item = layout.*itemRule.item;
        if (itemRule.attributes & Show)
            SetXmlAttribute(node, QStringLiteral("show"), flagText(item.show));
        if (itemRule.attributes & Label)
            SetXmlAttribute(node, QStringLiteral("label"), item.label);
        if (itemRule.attributes & Format)
            SetXmlAttribute(node, QStringLiteral("format"), item.format);
        if (itemRule.attributes & Alignment)
            SetXmlAttribute(node, QStringLiteral("alignment"),
                            values::integerToText(item.alignment));
    }
}

} // namespace

void GeneralReportLayout::read(const pugi::xml_document &document)
{
    readSection(document, headerRule, *this);
    readSection(document, footerRule, *this);
    const pugi::xml_node report =
        SelectSingleNode(document, QStringLiteral("//Definition/Report")).node();
    if (!report)
        return;
    const pugi::xml_node configuration = GetChildNode(QStringLiteral("PrinterConfiguration"),
                                                      report, false);
    readFlag(configuration, "enabled", L().useOwnPrinterConfiguration, useOwnPrinterConfiguration);
    printerConfiguration = GetXmlAttribute(configuration, QStringLiteral("configuration"),
                                           QString());
}

GeneralReportLayout GeneralReportLayout::fromDocument(const pugi::xml_document &document)
{
    GeneralReportLayout layout;
    layout.read(document);
    return layout;
}

XmlDocumentPtr GeneralReportLayout::toDocument() const
{
    XmlDocumentPtr document = CreateXmlDocument(QStringLiteral("Definition"));
    if (!document)
        return nullptr;
    const pugi::xml_node root = document->document_element();
    const pugi::xml_node report = GetChildNode(QStringLiteral("Report"), root, true);
    const pugi::xml_node configuration = GetChildNode(QStringLiteral("PrinterConfiguration"),
                                                      report, true);
    SetXmlAttribute(configuration, QStringLiteral("enabled"), flagText(useOwnPrinterConfiguration));
    SetXmlAttribute(configuration, QStringLiteral("configuration"), printerConfiguration);
    writeSection(root, headerRule, *this);
    writeSection(root, footerRule, *this);
    return document;
}

bool GeneralReportLayout::save(const QString &path, QString *why) const
{
    if (path.isEmpty())
        return false;
    const XmlDocumentPtr document = toDocument();
    return document && SaveXmlDocument(*document, path, why);
}

QStringList PageNumberFormats()
{
    return {QStringLiteral("Page nnnn"), QStringLiteral("Page nnn of mmm"),
            QStringLiteral("Page # nnn"), QStringLiteral("Page: nnn"),
            QStringLiteral("Page: nnn/mmm")};
}

} // namespace bravcpl5
