#include "library/ValueRules.h"

#include <gtest/gtest.h>

using namespace bravcpl5::values;

namespace {

const QLocale us(QLocale::English, QLocale::UnitedStates);
const QLocale de(QLocale::German, QLocale::Germany);

struct NumericCase {
    const char *text;
    bool german;
    bool numeric;
    double value;
};

void PrintTo(const NumericCase &c, std::ostream *os) { *os << '"' << c.text << '"'; }

class NumericTest : public ::testing::TestWithParam<NumericCase> {};

TEST_P(NumericTest, ParsesLikeThePlatform)
{
    const NumericCase &c = GetParam();
    const auto number = parseNumber(QString::fromUtf8(c.text), c.german ? de : us);
    ASSERT_EQ(number.has_value(), c.numeric) << c.text;
    if (c.numeric) {
        EXPECT_DOUBLE_EQ(*number, c.value) << c.text;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, NumericTest, ::testing::Values(
    NumericCase{"12", false, true, 12}, NumericCase{"  12.5 ", false, true, 12.5},
    NumericCase{"-3", false, true, -3}, NumericCase{"+.125", false, true, 0.125},
    NumericCase{"5.", false, true, 5}, NumericCase{"1,234.5", false, true, 1234.5},
    NumericCase{"1E3", false, true, 1000}, NumericCase{"2.5e-1", false, true, 0.25},
    NumericCase{"1D2", false, true, 100}, NumericCase{"12,5", true, true, 12.5},
    NumericCase{"1.234,5", true, true, 1234.5}, NumericCase{"", false, false, 0},
    NumericCase{"   ", false, false, 0}, NumericCase{".", false, false, 0},
    NumericCase{"abc", false, false, 0}, NumericCase{"12abc", false, false, 0},
    NumericCase{"1 2", false, false, 0}, NumericCase{"--1", false, false, 0},
    NumericCase{",5", false, false, 0}, NumericCase{"1E", false, false, 0}));

struct RoundCase {
    double value;
    bool fits;
    int expected;
};

void PrintTo(const RoundCase &c, std::ostream *os) { *os << c.value; }

class Int16Test : public ::testing::TestWithParam<RoundCase> {};

TEST_P(Int16Test, RoundsHalvesToEvenAndFailsOnOverflow)
{
    const RoundCase &c = GetParam();
    const auto result = toInt16(c.value);
    ASSERT_EQ(result.has_value(), c.fits) << c.value;
    if (c.fits) {
        EXPECT_EQ(*result, c.expected) << c.value;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Int16Test, ::testing::Values(
    RoundCase{12.5, true, 12}, RoundCase{13.5, true, 14}, RoundCase{2.6, true, 3},
    RoundCase{-2.5, true, -2}, RoundCase{-3.5, true, -4}, RoundCase{0.4999, true, 0},
    RoundCase{32767, true, 32767}, RoundCase{32767.5, false, 0}, RoundCase{-32768, true, -32768},
    RoundCase{-32768.6, false, 0}, RoundCase{70000, false, 0}));

TEST(ValueRules, Int32HasTheWiderRange)
{
    EXPECT_EQ(toInt32(70000.5), 70000);
    EXPECT_FALSE(toInt32(3e9).has_value());
    EXPECT_EQ(textToInt32(QStringLiteral("10.5"), us), 10);
    EXPECT_FALSE(textToInt32(QStringLiteral("abc"), us).has_value());
}

TEST(ValueRules, SinglesFailBeyondTheirRange)
{
    EXPECT_FALSE(toSingle(1e39).has_value());
    EXPECT_FLOAT_EQ(*textToSingle(QStringLiteral("0.1"), us), 0.1f);
}

struct SingleTextCase {
    float value;
    const char *us;
    const char *de;
};

void PrintTo(const SingleTextCase &c, std::ostream *os) { *os << c.us; }

class SingleTextTest : public ::testing::TestWithParam<SingleTextCase> {};

TEST_P(SingleTextTest, IsTheShortestText)
{
    const SingleTextCase &c = GetParam();
    EXPECT_EQ(singleToText(c.value, us), QString::fromUtf8(c.us));
    EXPECT_EQ(singleToText(c.value, de), QString::fromUtf8(c.de));
}

INSTANTIATE_TEST_SUITE_P(Table, SingleTextTest, ::testing::Values(
    SingleTextCase{1.5f, "1.5", "1,5"}, SingleTextCase{0.125f, "0.125", "0,125"},
    SingleTextCase{64.0f, "64", "64"}, SingleTextCase{0.0f, "0", "0"},
    SingleTextCase{0.1f, "0.1", "0,1"}, SingleTextCase{0.1f + 0.2f, "0.3", "0,3"},
    SingleTextCase{63.95f + 0.1f, "64.05", "64,05"}, SingleTextCase{-0.5f, "-0.5", "-0,5"},
    SingleTextCase{1.0f / 3.0f, "0.3333333", "0,3333333"},
    SingleTextCase{0.0001f, "0.0001", "0,0001"}, SingleTextCase{0.00001f, "1E-05", "1E-05"},
    SingleTextCase{12345678.0f, "1.234568E+07", "1,234568E+07"},
    SingleTextCase{1234567.0f, "1234567", "1234567"}));

TEST(ValueRules, ShortDatesHaveFourDigitYearsInTheLocaleOrder)
{
    const QDate date(2024, 1, 5);
    EXPECT_EQ(toShortDate(date, us), QStringLiteral("1/5/2024"));
    EXPECT_EQ(toShortDate(date, de), QStringLiteral("05.01.2024"));
    EXPECT_EQ(toShortDate(QDate(), us), QString());
}

TEST(ValueRules, ShortDatesParseInTheLocaleOrder)
{
    EXPECT_EQ(parseShortDate(QStringLiteral("1/5/2024"), us), QDate(2024, 1, 5));
    EXPECT_EQ(parseShortDate(QStringLiteral(" 12/31/99 "), us), QDate(1999, 12, 31));
    EXPECT_EQ(parseShortDate(QStringLiteral("2/3/05"), us), QDate(2005, 2, 3));
    EXPECT_EQ(parseShortDate(QStringLiteral("05.01.2024"), de), QDate(2024, 1, 5));
    EXPECT_FALSE(parseShortDate(QStringLiteral("2/30/2024"), us).isValid());
    EXPECT_FALSE(parseShortDate(QStringLiteral("1/5"), us).isValid());
    EXPECT_FALSE(parseShortDate(QStringLiteral("  /  /    "), us).isValid());
    EXPECT_FALSE(parseShortDate(QStringLiteral("tomorrow"), us).isValid());
}

TEST(ValueRules, VariantTextFollowsThePlatform)
{
    EXPECT_EQ(variantToText(QVariant(true), us), QStringLiteral("True"));
    EXPECT_EQ(variantToText(QVariant(2.0), us), QStringLiteral("2"));
    EXPECT_EQ(variantToText(QVariant(1.5f), de), QStringLiteral("1,5"));
    EXPECT_EQ(variantToText(QVariant(), us), QString());
    EXPECT_EQ(variantToText(QVariant(QStringLiteral("x")), us), QStringLiteral("x"));
}

TEST(ValueRules, LeadingNumberReadsWhatAFieldStartsWith)
{
    EXPECT_DOUBLE_EQ(leadingNumber(QStringLiteral(" 2.5in"), us), 2.5);
    EXPECT_DOUBLE_EQ(leadingNumber(QStringLiteral("abc"), us), 0.0);
    EXPECT_DOUBLE_EQ(leadingNumber(QStringLiteral(".5"), us), 0.5);
}

} // namespace
