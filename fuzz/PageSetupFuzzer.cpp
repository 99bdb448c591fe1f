// A printer configuration file's bytes through the page setup reader the dialog uses,
// then saved the way OK saves it, twice: the file must load again and settle.

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
    // The first save may normalise what was typed (".50" is stored as 0.5); from then on
    // the page setup is a fixed point: saved again, it reads back the same.
    PageSetup saved = fields;
    for (int round = 0; round < 2; ++round) {
        fuzz::Require(WritePageSetup(file, saved), "a page setup that was read cannot be saved");
        PageSetup again;
        fuzz::Require(ReadPageSetup(file, choices, again), "a saved page setup does not read again");
        fuzz::Require(round == 0 || again == saved, "a page setup saved twice reads back different");
        saved = again;
    }
    return 0;
}
