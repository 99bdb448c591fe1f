#include "printing/PaperBinCodes.h"

#include "printing/NumberCodes.h"

namespace bravcpl5 {

namespace {

struct BinCode {
    const char *keyword; // lower case, letters and digits only
    int code;
};

// PPD InputSlot names and IPP media-source keywords, reduced as normalize() reduces them.
constexpr BinCode binCodes[] = {
    {"upper", 1},          {"top", 1},           {"onlyone", 1},
    {"lower", 2},          {"bottom", 2},
    {"middle", 3},
    {"manual", 4},         {"manualfeed", 4},
    {"envelope", 5},       {"envelopefeed", 5},
    {"envelopemanual", 6}, {"manualenvelope", 6}, {"envmanual", 6},
    {"auto", 7},           {"autoselect", 7},
    {"tractor", 8},
    {"smallformat", 9},    {"smallfmt", 9},
    {"largeformat", 10},   {"largefmt", 10},
    {"largecapacity", 11},
    {"cassette", 14},
    {"formsource", 15},
};

QString normalize(const QString &keyword)
{
    QString reduced;
    for (const QChar c : keyword) {
        if (c.isLetterOrNumber())
            reduced.append(c.toLower());
    }
    return reduced;
}

} // namespace

int StandardPaperBinCode(const QString &keyword)
{
    const QString reduced = normalize(keyword);
    for (const BinCode &bin : binCodes) {
        if (reduced == QLatin1String(bin.keyword))
            return bin.code;
    }
    return 0;
}

QList<int> NumberPaperBins(const QStringList &keywords)
{
    return NumberCodes(keywords, FirstPrinterBinCode, StandardPaperBinCode);
}

} // namespace bravcpl5
