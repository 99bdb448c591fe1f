#include "printers/PaperSizeCodes.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

// PaperDimension values as HP's and OpenPrinting's PPDs write them, in points.
TEST(StandardPaperSizeCodeTest, MatchesPpdDimensionsNotNames)
{
    const struct {
        const char *keyword;
        double width, height;
        int code;
    } cases[] = {{"Letter", 612, 792, 1},
                 {"Tabloid", 792, 1224, 3},
                 {"Legal", 612, 1008, 5},
                 {"Executive", 522, 756, 7},
                 {"A4", 595, 842, 9},
                 {"A4 exact", 595.28, 841.89, 9},
                 {"A3", 842, 1191, 8},
                 {"Folio", 612, 936, 14},
                 {"ANSI C", 1224, 1584, 24},
                 {"ANSI D", 1584, 2448, 25},
                 {"ANSI E", 2448, 3168, 26},
                 {"Env10", 297, 684, 20},
                 {"EnvDL", 312, 624, 27},
                 {"EnvC5", 459, 649, 28},
                 {"EnvMonarch", 279, 540, 37},
                 {"B5 JIS", 516, 729, 13},
                 {"B4 JIS", 729, 1032, 12},
                 {"B4 ISO", 709, 1001, 42},
                 {"Ledger as Windows has it", 1224, 792, 4},
                 {"Letter Small only by its name", 612, 792, 1},
                 {"A4Extra", 667.56, 913.68, 53},
                 // Sheets Windows has no code for, whatever their keyword suggests.
                 {"ARCH C", 1296, 1728, 0},
                 {"ARCH D", 1728, 2592, 0},
                 {"ARCH E", 2592, 3456, 0},
                 {"12x18", 864, 1296, 0},
                 {"DYMO 30252", 79.2, 252, 0},
                 {"w288h432", 288, 432, 0},
                 {"A4 off by 2 pt", 597, 842, 0}};
    for (const auto &c : cases)
        EXPECT_EQ(StandardPaperSizeCode(QSizeF(c.width, c.height)), c.code) << c.keyword;
}

// Keywords as PPDs and IPP media names write them, on sheets as the drivers size them.
TEST(NamedPaperSizeCodeTest, TheDriversWordWithinTwoPoints)
{
    const struct {
        const char *keyword;
        double width, height;
        int code;
    } cases[] = {{"LetterSmall", 612, 792, 2},
                 {"A4Small", 595, 842, 10},
                 {"A5.Transverse", 420, 595, 61},
                 {"EnvISOB5", 499, 709, 34},
                 {"A5 rounded by Kyocera", 421, 595, 0}, // not a keyword
                 {"A5", 421, 595, 11},
                 {"iso_a5_148x210mm", 421, 595, 11},
                 {"B4", 729, 1032, 12},
                 {"jis_b4_257x364mm", 728.5, 1031.8, 12},
                 {"ISOB4", 709, 1001, 42},
                 {"iso_b4_250x353mm", 708.7, 1000.6, 42},
                 {"Ledger", 792, 1224, 4},
                 {"Tabloid", 1224, 792, 3},
                 {"na_ledger_11x17in", 792, 1224, 3},
                 {"na_number-10_4.125x9.5in", 297, 684, 20},
                 {"A4", 597, 842, 9},
                 // The word of one sheet on another sheet's dimensions decides nothing.
                 {"A4", 600, 842, 0},
                 {"C4", 279, 639, 0}, // Lexmark's "9 Envelope"
                 {"A4.FullBleed", 595, 842, 0},
                 {"w612h936", 612, 936, 0},
                 {"", 612, 792, 0}};
    for (const auto &c : cases)
        EXPECT_EQ(NamedPaperSizeCode(QString::fromUtf8(c.keyword), QSizeF(c.width, c.height)),
                  c.code)
            << c.keyword;
}

TEST(NumberPaperSizesTest, WordsFirstThenDimensionsNeverABorderlessTwinThen256Up)
{
    const QSizeF letter(612, 792), a4(595, 842), isoB5(499, 709), tabloid(792, 1224),
        label(79.2, 252);
    const struct {
        const char *name;
        QList<PaperSheet> sheets;
        QList<int> codes;
    } cases[] = {
        {"twins named for their own codes",
         {{"Letter", letter}, {"LetterSmall", letter}, {"A4", a4}, {"A4Small", a4}},
         {1, 2, 9, 10}},
        {"a named twin first", {{"A4Small", a4}, {"A4", a4}}, {10, 9}},
        {"equal sheets without words: the first",
         {{"w612h792", letter}, {"Note2", letter}},
         {1, 256}},
        {"a borderless twin listed first, as IPP lists by size",
         {{"iso_a4_210x297mm", a4, true}, {"iso_a4_210x297mm", a4}},
         {256, 9}},
        {"a borderless twin named for the sheet",
         {{"Letter.FullBleed", letter, true}, {"Letter", letter}, {"A4.FullBleed", a4, true}},
         {256, 1, 9}},
        {"the envelope before the sheet of its size",
         {{"ISOB5", isoB5}, {"EnvISOB5", isoB5}},
         {256, 34}},
        {"Ledger fed as Tabloid", {{"Tabloid", tabloid}, {"Ledger", tabloid}}, {3, 4}},
        {"near twins: the nearest",
         {{"w612h935", QSizeF(612, 935)}, {"w612h936", QSizeF(612, 936)}},
         {256, 14}},
        {"one IPP name on sheets a point apart",
         {{"na_legal_8.5x14in", QSizeF(612, 1007)}, {"na_legal_8.5x14in", QSizeF(612, 1008)}},
         {256, 5}},
        {"labels", {{"w79h252", label}, {"w79h252.1", label}}, {256, 257}},
    };
    for (const auto &c : cases)
        EXPECT_EQ(NumberPaperSizes(c.sheets), c.codes) << c.name;
}

// A stored code prints the same sheet on every client: a printer's own code by its stored
// dimensions (another client may have numbered the sheets otherwise), a standard one by
// its own sheet.
TEST(FindStoredPaperTest, OwnCodesByTheirDimensionsStandardCodesByTheirSheet)
{
    struct Sheet {
        QSizeF points;
        int code;
    };
    const QList<Sheet> sheets = {{{612, 792}, 1}, {{612, 792}, 256}, {{79.2, 252}, 257},
                                 {{595, 842}, 9}, {{792, 1224}, 3},  {{612, 1008}, 258}};
    const struct {
        const char *name;
        int code;
        QSizeF points;
        qsizetype index;
    } cases[] = {
        {"own code, own sheet", 257, {79.2, 252}, 2},
        {"another client's number of the label", 263, {79, 252}, 2},
        {"the code breaks a tie", 256, {612, 792}, 1},
        {"a code without a tie: the first sheet of the size", 300, {612, 792}, 0},
        {"a code of this printer on a sheet it lacks", 258, {100, 100}, -1},
        {"a standard code", 9, {595.3, 841.9}, 3},
        {"Ledger on the printer's Tabloid", 4, {1224, 792}, 4},
        {"A4 Small on A4", 10, {595.3, 841.9}, 3},
        {"a standard code the printer lacks", 5, {612, 1008}, 5},
        {"a standard sheet the printer lacks", 8, {842, 1191}, -1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(FindStoredPaper(
                      sheets, c.code, c.points, [](const Sheet &s) { return s.points; },
                      [](const Sheet &s) { return s.code; }),
                  c.index)
            << c.name;
}

} // namespace
