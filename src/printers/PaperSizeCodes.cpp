#include "printers/PaperSizeCodes.h"

#include <QMap>
#include <QSet>
#include <algorithm>
#include <array>
#include <cmath>

namespace bravcpl5 {

namespace {

struct PaperCode {
    int code;
    double width; // portrait, in the unit below
    double height;
    bool inches; // otherwise millimetres
    // The keywords of drivers and IPP that name this sheet, reduced as reduce() reduces
    // them; IPP names by their class and name ("iso_a4_210x297mm" as "isoa4").
    std::array<const char *, 3> spellings;
    // The same sheet as an earlier code (Letter Small, A4 Transverse): found by its name
    // only, so that dimensions alone always give the usual code.
    bool twin = false;
};

// Windows' paper sizes with their exact dimensions. Where two codes name the same sheet,
// the usual one comes first and the other is a twin.
const PaperCode paperCodes[] = {
    {1, 8.5, 11, true, {"letter", "naletter", "usletter"}},
    {2, 8.5, 11, true, {"lettersmall"}, true},
    {3, 11, 17, true, {"tabloid", "naledger"}},
    {4, 17, 11, true, {"ledger"}},
    {5, 8.5, 14, true, {"legal", "nalegal", "uslegal"}},
    {6, 5.5, 8.5, true, {"statement", "halfletter", "nainvoice"}},
    {7, 7.25, 10.5, true, {"executive", "naexecutive"}},
    {8, 297, 420, false, {"a3", "isoa3"}},
    {9, 210, 297, false, {"a4", "isoa4"}},
    {10, 210, 297, false, {"a4small"}, true},
    {11, 148, 210, false, {"a5", "isoa5"}},
    {12, 257, 364, false, {"b4", "jisb4", "b4jis"}},
    {13, 182, 257, false, {"b5", "jisb5", "b5jis"}},
    {14, 8.5, 13, true, {"folio", "nafoolscap"}},
    {15, 215, 275, false, {"quarto", "naquarto"}},
    {16, 10, 14, true, {"10x14", "na10x14"}},
    {17, 11, 17, true, {"11x17"}, true},
    {18, 8.5, 11, true, {"note"}, true},
    {19, 3.875, 8.875, true, {"env9", "nanumber9"}},
    {20, 4.125, 9.5, true, {"env10", "comm10", "nanumber10"}},
    {21, 4.5, 10.375, true, {"env11", "nanumber11"}},
    {22, 4.75, 11, true, {"env12", "nanumber12"}},
    {23, 5, 11.5, true, {"env14", "nanumber14"}},
    {24, 17, 22, true, {"ansic", "c", "nac"}},
    {25, 22, 34, true, {"ansid", "d", "nad"}},
    {26, 34, 44, true, {"ansie", "e", "nae"}},
    {27, 110, 220, false, {"envdl", "dl", "isodl"}},
    {28, 162, 229, false, {"envc5", "c5", "isoc5"}},
    {29, 324, 458, false, {"envc3", "c3", "isoc3"}},
    {30, 229, 324, false, {"envc4", "c4", "isoc4"}},
    {31, 114, 162, false, {"envc6", "c6", "isoc6"}},
    {32, 114, 229, false, {"envc65", "c65", "isoc6c5"}},
    {42, 250, 353, false, {"isob4", "b4iso"}},
    {33, 250, 353, false, {"envisob4", "envb4"}, true},
    {34, 176, 250, false, {"envisob5", "envb5"}},
    {35, 176, 125, false, {"envisob6", "envb6"}},
    {36, 110, 230, false, {"envitalian", "envitaly", "omitalian"}},
    {37, 3.875, 7.5, true, {"envmonarch", "monarch", "namonarch"}},
    {38, 3.625, 6.5, true, {"envpersonal", "napersonal"}},
    {39, 14.875, 11, true, {"fanfoldus"}},
    {40, 8.5, 12, true, {"fanfoldgerman", "nafanfoldeur"}},
    {41, 8.5, 13, true, {"fanfoldgermanlegal"}, true},
    {43, 100, 148, false, {"postcard", "jpnhagaki"}},
    {44, 9, 11, true, {"9x11", "na9x11"}},
    {45, 10, 11, true, {"10x11", "na10x11"}},
    {46, 15, 11, true, {"15x11"}},
    {47, 220, 220, false, {"envinvite", "ominvite"}},
    {50, 9.5, 12, true, {"letterextra", "naletterextra"}},
    {51, 9.5, 15, true, {"legalextra", "nalegalextra"}},
    {52, 11.69, 18, true, {"tabloidextra"}},
    {53, 9.27, 12.69, true, {"a4extra", "isoa4extra"}},
    {54, 8.275, 11, true, {"lettertransverse"}},
    {55, 210, 297, false, {"a4transverse"}, true},
    {56, 9.275, 12, true, {"letterextratransverse"}},
    {57, 227, 356, false, {"supera"}},
    {58, 305, 487, false, {"superb"}},
    {59, 8.5, 12.69, true, {"letterplus", "naletterplus"}},
    {60, 210, 330, false, {"a4plus"}},
    {61, 148, 210, false, {"a5transverse"}, true},
    {62, 182, 257, false, {"b5transverse", "jisb5transverse"}, true},
    {63, 322, 445, false, {"a3extra", "isoa3extra"}},
    {64, 174, 235, false, {"a5extra", "isoa5extra"}},
    {65, 201, 276, false, {"isob5extra", "b5extra"}},
    {66, 420, 594, false, {"a2", "isoa2"}},
    {67, 297, 420, false, {"a3transverse"}, true},
    {68, 322, 445, false, {"a3extratransverse"}, true},
    {69, 200, 148, false, {}},
    {70, 105, 148, false, {"a6", "isoa6"}},
    {71, 240, 332, false, {"envkaku2", "jpnkaku2"}},
    {72, 216, 277, false, {"envkaku3", "jpnkaku3"}},
    {73, 120, 235, false, {"envchou3", "jpnchou3"}},
    {74, 90, 205, false, {"envchou4", "jpnchou4"}},
    {75, 11, 8.5, true, {"letterrotated"}},
    {76, 420, 297, false, {"a3rotated"}},
    {77, 297, 210, false, {"a4rotated"}},
    {78, 210, 148, false, {"a5rotated"}},
    {79, 364, 257, false, {"b4rotated", "jisb4rotated"}},
    {80, 257, 182, false, {"b5rotated", "jisb5rotated"}},
    {81, 148, 100, false, {"postcardrotated"}},
    {82, 148, 200, false, {"doublepostcardrotated", "jpnoufuku"}},
    {83, 148, 105, false, {"a6rotated"}},
    {84, 332, 240, false, {"envkaku2rotated"}},
    {85, 277, 216, false, {"envkaku3rotated"}},
    {86, 235, 120, false, {"envchou3rotated"}},
    {87, 205, 90, false, {"envchou4rotated"}},
    {88, 128, 182, false, {"b6", "jisb6"}},
    {89, 182, 128, false, {"b6rotated", "jisb6rotated"}},
    {90, 12, 11, true, {"12x11"}},
    {91, 105, 235, false, {"envyou4", "jpnyou4"}},
    {92, 235, 105, false, {"envyou4rotated"}},
    {93, 146, 215, false, {"prc16k"}},
    {94, 97, 151, false, {"prc32k"}},
    {95, 97, 151, false, {"prc32kbig"}, true},
    {96, 102, 165, false, {"envprc1", "prc1"}},
    {97, 102, 176, false, {"envprc2", "prc2"}},
    {98, 125, 176, false, {"envprc3", "prc3"}},
    {99, 110, 208, false, {"envprc4", "prc4"}},
    {100, 110, 220, false, {"envprc5", "prc5"}, true},
    {101, 120, 230, false, {"envprc6", "prc6"}},
    {102, 160, 230, false, {"envprc7", "prc7"}},
    {103, 120, 309, false, {"envprc8", "prc8"}},
    {104, 229, 324, false, {"envprc9", "prc9"}, true},
    {105, 324, 458, false, {"envprc10", "prc10"}, true},
    {106, 215, 146, false, {"prc16krotated"}},
    {107, 151, 97, false, {"prc32krotated"}},
    {108, 151, 97, false, {"prc32kbigrotated"}, true},
    {109, 165, 102, false, {"envprc1rotated"}},
    {110, 176, 102, false, {"envprc2rotated"}},
    {111, 176, 125, false, {"envprc3rotated"}, true},
    {112, 208, 110, false, {"envprc4rotated"}},
    {113, 220, 110, false, {"envprc5rotated"}},
    {114, 230, 120, false, {"envprc6rotated"}},
    {115, 230, 160, false, {"envprc7rotated"}},
    {116, 309, 120, false, {"envprc8rotated"}},
    {117, 324, 229, false, {"envprc9rotated"}},
    {118, 458, 324, false, {"envprc10rotated"}},
};

constexpr int tabloid = 3;
constexpr int ledger = 4;

// PPDs round most sizes to whole points; a point either way still tells sheets apart
// (the nearest distinct sheets, 12 x 18 and Tabloid Extra, differ by 22 points).
constexpr double tolerance = 1.0;
// A driver that names the sheet may round it further (a Kyocera A5 of 421 x 595 points).
constexpr double namedTolerance = 2.0;

QSizeF pointsOf(const PaperCode &paper)
{
    const double scale = paper.inches ? 72.0 : 72.0 / 25.4;
    return QSizeF(paper.width * scale, paper.height * scale);
}

// How far a sheet is from a code's: Ledger and Tabloid are one sheet fed either way, and
// drivers list either one either way.
double distance(const PaperCode &paper, const QSizeF &points)
{
    const QSizeF own = pointsOf(paper);
    const bool turns = paper.code == tabloid || paper.code == ledger;
    return std::min(PaperDistance(own, points),
                    turns ? PaperDistance(own.transposed(), points) : PaperDistance(own, points));
}

bool fits(const PaperCode &paper, const QSizeF &points, double tolerance)
{
    return distance(paper, points) <= tolerance;
}

// "A4.Transverse" and "A4Transverse" alike; an IPP name ("na_number-10_4.125x9.5in") by its
// class and name ("nanumber10"), without the dimensions that follow.
QString reduce(const QString &keyword)
{
    QString name = keyword;
    const qsizetype lastPart = keyword.lastIndexOf(QLatin1Char('_'));
    if (keyword.count(QLatin1Char('_')) >= 2)
        name.truncate(lastPart);
    QString reduced;
    for (const QChar c : std::as_const(name)) {
        if (c.isLetterOrNumber())
            reduced.append(c.toLower());
    }
    return reduced;
}

const PaperCode *byCode(int code)
{
    for (const PaperCode &paper : paperCodes) {
        if (paper.code == code)
            return &paper;
    }
    return nullptr;
}

} // namespace

int StandardPaperSizeCode(const QSizeF &points)
{
    for (const PaperCode &paper : paperCodes) {
        if (!paper.twin && PaperDistance(pointsOf(paper), points) <= tolerance)
            return paper.code;
    }
    return 0;
}

int NamedPaperSizeCode(const QString &keyword, const QSizeF &points)
{
    const QString reduced = reduce(keyword);
    if (reduced.isEmpty())
        return 0;
    for (const PaperCode &paper : paperCodes) {
        for (const char *spelling : paper.spellings) {
            if (spelling && reduced == QLatin1String(spelling))
                return fits(paper, points, namedTolerance) ? paper.code : 0;
        }
    }
    return 0;
}

QSizeF PaperCodePoints(int code)
{
    const PaperCode *paper = byCode(code);
    return paper ? pointsOf(*paper) : QSizeF();
}

bool IsSheetOfCode(int code, const QSizeF &points)
{
    const PaperCode *paper = byCode(code);
    return paper && fits(*paper, points, tolerance);
}

double PaperDistance(const QSizeF &a, const QSizeF &b)
{
    return std::max(std::abs(a.width() - b.width()), std::abs(a.height() - b.height()));
}

bool SamePaper(const QSizeF &a, const QSizeF &b) { return PaperDistance(a, b) < 1.0; }

QList<int> NumberPaperSizes(const QList<PaperSheet> &sheets)
{
    QList<int> codes(sheets.size(), 0);
    QSet<int> taken;
    const auto borderlessTwin = [&](const PaperSheet &sheet) {
        if (!sheet.borderless)
            return false;
        for (const PaperSheet &other : sheets) {
            if (!other.borderless && SamePaper(other.points, sheet.points))
                return true;
        }
        return false;
    };
    QList<bool> mayTakeStandard;
    for (const PaperSheet &sheet : sheets)
        mayTakeStandard.append(!borderlessTwin(sheet));
    // Each code goes to the nearest of the sheets it names (the first of equals): IPP gives
    // one name to sheets a point apart (Legal and an envelope of 8.5 x 13.99 in), and PPDs
    // list near twins (8.5 x 13 in and 8.5 x 12.99 in).
    const auto assignNearest = [&](auto standardCode) {
        QMap<int, qsizetype> nearest;
        for (qsizetype i = 0; i < sheets.size(); ++i) {
            const int code = codes[i] == 0 && mayTakeStandard[i] ? standardCode(sheets[i]) : 0;
            if (code == 0 || taken.contains(code))
                continue;
            const PaperCode &paper = *byCode(code);
            const auto best = nearest.constFind(code);
            if (best == nearest.cend()
                || distance(paper, sheets[i].points) < distance(paper, sheets[*best].points))
                nearest.insert(code, i);
        }
        for (auto it = nearest.cbegin(); it != nearest.cend(); ++it) {
            codes[it.value()] = it.key();
            taken.insert(it.key());
        }
    };
    // The driver's word first, so that a twin named for its own code ("A4Small") keeps it
    // wherever it comes in the list; then dimensions.
    assignNearest([](const PaperSheet &s) { return NamedPaperSizeCode(s.keyword, s.points); });
    assignNearest([](const PaperSheet &s) { return StandardPaperSizeCode(s.points); });
    int next = FirstPrinterPaperCode;
    for (int &code : codes) {
        if (code == 0)
            code = next++;
    }
    return codes;
}

} // namespace bravcpl5
