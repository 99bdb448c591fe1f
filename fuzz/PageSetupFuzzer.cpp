// A printer configuration file's bytes through the page setup reader the dialog uses,
// then written back the way OK writes it: the document must still save and load again.

#include "FuzzInput.h"

#include "library/Xml.h"
#include "printing/PageSetup.h"
#include "printing/PrinterInfo.h"

namespace {

using namespace bravcpl5;

// One default printer on Letter from its second bin, so that every input meets the same
// defaults, whatever printers the machine running the fuzzer has.
class OnePrinter : public PrinterInfo
{
public:
    QStringList printerNames() const override { return {name()}; }
    QString defaultPrinterName() const override { return name(); }
    QList<PaperSizeInfo> paperSizes(const QString &) const override { return {{"Letter", 1, 12240, 15840}}; }
    QList<PaperBinInfo> paperBins(const QString &) const override { return {{"Upper", 1}, {"Manual", 15}}; }
    int currentPaperSize(const QString &) const override { return 1; }
    int currentPaperBin(const QString &) const override { return 15; }

private:
    static QString name() { return QStringLiteral("Office-Laser"); }
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    SetPrinterInfo(std::make_unique<OnePrinter>());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString file = fuzz::InputFile(data, size);
    // Letter, Legal, A4 and a printer's own size; two bins; both print directions.
    const PageSetupChoices choices{{1, 5, 9, 256}, {1, 15}, {0, 1}};
    PageSetup fields;
    if (!ReadPageSetup(file, choices, fields))
        return 0;
    const XmlDocumentPtr document = LoadXmlFile(file);
    fuzz::Require(document && fields.write(*document), "a page setup that was read cannot be written");
    fuzz::RequireSavedTextLoads(*document);
    return 0;
}
