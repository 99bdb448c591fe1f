// The page setup dialog's field rules, without its widgets.

#include "printing/PageSetupFields.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

TEST(PageSetupFieldsTest, SpinnersStepWithinTheFieldsLimitsInSinglePrecision)
{
    const struct {
        PageSetupField field;
        const char *text;
        int direction; // +1 up, -1 down
        const char *expected;
    } steps[] = {
        // Clamped at the maximum rather than stepping past it.
        {PageSetupField::TopMargin, "63.95", +1, "64"},
        {PageSetupField::Gutter, "100", +1, "64"},
        // Empty or non-numeric text starts from the minimum.
        {PageSetupField::LeftMargin, "", +1, "0.1"},
        {PageSetupField::RightMargin, "abc", -1, "0"},
        {PageSetupField::ColumnsPerSheet, "", +1, "2"},
        // Single precision, shortest text.
        {PageSetupField::BottomMargin, "0.6", +1, "0.7"},
        {PageSetupField::HorizontalGap, ".125", +1, "0.225"},
        {PageSetupField::PaperWidth, "8.5", -1, "8.4"},
        {PageSetupField::PaperHeight, "15.95", +1, "16"},
        {PageSetupField::VerticalGap, "0.05", -1, "0"},
        {PageSetupField::LabelWidth, "-3", -1, "0"},
        // A value above the maximum stepped down is not pulled back to it first.
        {PageSetupField::LabelHeight, "20", -1, "19.9"},
        {PageSetupField::ColumnsPerSheet, "1", -1, "1"},
        {PageSetupField::ColumnsPerSheet, "16", +1, "16"},
        {PageSetupField::ColumnsPerSheet, "3", +1, "4"},
    };
    for (const auto &s : steps) {
        const FieldLimits &limits = LimitsOf(s.field);
        SCOPED_TRACE(std::string(limits.name) + " \"" + s.text
                     + (s.direction > 0 ? "\" up" : "\" down"));
        const QString text = QString::fromUtf8(s.text);
        EXPECT_EQ(s.direction > 0
                      ? IncrementFieldValue(limits.step, limits.minimum, limits.maximum, text)
                      : DecrementFieldValue(limits.step, limits.minimum, limits.maximum, text),
                  QString::fromUtf8(s.expected));
    }
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

} // namespace
} // namespace bravcpl5
