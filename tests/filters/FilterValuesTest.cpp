#include "filters/DateRanges.h"
#include "filters/FilterDefinitions.h"
#include "support/QtPrinters.h"

#include <QDate>
#include <gtest/gtest.h>
#include <ostream>
#include <tuple>

namespace bravcpl5 {

void PrintTo(const FilterChoice &c, std::ostream *os)
{
    *os << '"' << c.caption.toStdString() << "\"=" << c.data;
}

namespace {

const char *const customText = "Custom Date Range : 1/5/2024 to 2/5/2024";
const QString custom = QString::fromLatin1(customText);

TEST(ApplyFilterValue, SetsValueAndCaptionByType)
{
    const QString lowerCase = QStringLiteral("custom date range : 01/05/2024 to 2/5/2024");
    const std::tuple<QString, QString, QString> cases[] = {
        // type, stored, "value|caption"
        {"boolean", "No", "0|No"},
        {"boolean", "FALSE", "0|No"},
        {"boolean", "0", "0|No"},
        {"boolean", "yes", "1|Yes"},
        {"boolean", "1", "1|Yes"},
        {"boolean", "", "1|Yes"},
        {"boolean", "off", "1|Yes"},
        {"productsource", "None", "0|None"},
        {"productsource", "fabricate", "2|Fabricate"},
        {"productsource", "STOCK", "3|Stock"},
        {"productsource", "Other", "4|Other"},
        {"productsource", "2", "1|Purchase"}, // a stored code is no source name
        {"productsource", "", "1|Purchase"},
        {"daterange", "Last Week", "Last Week|Last Week"},
        {"daterange", "Past 45 days", "Past 45 days|Past 45 days"}, // unlisted, as it stands
        {"daterange", "Custom Date Range:01/05/2024 to 02/05/2024",
         custom + u'|' + custom},                               // rebuilt
        {"daterange", lowerCase, lowerCase + u'|' + lowerCase}, // not a custom range
        {"vendor", "(All Vendors)", "(All Vendors)|(All Vendors)"},
        {"", "Boise", "Boise|Boise"},
        {"region", "No", "No|No"}, // unknown types are free text
    };
    for (const auto &[type, stored, shown] : cases) {
        FilterRow row;
        row.type = ParseFilterType(type);
        ApplyFilterValue(row, stored);
        EXPECT_EQ(row.value + u'|' + row.valueCaption, shown)
            << type.toStdString() << ": " << stored.toStdString();
    }
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
    EXPECT_EQ(FillFilterChoices(nullptr, ParseFilterType("boolean"), 0), yesNo);
    const QList<FilterChoice> sources{
        {"None", 0}, {"Purchase", 1}, {"Fabricate", 2}, {"Stock", 3}, {"Other", 4}};
    EXPECT_EQ(FillFilterChoices(nullptr, ParseFilterType("productsource"), 1), sources);
    const QList<FilterChoice> ranges = FillFilterChoices(nullptr, ParseFilterType("daterange"), 0);
    ASSERT_EQ(ranges.size(), 11);
    EXPECT_EQ(ranges.front(), (FilterChoice{"Today", 0}));
    EXPECT_EQ(ranges.back(), (FilterChoice{"Custom Date Range", 0}));
    EXPECT_TRUE(FillFilterChoices(nullptr, ParseFilterType(""), 1).isEmpty());
    // The attribute is read without regard to case; unknown types are free text.
    EXPECT_EQ(ParseFilterType("Boolean"), FilterType::Boolean);
    EXPECT_EQ(ParseFilterType("region"), FilterType::FreeText);
}

struct EditorCase {
    const char *name;
    const char *held; // applied first, then `chosen` is changed to; null: `chosen` is applied
    QString chosen;
    bool confirm;
    QDate editorStart; // the dates the editor is opened with; invalid: today
    QString value;     // the row's value afterwards ("today" stands for today's date)
};

void PrintTo(const EditorCase &c, std::ostream *os) { *os << c.name; }

class DateRangeEditorTest : public ::testing::TestWithParam<EditorCase>
{
};

TEST_P(DateRangeEditorTest, OnlyCustomRangesOpenItWithTheirDatesOrToday)
{
    const EditorCase &c = GetParam();
    const QDate today = QDate::currentDate();
    FilterRow row;
    row.type = FilterType::DateRange;
    QDate openedWith;
    const auto editor = [&](QDate &start, QDate &end) {
        openedWith = start;
        start = end = QDate(2025, 6, 30);
        return c.confirm;
    };
    if (c.held) {
        ApplyFilterValue(row, QString::fromLatin1(c.held));
        ChangeFilterValue(row, c.chosen, editor);
    } else {
        ApplyFilterValue(row, c.chosen, editor);
    }
    const QDate expectedStart = c.editorStart.isValid() ? c.editorStart : today;
    EXPECT_EQ(openedWith, IsCustomDateRange(c.chosen) ? expectedStart : QDate());
    QString expected = c.value;
    expected.replace(QStringLiteral("today"), today.toString(QStringLiteral("M/d/yyyy")));
    EXPECT_EQ(row.value, expected);
    EXPECT_EQ(row.valueCaption, expected);
}

const QDate jan5(2024, 1, 5);

INSTANTIATE_TEST_SUITE_P(
    Cases, DateRangeEditorTest,
    ::testing::Values(
        EditorCase{"AppliedCustomConfirmed", nullptr, custom, true, jan5,
                   "Custom Date Range : 6/30/2025 to 6/30/2025"},
        EditorCase{"AppliedCustomCancelledKeepsDates", nullptr, custom, false, jan5, custom},
        EditorCase{"AppliedNamedAsksNothing", nullptr, "Today", true, {}, "Today"},
        EditorCase{"NamedToCustomCancelled",
                   "Last Week",
                   "Custom Date Range",
                   false,
                   {},
                   "Custom Date Range : today to today"},
        EditorCase{"NamedToCustomConfirmed",
                   "Last Week",
                   "Custom Date Range",
                   true,
                   {},
                   "Custom Date Range : 6/30/2025 to 6/30/2025"},
        EditorCase{"CustomChosenAgainKeepsDates", customText, "Custom Date Range", false, jan5,
                   custom},
        EditorCase{"CustomToNamed", customText, "Past 30 days", true, {}, "Past 30 days"}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
} // namespace bravcpl5
