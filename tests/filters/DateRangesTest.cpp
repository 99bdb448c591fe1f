#include "filters/DateRanges.h"
#include "support/QtPrinters.h"

#include <QDate>
#include <gtest/gtest.h>
#include <tuple>

namespace bravcpl5 {
namespace {

QVariantList numbered(int count)
{
    QVariantList args;
    for (int i = 0; i < count; ++i)
        args.append(QStringLiteral("a%1").arg(i));
    return args;
}

TEST(FormatString, ReplacesPlaceholders)
{
    const std::tuple<const char *, QString, QVariantList, QString> cases[] = {
        // name, template, arguments, result
        {"Reordered", "{1}-{0}-{1}", {"a", "b"}, "b-a-b"},
        {"MissingArgumentStays", "{0} {2}", {"a", "b"}, "a {2}"},
        {"SixteenIsTheLast", "{16}/{17}", numbered(18), "a16/{17}"},
        {"TwoDigitsAreNotOneDigitPlusText", "{1}{10}", numbered(11), "a1a10"},
        {"LaterPassSeesEarlierArgument", "{0}", {"{1}", "x"}, "x"},
        {"EarlierPassDoesNotSeeLaterArgument", "{1}", {"x", "{0}"}, "{0}"},
        {"CaseAndBlanksMatter", "{ 0}{0 }", {"a"}, "{ 0}{0 }"},
        {"NumbersAsText", "{0}:{1}", {7, 2.5}, "7:2.5"}};
    for (const auto &[name, templ, args, expected] : cases)
        EXPECT_EQ(FormatString(templ, args), expected) << name;
}

TEST(ParseCustomDateRange, ReadsBothDates)
{
    const QDate today = QDate::currentDate(), jan5(2024, 1, 5), feb5(2024, 2, 5);
    const std::tuple<const char *, QString, QDate, QDate> cases[] = {
        // name, text, start, end
        {"AsWritten", "Custom Date Range : 1/5/2024 to 2/5/2024", jan5, feb5},
        {"LowerCase", "custom date range : 1/5/2024 to 2/5/2024", jan5, feb5},
        {"NoBlankBeforeColon", "Custom Date Range: 1/5/2024 to 2/5/2024", jan5, feb5},
        {"PaddedAndTwoDigitYears", "Custom Date Range : 01/05/24 to 02/05/24", jan5, feb5},
        {"StartAfterEndKept", "Custom Date Range : 2/5/2024 to 1/5/2024", feb5, jan5},
        {"NameAlone", "Custom Date Range", today, today},
        {"Empty", "", today, today},
        {"ThreeParts", "Custom Date Range : 1/5/2024 to 2/5/2024 to 3/5/2024", today, today},
        {"UnreadableStart", "Custom Date Range : soon to 2/5/2024", today, feb5},
        {"UnreadableEnd", "Custom Date Range : 1/5/2024 to 2/30/2024", jan5, today},
        {"ZeroDateIsNotGiven", "Custom Date Range : 12/30/1899 to 12/30/1899", today, today}};
    for (const auto &[name, text, expectedStart, expectedEnd] : cases) {
        QDate start(2000, 1, 1), end(2000, 1, 1);
        ParseCustomDateRange(text, start, end);
        EXPECT_EQ(start, expectedStart) << name;
        EXPECT_EQ(end, expectedEnd) << name;
    }
}

// Read back by the "AsWritten" case above.
TEST(CustomDateRangeText, ShortDatesWithFourDigitYears)
{
    EXPECT_EQ(CustomDateRangeText(QDate(2024, 3, 1), QDate(2031, 12, 31)),
              QStringLiteral("Custom Date Range : 3/1/2024 to 12/31/2031"));
}

TEST(IsCustomDateRange, PrefixIsCaseSensitive)
{
    EXPECT_TRUE(IsCustomDateRange(QStringLiteral("Custom Date Range : 1/5/2024 to 2/5/2024")));
    EXPECT_TRUE(IsCustomDateRange(QStringLiteral("Custom Date Range")));
    EXPECT_FALSE(IsCustomDateRange(QStringLiteral("custom date range : 1/5/2024 to 2/5/2024")));
    EXPECT_FALSE(IsCustomDateRange(QStringLiteral(" Custom Date Range")));
}

} // namespace
} // namespace bravcpl5
