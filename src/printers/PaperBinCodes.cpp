#include "printers/PaperBinCodes.h"

#include "printers/NumberCodes.h"

#include <algorithm>
#include <iterator>

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

// Parts of words, in the languages drivers name their bins in, that say a bin is fed by hand.
constexpr const char16_t *manualWords[] = {
    u"manual",     // en, es, pt, it (manuale)
    u"manuel",     // fr (manuel, manuelle), da, de, sv, nb (manuell, manueller)
    u"handeinzug", // de
    u"handzufuhr", // de
    u"handmatig",  // nl
    u"handinvoer", // nl
    u"käsin",      // fi (käsinsyöttö)
    u"ręczn",      // pl (ręczny, ręczna)
    u"ručn",       // cs (ruční)
    u"ручн",       // ru (ручная, вручную)
    u"手差し",     // ja
    u"手動",       // ja, zh_TW
    u"手动",       // zh_CN
    u"수동",       // ko
    u"يدوي",       // ar
};

// Envelopes, which a bin fed by hand may be for.
constexpr const char16_t *envelopeWords[] = {
    u"envelop", u"umschlag", u"kuvert", u"sobre", u"busta", u"koper",
    u"obálk",   u"конверт",  u"封筒",   u"信封",  u"봉투",  u"ظرف",
};

// A manual word beside one of these is a way of printing, not a source: "Manual Feed 1st
// Page" feeds only the first page by hand, manual duplex turns the sheets by hand.
constexpr const char16_t *notSourceWords[] = {u"first", u"1st", u"duplex"};

// Trays fed by hand under another name ("Paper Bypass", "One Sheet Bypass Tray").
constexpr const char16_t *byHandWords[] = {u"bypass"};

// A numbered feeder, "MF1" (IPP "mf-1"): Kyocera's multi-purpose tray, which its drivers
// list beside the manual feed "MF".
constexpr BinCode numberedFeeder = {"mf", manualBin, true};

constexpr BinCode namedManual = {"", manualBin};
constexpr BinCode manualEnvelope = {"", 6};
constexpr BinCode fedByHand = {"", manualBin, true};

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
    const QStringView number = QStringView(reduced).mid(2);
    if (reduced.startsWith(QLatin1String("mf")) && !number.isEmpty()
        && std::all_of(number.begin(), number.end(), [](QChar c) { return c.isDigit(); }))
        return &numberedFeeder;
    return nullptr;
}

template <std::size_t N> bool says(const QString &text, const char16_t *const (&words)[N])
{
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char16_t *word) { return text.contains(QStringView(word)); });
}

// A word of the keyword or name that says manual, in lower case so that "Manuell" and
// "ManualAll" count.
const BinCode *wordOf(const PaperBinName &bin)
{
    const QString text = (bin.keyword + u' ' + bin.name).toLower();
    if (says(text, notSourceWords))
        return nullptr;
    if (says(text, manualWords))
        return says(text, envelopeWords) ? &manualEnvelope : &namedManual;
    return says(text, byHandWords) ? &fedByHand : nullptr;
}

// An exact spelling of the keyword, then of the name, then a word of either.
const BinCode *match(const PaperBinName &bin)
{
    if (const BinCode *found = spellingOf(bin.keyword))
        return found;
    if (const BinCode *found = spellingOf(bin.name))
        return found;
    return wordOf(bin);
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
