#include "filters/DateRanges.h"
#include "filters/FilterDefinitions.h"

#include <QDate>
#include <gtest/gtest.h>
#include <ostream>

namespace bravcpl5 {

void PrintTo(const FilterChoice &c, std::ostream *os)
{
    *os << '"' << c.caption.toStdString() << "\"=" << c.data;
}

namespace {

struct ApplyCase {
    const char *name;
    QString type;
    QString stored;
    QString value;   // written back
    QString caption; // shown
};

void PrintTo(const ApplyCase &c, std::ostream *os) { *os << c.name; }

class ApplyFilterValueTest : public ::testing::TestWithParam<ApplyCase>
{
};

TEST_P(ApplyFilterValueTest, SetsValueAndCaptionByType)
{
    FilterRow row;
    row.type = GetParam().type;
    ApplyFilterValue(row, GetParam().stored);
    EXPECT_EQ(row.value, GetParam().value);
    EXPECT_EQ(row.valueCaption, GetParam().caption);
}

const QString custom = QStringLiteral("Custom Date Range : 1/5/2024 to 2/5/2024");

INSTANTIATE_TEST_SUITE_P(
    Cases, ApplyFilterValueTest,
    ::testing::Values(
        ApplyCase{"BooleanNo", "boolean", "No", "0", "No"},
        ApplyCase{"BooleanFALSE", "boolean", "FALSE", "0", "No"},
        ApplyCase{"BooleanZero", "boolean", "0", "0", "No"},
        ApplyCase{"BooleanLowerYes", "boolean", "yes", "1", "Yes"},
        ApplyCase{"BooleanOne", "boolean", "1", "1", "Yes"},
        ApplyCase{"BooleanEmpty", "boolean", "", "1", "Yes"},
        ApplyCase{"BooleanOtherText", "boolean", "off", "1", "Yes"},
        ApplyCase{"SourceNone", "productsource", "None", "0", "None"},
        ApplyCase{"SourceFabricate", "productsource", "fabricate", "2", "Fabricate"},
        ApplyCase{"SourceStockCapitals", "productsource", "STOCK", "3", "Stock"},
        ApplyCase{"SourceOther", "productsource", "Other", "4", "Other"},
        ApplyCase{"SourceStoredCodeIsPurchase", "productsource", "2", "1", "Purchase"},
        ApplyCase{"SourceEmptyIsPurchase", "productsource", "", "1", "Purchase"},
        ApplyCase{"NamedRange", "daterange", "Last Week", "Last Week", "Last Week"},
        ApplyCase{"UnlistedRangeAsItStands", "daterange", "Past 45 days", "Past 45 days",
                  "Past 45 days"},
        ApplyCase{"CustomRangeRebuilt", "daterange",
                  "Custom Date Range:01/05/2024 to 02/05/2024", custom, custom},
        ApplyCase{"LowerCaseCustomRangeNotACustomRange", "daterange",
                  "custom date range : 01/05/2024 to 2/5/2024",
                  "custom date range : 01/05/2024 to 2/5/2024",
                  "custom date range : 01/05/2024 to 2/5/2024"},
        ApplyCase{"VendorAsItStands", "vendor", "(All Vendors)", "(All Vendors)",
                  "(All Vendors)"},
        ApplyCase{"FreeText", "", "Boise", "Boise", "Boise"},
        ApplyCase{"UnknownTypeIsFreeText", "region", "No", "No", "No"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(ApplyFilterValue, CustomRangeTakesConfirmedDates)
{
    FilterRow row;
    row.type = QStringLiteral("daterange");
    QDate seenStart, seenEnd;
    ApplyFilterValue(row, custom, [&](QDate &start, QDate &end) {
        seenStart = start;
        seenEnd = end;
        start = QDate(2024, 3, 1);
        end = QDate(2024, 3, 31);
        return true;
    });
    EXPECT_EQ(seenStart, QDate(2024, 1, 5));
    EXPECT_EQ(seenEnd, QDate(2024, 2, 5));
    EXPECT_EQ(row.value, QStringLiteral("Custom Date Range : 3/1/2024 to 3/31/2024"));
    EXPECT_EQ(row.valueCaption, row.value);
}

TEST(ApplyFilterValue, CustomRangeKeepsItsDatesWhenTheEditorIsCancelled)
{
    FilterRow row;
    row.type = QStringLiteral("daterange");
    ApplyFilterValue(row, custom, [](QDate &start, QDate &) {
        start = QDate(1999, 1, 1); // changed, but not confirmed
        return false;
    });
    EXPECT_EQ(row.value, custom);
}

TEST(ApplyFilterValue, EditorIsOnlyAskedForCustomRanges)
{
    FilterRow row;
    row.type = QStringLiteral("daterange");
    bool asked = false;
    ApplyFilterValue(row, QStringLiteral("Today"), [&](QDate &, QDate &) { return asked = true; });
    EXPECT_FALSE(asked);
    EXPECT_EQ(row.value, QStringLiteral("Today"));
}

TEST(GetFilterDescription, StandardDescriptions)
{
    EXPECT_EQ(GetFilterDescription("Active", "Standard"), QStringLiteral("asdf"));
    EXPECT_EQ(GetFilterDescription("ACTIVE", "STANDARD"), QStringLiteral("asdf"));
    EXPECT_EQ(GetFilterDescription("Vendor", "standard"), QString());
    EXPECT_EQ(GetFilterDescription("", "standard"), QString());
    EXPECT_EQ(GetFilterDescription("Active", "Only active products"),
              QStringLiteral("Only active products"));
    EXPECT_EQ(GetFilterDescription("Active", " standard"), QStringLiteral(" standard"));
}

TEST(FillFilterChoices, FixedLists)
{
    const QList<FilterChoice> yesNo{{"Yes", 0}, {"No", 0}};
    EXPECT_EQ(FillFilterChoices(nullptr, "boolean", 0), yesNo);
    const QList<FilterChoice> sources{
        {"None", 0}, {"Purchase", 1}, {"Fabricate", 2}, {"Stock", 3}, {"Other", 4}};
    EXPECT_EQ(FillFilterChoices(nullptr, "productsource", 1), sources);
    const QList<FilterChoice> ranges = FillFilterChoices(nullptr, "daterange", 0);
    ASSERT_EQ(ranges.size(), 11);
    EXPECT_EQ(ranges.front(), (FilterChoice{"Today", 0}));
    EXPECT_EQ(ranges.back(), (FilterChoice{"Custom Date Range", 0}));
    EXPECT_TRUE(FillFilterChoices(nullptr, "", 1).isEmpty());
    EXPECT_TRUE(FillFilterChoices(nullptr, "Boolean", 0).isEmpty()); // types come lower-cased
}

struct ChangeCase {
    const char *name;
    QString held;
    QString chosen;
    bool confirm;
    QDate editorStart; // the dates the editor is opened with; invalid: not opened
    QString value;     // the row's value afterwards ("today" stands for today's date)
};

void PrintTo(const ChangeCase &c, std::ostream *os) { *os << c.name; }

class ChangeFilterValueTest : public ::testing::TestWithParam<ChangeCase>
{
};

TEST_P(ChangeFilterValueTest, CustomRangesStartTodayOrKeepTheirDates)
{
    const QDate today = QDate::currentDate();
    FilterRow row;
    row.type = QStringLiteral("daterange");
    ApplyFilterValue(row, GetParam().held);
    QDate openedWith;
    ChangeFilterValue(row, GetParam().chosen, [&](QDate &start, QDate &end) {
        openedWith = start;
        start = end = QDate(2025, 6, 30);
        return GetParam().confirm;
    });
    const QDate expectedStart = GetParam().editorStart.isValid() ? GetParam().editorStart : today;
    EXPECT_EQ(openedWith, IsCustomDateRange(GetParam().chosen) ? expectedStart : QDate());
    QString expected = GetParam().value;
    expected.replace(QStringLiteral("today"), today.toString(QStringLiteral("M/d/yyyy")));
    EXPECT_EQ(row.value, expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ChangeFilterValueTest,
    ::testing::Values(
        ChangeCase{"NamedToCustomCancelled", "Last Week", "Custom Date Range", false, {},
                   "Custom Date Range : today to today"},
        ChangeCase{"NamedToCustomConfirmed", "Last Week", "Custom Date Range", true, {},
                   "Custom Date Range : 6/30/2025 to 6/30/2025"},
        ChangeCase{"CustomChosenAgainKeepsDates", custom, "Custom Date Range", false,
                   QDate(2024, 1, 5), custom},
        ChangeCase{"CustomToNamed", custom, "Past 30 days", true, {}, "Past 30 days"}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
} // namespace bravcpl5
