#include "printing/PageSetup.h"

#include "library/ValueRules.h"
#include "library/Xml.h"
#include "printers/PaperSizeCodes.h"
#include "printing/ConfigurationElements.h"

#include <span>

namespace bravcpl5 {

namespace {

// A length field: its element, where the dialog holds it, and the text shown when the
// file has no value.
struct LengthField {
    const char *element;
    QString PageSetup::*field;
    const char *defaultText;
};

const LengthField marginFields[] = {
    {pagesetup::topMargin, &PageSetup::topMargin, "1"},
    {pagesetup::bottomMargin, &PageSetup::bottomMargin, "1"},
    {pagesetup::leftMargin, &PageSetup::leftMargin, "1"},
    {pagesetup::rightMargin, &PageSetup::rightMargin, "1"},
    {pagesetup::gutter, &PageSetup::gutter, "0"},
};

const LengthField labelFields[] = {
    {pagesetup::horizontalGap, &PageSetup::horizontalGap, ".125"},
    {pagesetup::verticalGap, &PageSetup::verticalGap, "0"},
    {pagesetup::labelWidth, &PageSetup::labelWidth, "3.5"},
    {pagesetup::labelHeight, &PageSetup::labelHeight, "1"},
};

QString name(const char *element) { return QString::fromLatin1(element); }

pugi::xml_node pageSetupNode(const pugi::xml_document &document)
{
    return SelectSingleNode(document, QString::fromLatin1(pagesetup::xpath)).node();
}

// Selects the stored code (or the default) in a list: that entry, else the first, else
// nothing. Without a default (no default printer, as on many CUPS workstations) only a
// stored code counts, and the first entry still stands in for anything else.
void readSelection(pugi::xml_node node, const char *element, std::optional<int> defaultCode,
                   const QList<int> &codes, bool storedCodes, std::optional<int> &selected)
{
    if (storedCodes) {
        selected = values::textToInt16(GetXmlValue(name(element), node, QString()));
        return;
    }
    const auto fallback = defaultCode ? values::toInt16(*defaultCode) : std::nullopt;
    std::optional<int> code;
    if (fallback)
        code = GetXmlInteger(name(element), node, *fallback);
    else
        code = values::textToInt16(GetXmlValue(name(element), node, QString()));
    if (code && codes.contains(*code))
        selected = code;
    else if (!codes.isEmpty())
        selected = codes.first();
}

// The entry for a printer's own paper code (256 and up): the printer's size of the stored
// width and height, as the code was numbered on whichever workstation saved it; none when
// the printer has no size of those dimensions.
std::optional<int> storedSheet(pugi::xml_node node, const PageSetupChoices &choices)
{
    const auto code = values::textToInt16(GetXmlValue(name(pagesetup::paperSize), node, QString()));
    const auto inches = [&](const char *element) {
        return values::textToSingle(GetXmlValue(name(element), node, QString()));
    };
    const auto width = inches(pagesetup::paperWidth);
    const auto height = inches(pagesetup::paperHeight);
    if (!code || *code < FirstPrinterPaperCode || !width || !height)
        return std::nullopt;
    const PaperSizeInfo *sheet = StoredPaperSize(choices.paperSheets, *code,
                                                 QSizeF(*width, *height));
    return sheet ? std::optional<int>(sheet->code) : std::nullopt;
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

PaperDefaults DefaultPrinterPaper(const PrinterInfo &info)
{
    const QString printer = info.defaultPrinterName();
    if (printer.isEmpty())
        return {};
    const PrinterPaper paper = info.paper(printer);
    return {paper.currentSize, paper.currentBin};
}

bool PageSetup::read(const pugi::xml_document &document, const PageSetupChoices &choices,
                     const PaperDefaults &paper)
{
    const pugi::xml_node node = pageSetupNode(document);
    if (!node)
        return false;

    readSelection(node, pagesetup::paperSize, paper.paperSize, choices.paperSizes,
                  choices.storedCodes, paperSize);
    if (const auto sheet = choices.storedCodes ? std::nullopt : storedSheet(node, choices))
        paperSize = sheet;
    if (paperSize && *paperSize >= FirstPrinterPaperCode) {
        paperWidth = GetXmlValue(name(pagesetup::paperWidth), node, QString());
        paperHeight = GetXmlValue(name(pagesetup::paperHeight), node, QString());
    }
    readSelection(node, pagesetup::paperSource, paper.paperBin, choices.paperSources,
                  choices.storedCodes, paperSource);
    readLengths(node, marginFields, *this);
    // The check box takes 0 (clear) and 1 (ticked) only; it keeps its state otherwise.
    const int mirror = GetXmlInteger(name(pagesetup::mirrorMargins), node, 0);
    if (mirror == 0 || mirror == 1)
        mirrorMargins = mirror == 1;
    landscape = GetXmlInteger(name(pagesetup::orientation), node, 0) != 0;
    columnsPerSheet = GetXmlValue(name(pagesetup::columnsPerSheet), node, QStringLiteral("1"));
    readSelection(node, pagesetup::printDirection, 0, choices.printDirections, choices.storedCodes,
                  printDirection);
    readLengths(node, labelFields, *this);
    return true;
}

bool PageSetup::write(pugi::xml_document &document) const
{
    const pugi::xml_node node = pageSetupNode(document);
    if (!node)
        return false;

    writeLengths(node, marginFields, *this);
    SetXmlSingle(name(pagesetup::mirrorMargins), mirrorMargins ? 1.0f : 0.0f, node);
    SetXmlInteger(name(pagesetup::orientation), landscape ? 1 : 0, node);
    writeCode(node, pagesetup::paperSize, paperSize);
    writeSingle(node, pagesetup::paperWidth, paperWidth);
    writeSingle(node, pagesetup::paperHeight, paperHeight);
    writeCode(node, pagesetup::paperSource, paperSource);
    if (const auto columns = values::textToInt16(columnsPerSheet))
        SetXmlInteger(name(pagesetup::columnsPerSheet), *columns, node);
    writeCode(node, pagesetup::printDirection, printDirection);
    writeLengths(node, labelFields, *this);
    return true;
}

bool ReadPageSetup(const QString &file, const PageSetupChoices &choices, const PaperDefaults &paper,
                   PageSetup &fields)
{
    const XmlDocumentPtr document = LoadXmlFile(file);
    return document && fields.read(*document, choices, paper);
}

bool WritePageSetup(const QString &file, const PageSetup &fields, QString *why)
{
    const XmlDocumentPtr document = LoadXmlFile(file);
    return document && fields.write(*document) && SaveXmlDocument(*document, file, why);
}

} // namespace bravcpl5
