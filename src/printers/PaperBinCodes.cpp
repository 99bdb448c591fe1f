#include "printers/PaperBinCodes.h"

#include "printers/NumberCodes.h"

#include <algorithm>

namespace bravcpl5 {

namespace {

struct BinCode {
    const char *spelling; // lower case, letters and digits only
    int code;
    bool byHand = false; // a tray fed by hand: the manual bin unless another bin says manual
};

constexpr int manualBin = 4;

// PPD InputSlot and vendor source keywords, their English names, and IPP media-source
// keywords, reduced as normalize() reduces them.
constexpr BinCode binCodes[] = {
    {"upper", 1},
    {"top", 1},
    {"onlyone", 1},
    {"main", 1},
    {"lower", 2},
    {"bottom", 2},
    {"middle", 3},
    {"manual", 4},
    {"manualfeed", 4},
    {"manualfeeder", 4},
    {"manualpaper", 4},
    {"tray1man", 4},
    {"tray1manual", 4},
    {"mf", 4},
    {"bypass", 4, true},
    {"bypasstray", 4, true},
    {"sheetfeedbypass", 4, true},
    {"multipurpose", 4, true},
    {"multipurposetray", 4, true},
    {"multipurposefeeder", 4, true},
    {"mptray", 4, true},
    {"mpt", 4, true},
    {"envelope", 5},
    {"envelopefeed", 5},
    {"envelopefeeder", 5},
    {"ef1", 5},
    {"envelopemanual", 6},
    {"manualenvelope", 6},
    {"envmanual", 6},
    {"manualenv", 6},
    {"auto", 7},
    {"autoselect", 7},
    {"automatic", 7},
    {"automaticallyselect", 7},
    {"autotrayselect", 7},
    {"printerautoselect", 7},
    {"tractor", 8},
    {"tractorfeed", 8},
    {"continuous", 8},
    {"roll", 8},
    {"mainroll", 8},
    {"smallformat", 9},
    {"smallfmt", 9},
    {"largeformat", 10},
    {"largefmt", 10},
    {"largecapacity", 11},
    {"largecapacitytray", 11},
    {"lct", 11},
    {"lcc", 11},
    {"lcf", 11},
    {"cassette", 14},
    {"papercassette", 14},
    {"formsource", 15},
};

QString normalize(const QString &spelling)
{
    QString reduced;
    for (const QChar c : spelling) {
        if (c.isLetterOrNumber())
            reduced.append(c.toLower());
    }
    return reduced;
}

const BinCode *spellingOf(const QString &spelling)
{
    const QString reduced = normalize(spelling);
    for (const BinCode &bin : binCodes) {
        if (reduced == QLatin1String(bin.spelling))
            return &bin;
    }
    return nullptr;
}

const BinCode *match(const PaperBinName &bin)
{
    const BinCode *found = spellingOf(bin.keyword);
    return found ? found : spellingOf(bin.name);
}

} // namespace

int StandardPaperBinCode(const PaperBinName &bin)
{
    const BinCode *found = match(bin);
    return found ? found->code : 0;
}

QList<int> NumberPaperBins(const QList<PaperBinName> &bins)
{
    // A multi-purpose or bypass tray is the manual bin only on a printer without a bin that
    // says manual, wherever that one comes in the list.
    const bool manualNamed = std::any_of(bins.begin(), bins.end(), [](const PaperBinName &bin) {
        const BinCode *found = match(bin);
        return found && found->code == manualBin && !found->byHand;
    });
    return NumberCodes(bins, FirstPrinterBinCode, [&](const PaperBinName &bin) {
        const BinCode *found = match(bin);
        return !found || (found->byHand && manualNamed) ? 0 : found->code;
    });
}

} // namespace bravcpl5
