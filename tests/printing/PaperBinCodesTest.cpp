#include "printing/PaperBinCodes.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

TEST(StandardBinCodeTest, MapsPpdAndIppNames)
{
    const std::pair<const char *, int> cases[] = {
        {"Upper", 1}, {"top", 1}, {"Lower", 2}, {"bottom", 2}, {"Middle", 3}, {"Manual", 4},
        {"ManualFeed", 4}, {"manual-feed", 4}, {"Envelope", 5}, {"EnvelopeManual", 6},
        {"ManualEnvelope", 6}, {"Auto", 7}, {"AutoSelect", 7}, {"Tractor", 8}, {"SmallFormat", 9},
        {"LargeFormat", 10}, {"large-capacity", 11}, {"LargeCapacity", 11}, {"Cassette", 14},
        {"FormSource", 15}, {"form_source", 15},
        // Bins without a standard code.
        {"Tray1", 0}, {"roll-1", 0}, {"", 0}, {"Uppers", 0}};
    for (const auto &[keyword, code] : cases)
        EXPECT_EQ(StandardPaperBinCode(QString::fromUtf8(keyword)), code) << keyword;
}

TEST(NumberPaperBinsTest, GivesOtherBinsCodesFrom256InTheirOrder)
{
    const QList<int> codes = NumberPaperBins(
        {QStringLiteral("Tray3"), QStringLiteral("Upper"), QStringLiteral("Roll1"),
         QStringLiteral("top"), QStringLiteral("Manual")});
    // "top" is the upper bin again; a second bin cannot share the code.
    EXPECT_EQ(codes, QList<int>({256, 1, 257, 258, 4}));
}

} // namespace
