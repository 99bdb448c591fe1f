// The page setup dialog's field rules, without its widgets.

#include "printing/PageSetupFields.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

struct Step {
    PageSetupField field;
    const char *text;
    int direction; // +1 up, -1 down
    const char *expected;
};

// Names the case in test listings (by default they would show the struct's raw bytes).
void PrintTo(const Step &s, std::ostream *os)
{
    *os << LimitsOf(s.field).name << " \"" << s.text << (s.direction > 0 ? "\" up" : "\" down");
}

class SpinnerTest : public ::testing::TestWithParam<Step>
{
};

TEST_P(SpinnerTest, StepsWithinTheFieldsLimitsInSinglePrecision)
{
    const Step &s = GetParam();
    const FieldLimits &limits = LimitsOf(s.field);
    const QString text = QString::fromUtf8(s.text);
    const QString result = s.direction > 0 ? IncrementFieldValue(limits.step, limits.minimum,
                                                                 limits.maximum, text)
                                           : DecrementFieldValue(limits.step, limits.minimum,
                                                                 limits.maximum, text);
    EXPECT_EQ(result, QString::fromUtf8(s.expected)) << limits.name << " " << s.text;
}

INSTANTIATE_TEST_SUITE_P(
    Fields, SpinnerTest,
    ::testing::Values(
        // Clamped at the maximum rather than stepping past it.
        Step{PageSetupField::TopMargin, "63.95", +1, "64"},
        Step{PageSetupField::Gutter, "100", +1, "64"},
        // Empty or non-numeric text starts from the minimum.
        Step{PageSetupField::LeftMargin, "", +1, "0.1"},
        Step{PageSetupField::RightMargin, "abc", -1, "0"},
        Step{PageSetupField::ColumnsPerSheet, "", +1, "2"},
        // Single precision, shortest text.
        Step{PageSetupField::BottomMargin, "0.6", +1, "0.7"},
        Step{PageSetupField::HorizontalGap, ".125", +1, "0.225"},
        Step{PageSetupField::PaperWidth, "8.5", -1, "8.4"},
        Step{PageSetupField::PaperHeight, "15.95", +1, "16"},
        Step{PageSetupField::VerticalGap, "0.05", -1, "0"},
        Step{PageSetupField::LabelWidth, "-3", -1, "0"},
        // A value above the maximum stepped down is not pulled back to it first.
        Step{PageSetupField::LabelHeight, "20", -1, "19.9"},
        Step{PageSetupField::ColumnsPerSheet, "1", -1, "1"},
        Step{PageSetupField::ColumnsPerSheet, "16", +1, "16"},
        Step{PageSetupField::ColumnsPerSheet, "3", +1, "4"}));

TEST(PageSetupFieldsTest, EveryFieldHasItsLimits)
{
    const auto &limits = PageSetupFieldLimits();
    ASSERT_EQ(limits.size(), int(PageSetupField::ColumnsPerSheet) + 1);
    for (int i = 0; i < limits.size(); ++i)
        EXPECT_EQ(int(limits[i].field), i) << limits[i].name;
}

TEST(PageSetupFieldsTest, PreviewRecordReadsLeadingNumbersInTwipsAndTurnsLandscape)
{
    PageSetup fields;
    fields.paperWidth = QStringLiteral("8.5");
    fields.paperHeight = QStringLiteral("11 in");
    fields.leftMargin = QStringLiteral("1.5x");
    fields.topMargin = QStringLiteral("abc");
    fields.rightMargin = QStringLiteral(".25");
    fields.bottomMargin = QStringLiteral("1");
    fields.gutter = QString();
    fields.columnsPerSheet = QStringLiteral("3");
    fields.labelWidth = QStringLiteral("2.5");
    fields.labelHeight = QStringLiteral("1");
    fields.horizontalGap = QStringLiteral(".125");
    fields.verticalGap = QStringLiteral("0");

    PageSetupPreviewInfo portrait = PreviewRecord(fields);
    EXPECT_EQ(portrait.PaperWidth, 12240);
    EXPECT_EQ(portrait.PaperHeight, 15840);
    EXPECT_EQ(portrait.LeftMargin, 2160);
    EXPECT_EQ(portrait.TopMargin, 0);
    EXPECT_EQ(portrait.RightMargin, 360);
    EXPECT_EQ(portrait.BottomMargin, 1440);
    EXPECT_EQ(portrait.Gutter, 0);
    EXPECT_EQ(portrait.ColumnsPerSheet, 3); // a count, not a length
    EXPECT_EQ(portrait.LabelWidth, 3600);
    EXPECT_EQ(portrait.HorizontalGap, 180);
    EXPECT_FALSE(portrait.ShowLabels);

    fields.landscape = true;
    const PageSetupPreviewInfo landscape = PreviewRecord(fields);
    EXPECT_EQ(landscape.PaperWidth, 15840);
    EXPECT_EQ(landscape.PaperHeight, 12240);
    portrait.PaperWidth = landscape.PaperWidth;
    portrait.PaperHeight = landscape.PaperHeight;
    EXPECT_TRUE(portrait == landscape); // only the paper turns
}

TEST(PageSetupFieldsTest, PaperLengthsShowInInchesToThreePlaces)
{
    const std::pair<int, const char *> lengths[] = {
        {12240, "8.5"},  {15840, "11"}, {11906, "8.268"}, {16838, "11.693"},
        {5940, "4.125"}, {1, "0.001"},  {0, "0"}};
    for (const auto &[twips, text] : lengths)
        EXPECT_EQ(PaperLengthText(twips), QString::fromLatin1(text)) << twips;
}

TEST(PageSetupFieldsTest, PrintDirectionsAreAcrossThenDownFirst)
{
    ASSERT_EQ(PrintDirections().size(), 2);
    EXPECT_EQ(int(PrintDirections()[0].code), 0);
    EXPECT_EQ(PrintDirections()[0].name, QStringLiteral("Across, then down"));
    EXPECT_EQ(int(PrintDirections()[1].code), 1);
    EXPECT_EQ(PrintDirections()[1].name, QStringLiteral("Down, then across"));
}

} // namespace
} // namespace bravcpl5
