#include "printing/PageSetup.h"

#include "library/ValueRules.h"
#include "library/Xml.h"
#include "printing/PrinterConfigurations.h"
#include "printing/PrinterInfo.h"

#include <span>

namespace bravcpl5 {

namespace {

constexpr int firstCustomPaperSize = 256;

// A length field: its element, where the dialog holds it, and the text shown when the
// file has no value.
struct LengthField {
    const char *element;
    QString PageSetup::*field;
    const char *defaultText;
};

const LengthField marginFields[] = {
    {"TopMargin", &PageSetup::topMargin, "1"},   {"BottomMargin", &PageSetup::bottomMargin, "1"},
    {"LeftMargin", &PageSetup::leftMargin, "1"}, {"RightMargin", &PageSetup::rightMargin, "1"},
    {"Gutter", &PageSetup::gutter, "0"},
};

const LengthField labelFields[] = {
    {"HorizontalGap", &PageSetup::horizontalGap, ".125"},
    {"VerticalGap", &PageSetup::verticalGap, "0"},
    {"LabelWidth", &PageSetup::labelWidth, "3.5"},
    {"LabelHeight", &PageSetup::labelHeight, "1"},
};

QString name(const char *element) { return QString::fromLatin1(element); }

// The loaded file and its "PageSetup" element (empty when either is missing).
struct Document {
    QString path;
    XmlDocumentPtr xml;
    pugi::xml_node pageSetup;
};

Document load(PrinterConfigurations *store, const QString &configuration)
{
    Document document;
    if (!store)
        return document;
    document.path = store->GetPrinterConfigurationFileFromName(configuration);
    document.xml = LoadXmlFile(document.path);
    if (document.xml)
        document.pageSetup = SelectSingleNode(*document.xml, QStringLiteral("//PageSetup")).node();
    return document;
}

// The system default printer's current paper size or bin; none without a default printer.
std::optional<int> systemPrinterDefault(int (PrinterInfo::*current)(const QString &) const)
{
    const PrinterInfo &info = CurrentPrinterInfo();
    const QString printer = info.defaultPrinterName();
    if (printer.isEmpty())
        return std::nullopt;
    return (info.*current)(printer);
}

// Selects the stored code (or the default) in a list: that entry, else the first, else
// nothing. Without a usable default the step does nothing.
void readSelection(pugi::xml_node node, const char *element, std::optional<int> defaultCode,
                   const QList<int> &codes, std::optional<int> &selected)
{
    const auto fallback = defaultCode ? values::toInt16(*defaultCode) : std::nullopt;
    if (!fallback)
        return;
    const int code = GetXmlInteger(name(element), node, *fallback);
    if (codes.contains(code))
        selected = code;
    else if (!codes.isEmpty())
        selected = codes.first();
}

void readLengths(pugi::xml_node node, std::span<const LengthField> table, PageSetup &fields)
{
    for (const LengthField &f : table)
        fields.*f.field = GetXmlValue(name(f.element), node, name(f.defaultText));
}

void writeSingle(pugi::xml_node node, const char *element, const QString &text)
{
    if (const auto value = values::textToSingle(text))
        SetXmlSingle(name(element), *value, node);
}

void writeLengths(pugi::xml_node node, std::span<const LengthField> table, const PageSetup &fields)
{
    for (const LengthField &f : table)
        writeSingle(node, f.element, fields.*f.field);
}

void writeCode(pugi::xml_node node, const char *element, std::optional<int> code)
{
    if (const auto value = code ? values::toInt16(*code) : std::nullopt)
        SetXmlInteger(name(element), *value, node);
}

} // namespace

bool ReadPageSetup(PrinterConfigurations *store, const QString &configuration,
                   const PageSetupChoices &choices, PageSetup &fields)
{
    const Document document = load(store, configuration);
    const pugi::xml_node node = document.pageSetup;
    if (!node)
        return false;

    readSelection(node, "PaperSize", systemPrinterDefault(&PrinterInfo::currentPaperSize),
                  choices.paperSizes, fields.paperSize);
    if (fields.paperSize && *fields.paperSize >= firstCustomPaperSize) {
        fields.paperWidth = GetXmlValue(QStringLiteral("PaperWidth"), node, QString());
        fields.paperHeight = GetXmlValue(QStringLiteral("PaperHeight"), node, QString());
    }
    readSelection(node, "PaperSource", systemPrinterDefault(&PrinterInfo::currentPaperBin),
                  choices.paperSources, fields.paperSource);
    readLengths(node, marginFields, fields);
    // The check box takes 0 (clear) and 1 (ticked) only; it keeps its state otherwise.
    const int mirror = GetXmlInteger(QStringLiteral("MirrorMargins"), node, 0);
    if (mirror == 0 || mirror == 1)
        fields.mirrorMargins = mirror == 1;
    fields.landscape = GetXmlInteger(QStringLiteral("Orientation"), node, 0) != 0;
    fields.columnsPerSheet = GetXmlValue(QStringLiteral("ColumnsPerSheet"), node, QStringLiteral("1"));
    readSelection(node, "PrintDirection", 0, choices.printDirections, fields.printDirection);
    readLengths(node, labelFields, fields);
    return true;
}

bool WritePageSetup(PrinterConfigurations *store, const QString &configuration,
                    const PageSetup &fields)
{
    const Document document = load(store, configuration);
    const pugi::xml_node node = document.pageSetup;
    if (!node)
        return false;

    writeLengths(node, marginFields, fields);
    SetXmlSingle(QStringLiteral("MirrorMargins"), fields.mirrorMargins ? 1.0f : 0.0f, node);
    SetXmlInteger(QStringLiteral("Orientation"), fields.landscape ? 1 : 0, node);
    writeCode(node, "PaperSize", fields.paperSize);
    writeSingle(node, "PaperWidth", fields.paperWidth);
    writeSingle(node, "PaperHeight", fields.paperHeight);
    writeCode(node, "PaperSource", fields.paperSource);
    if (const auto columns = values::textToInt16(fields.columnsPerSheet))
        SetXmlInteger(QStringLiteral("ColumnsPerSheet"), *columns, node);
    writeCode(node, "PrintDirection", fields.printDirection);
    writeLengths(node, labelFields, fields);
    return SaveXmlDocument(*document.xml, document.path);
}

} // namespace bravcpl5
