#include "filters/DateRanges.h"

#include <QDate>
#include <gtest/gtest.h>
#include <ostream>

namespace bravcpl5 {
namespace {

struct FormatCase {
    const char *name;
    QString templ;
    QVariantList args;
    QString expected;
};

void PrintTo(const FormatCase &c, std::ostream *os) { *os << c.name; }

class FormatStringTest : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatStringTest, ReplacesPlaceholders)
{
    EXPECT_EQ(FormatString(GetParam().templ, GetParam().args), GetParam().expected);
}

QVariantList numbered(int count)
{
    QVariantList args;
    for (int i = 0; i < count; ++i)
        args.append(QStringLiteral("a%1").arg(i));
    return args;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FormatStringTest,
    ::testing::Values(
        FormatCase{"Reordered", "{1}-{0}-{1}", {"a", "b"}, "b-a-b"},
        FormatCase{"MissingArgumentStays", "{0} {2}", {"a", "b"}, "a {2}"},
        FormatCase{"SixteenIsTheLast", "{16}/{17}", numbered(18), "a16/{17}"},
        FormatCase{"TwoDigitsAreNotOneDigitPlusText", "{1}{10}", numbered(11), "a1a10"},
        FormatCase{"LaterPassSeesEarlierArgument", "{0}", {"{1}", "x"}, "x"},
        FormatCase{"EarlierPassDoesNotSeeLaterArgument", "{1}", {"x", "{0}"}, "{0}"},
        FormatCase{"CaseAndBlanksMatter", "{ 0}{0 }", {"a"}, "{ 0}{0 }"},
        FormatCase{"NumbersAsText", "{0}:{1}", {7, 2.5}, "7:2.5"}),
    [](const auto &info) { return std::string(info.param.name); });

struct ParseCase {
    const char *name;
    QString text;
    QDate start; // invalid: today
    QDate end;
};

void PrintTo(const ParseCase &c, std::ostream *os) { *os << c.name; }

class ParseCustomDateRangeTest : public ::testing::TestWithParam<ParseCase> {};

TEST_P(ParseCustomDateRangeTest, ReadsBothDates)
{
    const QDate today = QDate::currentDate();
    QDate start(2000, 1, 1), end(2000, 1, 1);
    ParseCustomDateRange(GetParam().text, start, end);
    EXPECT_EQ(start, GetParam().start.isValid() ? GetParam().start : today);
    EXPECT_EQ(end, GetParam().end.isValid() ? GetParam().end : today);
}

const QDate jan5(2024, 1, 5);
const QDate feb5(2024, 2, 5);

INSTANTIATE_TEST_SUITE_P(
    Cases, ParseCustomDateRangeTest,
    ::testing::Values(
        ParseCase{"AsWritten", "Custom Date Range : 1/5/2024 to 2/5/2024", jan5, feb5},
        ParseCase{"LowerCase", "custom date range : 1/5/2024 to 2/5/2024", jan5, feb5},
        ParseCase{"NoBlankBeforeColon", "Custom Date Range: 1/5/2024 to 2/5/2024", jan5, feb5},
        ParseCase{"PaddedAndTwoDigitYears", "Custom Date Range : 01/05/24 to 02/05/24", jan5, feb5},
        ParseCase{"StartAfterEndKept", "Custom Date Range : 2/5/2024 to 1/5/2024", feb5, jan5},
        ParseCase{"NameAlone", "Custom Date Range", {}, {}},
        ParseCase{"Empty", "", {}, {}},
        ParseCase{"ThreeParts", "Custom Date Range : 1/5/2024 to 2/5/2024 to 3/5/2024", {}, {}},
        ParseCase{"UnreadableStart", "Custom Date Range : soon to 2/5/2024", {}, feb5},
        ParseCase{"UnreadableEnd", "Custom Date Range : 1/5/2024 to 2/30/2024", jan5, {}},
        ParseCase{"ZeroDateIsNotGiven", "Custom Date Range : 12/30/1899 to 12/30/1899", {}, {}}),
    [](const auto &info) { return std::string(info.param.name); });

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
