#pragma once

// Windows paper codes for a printer's paper sizes, so that a configuration's "PaperSize"
// names the same sheet on every system, whatever the driver calls it and whichever way the
// printer is read (its PPD, or its IPP attributes as a driverless printer).

#include <QList>
#include <QSizeF>
#include <QString>

namespace bravcpl5 {

// The first code for a size without a standard code (or whose code is already taken).
constexpr int FirstPrinterPaperCode = 256;

// A printer's sheet as its codes are decided.
struct PaperSheet {
    QString keyword;         // the PPD's PageSize ("A4Small") or the IPP media name
                             // ("iso_a4_210x297mm")
    QSizeF points;           // portrait width and height, as the printer gives them
    bool borderless = false; // printable to every edge
};

// The Windows code of a sheet with this portrait width and height in points, within a
// point either way; 0 when Windows defines no such sheet. Twins of another code's sheet
// (Letter Small, A4 Transverse) are never found by their dimensions alone.
int StandardPaperSizeCode(const QSizeF &points);

// The Windows code that a driver's keyword names ("LetterSmall", "B4", "jis_b4_257x364mm"),
// when the sheet's dimensions agree with that code's within two points (PPDs round some
// metric sheets by more than one); Ledger and Tabloid agree turned either way. 0 otherwise.
int NamedPaperSizeCode(const QString &keyword, const QSizeF &points);

// The portrait size in points of the sheet a standard code names; empty for another code.
QSizeF PaperCodePoints(int code);

// True when a sheet is the one a standard code names: its dimensions within a point, and
// for Ledger and Tabloid turned either way.
bool IsSheetOfCode(int code, const QSizeF &points);

// True when two sheets' portrait widths and heights each agree to within a point, as a size
// kept in whole points (Qt's, a PDF's) and the printer's exact one of the same sheet do.
bool SamePaper(const QSizeF &a, const QSizeF &b);

// Codes for a printer's sheets in the printer's order, unique, the same list always giving
// the same codes:
// - a sheet whose keyword names a standard sheet takes that code;
// - then a sheet of standard dimensions takes the code of those dimensions;
// - where several sheets qualify for a code, the nearest to its dimensions takes it;
// - a borderless sheet beside a bordered one of its size never takes a standard code, so
//   the code prints with the printer's margins on every client;
// - every other sheet gets 256 and up in order.
QList<int> NumberPaperSizes(const QList<PaperSheet> &sheets);

// How far apart two sheets are: the larger difference of their sides, in points.
double PaperDistance(const QSizeF &a, const QSizeF &b);

// Which of a printer's sheets a stored code and stored dimensions print on (the index in
// `sheets`, -1 for none). A printer's own code (256 and up) was numbered on some client's
// reading of some printer, so the stored dimensions decide: among the sheets of that size
// the one with the code, else the nearest, else the first. A standard code takes its own
// sheet, else the sheet it names by its dimensions, else the sheet of the stored size.
// `points(sheet)` gives a sheet's portrait size, `code(sheet)` its code.
template <typename Sheet, typename Points, typename Code>
qsizetype FindStoredPaper(const QList<Sheet> &sheets, int storedCode, const QSizeF &storedPoints,
                          Points points, Code code)
{
    const auto first = [&](auto matches) -> qsizetype {
        for (qsizetype i = 0; i < sheets.size(); ++i)
            if (matches(sheets[i]))
                return i;
        return -1;
    };
    const auto ofStoredSize = [&]() -> qsizetype {
        qsizetype found = -1;
        for (qsizetype i = 0; i < sheets.size(); ++i) {
            if (!SamePaper(points(sheets[i]), storedPoints))
                continue;
            if (code(sheets[i]) == storedCode)
                return i;
            if (found < 0
                || PaperDistance(points(sheets[i]), storedPoints)
                       < PaperDistance(points(sheets[found]), storedPoints))
                found = i;
        }
        return found;
    };
    if (storedCode >= FirstPrinterPaperCode)
        return ofStoredSize();
    qsizetype found = first([&](const Sheet &s) { return code(s) == storedCode; });
    if (found < 0)
        found = first([&](const Sheet &s) { return IsSheetOfCode(storedCode, points(s)); });
    return found >= 0 ? found : ofStoredSize();
}

} // namespace bravcpl5
