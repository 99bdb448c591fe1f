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
                 {"B4 JIS", 729, 1032, 0},
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

TEST(NumberPaperSizesTest, FirstOfEqualSizesTakesTheCodeOthersAreUniqueFrom256)
{
    // Letter, its full-bleed twin, a label, A4, A4 again, Folio: twins must stay selectable.
    const QList<int> codes = NumberPaperSizes({QSizeF(612, 792), QSizeF(612, 792), QSizeF(288, 432),
                                               QSizeF(595, 842), QSizeF(595.28, 841.89),
                                               QSizeF(612, 936)});
    EXPECT_EQ(codes, QList<int>({1, 256, 257, 9, 258, 14}));
    EXPECT_EQ(NumberPaperSizes({QSizeF(612, 792), QSizeF(612, 792), QSizeF(288, 432)}),
              QList<int>({1, 256, 257}));
}

} // namespace
