#include "printing/PaperBinCodes.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

struct BinCase {
    const char *keyword;
    int code;
};

void PrintTo(const BinCase &c, std::ostream *os) { *os << '"' << c.keyword << '"'; }

class StandardBinCodeTest : public ::testing::TestWithParam<BinCase> {};

TEST_P(StandardBinCodeTest, MapsPpdAndIppNames)
{
    EXPECT_EQ(StandardPaperBinCode(QString::fromUtf8(GetParam().keyword)), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(Table, StandardBinCodeTest, ::testing::Values(
    BinCase{"Upper", 1}, BinCase{"top", 1}, BinCase{"Lower", 2}, BinCase{"bottom", 2},
    BinCase{"Middle", 3}, BinCase{"Manual", 4}, BinCase{"ManualFeed", 4},
    BinCase{"manual-feed", 4}, BinCase{"Envelope", 5}, BinCase{"EnvelopeManual", 6},
    BinCase{"ManualEnvelope", 6}, BinCase{"Auto", 7}, BinCase{"AutoSelect", 7},
    BinCase{"Tractor", 8}, BinCase{"SmallFormat", 9}, BinCase{"LargeFormat", 10},
    BinCase{"large-capacity", 11}, BinCase{"LargeCapacity", 11}, BinCase{"Cassette", 14},
    BinCase{"FormSource", 15}, BinCase{"form_source", 15},
    // Bins without a standard code.
    BinCase{"Tray1", 0}, BinCase{"roll-1", 0}, BinCase{"", 0}, BinCase{"Uppers", 0}));

TEST(NumberPaperBinsTest, GivesOtherBinsCodesFrom256InTheirOrder)
{
    const QList<int> codes = NumberPaperBins(
        {QStringLiteral("Tray3"), QStringLiteral("Upper"), QStringLiteral("Roll1"),
         QStringLiteral("top"), QStringLiteral("Manual")});
    // "top" is the upper bin again; a second bin cannot share the code.
    EXPECT_EQ(codes, QList<int>({256, 1, 257, 258, 4}));
}

} // namespace
