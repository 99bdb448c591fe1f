#include "library/ValueRules.h"

#include <gtest/gtest.h>
#include <optional>

using namespace bravcpl5::values;

namespace {

const QLocale us(QLocale::English, QLocale::UnitedStates);
const QLocale de(QLocale::German, QLocale::Germany);

TEST(ValueRules, NumbersParseLikeThePlatform)
{
    const std::tuple<const char *, const QLocale &, std::optional<double>> cases[] = {
        {"12", us, 12},   {"  12.5 ", us, 12.5},   {"-3", us, -3},          {"+.125", us, 0.125},
        {"5.", us, 5},    {"1,234.5", us, 1234.5}, {"1E3", us, 1000},       {"2.5e-1", us, 0.25},
        {"1D2", us, 100}, {"12,5", de, 12.5},      {"1.234,5", de, 1234.5}, {"", us, {}},
        {"   ", us, {}},  {".", us, {}},           {"abc", us, {}},         {"12abc", us, {}},
        {"1 2", us, {}},  {"--1", us, {}},         {",5", us, {}},          {"1E", us, {}}};
    for (const auto &[text, locale, value] : cases)
        EXPECT_EQ(parseNumber(QString::fromUtf8(text), locale), value) << '"' << text << '"';
}

// Halves go to the even neighbour; what does not fit fails.
TEST(ValueRules, Int16RoundsHalvesToEvenAndFailsOnOverflow)
{
    const std::pair<double, std::optional<int>> cases[] = {
        {12.5, 12},     {13.5, 14},    {2.6, 3},         {-2.5, -2},     {-3.5, -4}, {0.4999, 0},
        {32767, 32767}, {32767.5, {}}, {-32768, -32768}, {-32768.6, {}}, {70000, {}}};
    for (const auto &[value, expected] : cases) {
        const auto result = toInt16(value);
        EXPECT_EQ(result ? std::optional<int>(*result) : std::nullopt, expected) << value;
    }
}

TEST(ValueRules, Int32AndSinglesHaveTheirOwnRanges)
{
    EXPECT_EQ(toInt32(70000.5), 70000);
    EXPECT_FALSE(toInt32(3e9).has_value());
    EXPECT_EQ(textToInt32(QStringLiteral("10.5"), us), 10);
    EXPECT_FALSE(textToInt32(QStringLiteral("abc"), us).has_value());
    EXPECT_FALSE(toSingle(1e39).has_value());
    EXPECT_FLOAT_EQ(*textToSingle(QStringLiteral("0.1"), us), 0.1f);
}

TEST(ValueRules, SingleTextIsTheShortest)
{
    const std::tuple<float, const char *, const char *> cases[] = {
        {1.5f, "1.5", "1,5"},
        {0.125f, "0.125", "0,125"},
        {64.0f, "64", "64"},
        {0.0f, "0", "0"},
        {0.1f, "0.1", "0,1"},
        {0.1f + 0.2f, "0.3", "0,3"},
        {63.95f + 0.1f, "64.05", "64,05"},
        {-0.5f, "-0.5", "-0,5"},
        {1.0f / 3.0f, "0.3333333", "0,3333333"},
        {0.0001f, "0.0001", "0,0001"},
        {0.00001f, "1E-05", "1E-05"},
        {12345678.0f, "1.234568E+07", "1,234568E+07"},
        {1234567.0f, "1234567", "1234567"}};
    for (const auto &[value, inUs, inDe] : cases) {
        EXPECT_EQ(singleToText(value, us), QString::fromUtf8(inUs));
        EXPECT_EQ(singleToText(value, de), QString::fromUtf8(inDe));
    }
}

TEST(ValueRules, ShortDatesHaveFourDigitYearsAndParseInTheLocaleOrder)
{
    EXPECT_EQ(toShortDate(QDate(2024, 1, 5), us), QStringLiteral("1/5/2024"));
    EXPECT_EQ(toShortDate(QDate(2024, 1, 5), de), QStringLiteral("05.01.2024"));
    EXPECT_EQ(toShortDate(QDate(), us), QString());
    const std::tuple<const char *, const QLocale &, QDate> cases[] = {
        {"1/5/2024", us, QDate(2024, 1, 5)}, {" 12/31/99 ", us, QDate(1999, 12, 31)},
        {"2/3/05", us, QDate(2005, 2, 3)},   {"05.01.2024", de, QDate(2024, 1, 5)},
        {"2/30/2024", us, QDate()},          {"1/5", us, QDate()},
        {"  /  /    ", us, QDate()},         {"tomorrow", us, QDate()}};
    for (const auto &[text, locale, date] : cases)
        EXPECT_EQ(parseShortDate(QString::fromUtf8(text), locale), date) << text;
}

// Every date the value rules write, they read back, in every locale Qt knows: month and
// year ends, a leap day, both centuries, with the locale's own month names and digits.
TEST(ValueRules, ShortDatesReadBackInEveryLocale)
{
    const QDate dates[] = {QDate(2024, 1, 31),  QDate(2024, 2, 29), QDate(2023, 12, 31),
                           QDate(1999, 12, 31), QDate(2030, 6, 1),  QDate(2024, 3, 1)};
    const QList<QLocale> locales = QLocale::matchingLocales(
        QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_GT(locales.size(), 300);
    QStringList failures;
    for (const QLocale &locale : locales) {
        for (const QDate &date : dates) {
            const QString text = toShortDate(date, locale);
            if (parseShortDate(text, locale) != date)
                failures << locale.name() + ": " + text;
        }
    }
    EXPECT_TRUE(failures.isEmpty())
        << failures.size() << " failures, e.g. " << failures.mid(0, 10).join(" | ").toStdString();
    // The C locale writes month names; Arabic in Egypt its own digits.
    EXPECT_EQ(toShortDate(QDate(2024, 3, 1), QLocale::c()), QStringLiteral("1 Mar 2024"));
    EXPECT_EQ(parseShortDate(QStringLiteral("١/٣/٢٠٢٤"), QLocale(QLocale::Arabic, QLocale::Egypt)),
              QDate(2024, 3, 1));
}

// Switches the default locale, as a user's regional settings do, for one scope.
class DefaultLocale
{
public:
    explicit DefaultLocale(const QLocale &locale) { QLocale::setDefault(locale); }
    ~DefaultLocale() { QLocale::setDefault(previous); }
    DefaultLocale(const DefaultLocale &) = delete;
    DefaultLocale &operator=(const DefaultLocale &) = delete;

private:
    const QLocale previous;
};

const char *const userLocales[] = {"C", "en_US", "de_DE", "ja_JP", "ar_EG"};

// A file written under one locale and read under another keeps its dates whenever only one
// order of day, month and year makes sense of them: month and year ends, a leap day, days
// above 12, month names and other scripts' digits.
TEST(ValueRules, ShortDatesWrittenInOneLocaleReadTheSameInEveryOther)
{
    const QDate dates[] = {QDate(2024, 1, 31),  QDate(2024, 2, 29),  QDate(2023, 12, 31),
                           QDate(2024, 3, 31),  QDate(2024, 4, 30),  QDate(2024, 12, 13),
                           QDate(1999, 12, 31), QDate(2030, 11, 30), QDate(2024, 7, 7)};
    QStringList failures;
    for (const char *writer : userLocales) {
        for (const QDate &date : dates) {
            QString text;
            {
                const DefaultLocale writing{QLocale(QString::fromLatin1(writer))};
                text = toShortDate(date);
            }
            for (const char *reader : userLocales) {
                const DefaultLocale reading{QLocale(QString::fromLatin1(reader))};
                if (const QDate read = parseShortDate(text); read != date)
                    failures << QStringLiteral("%1 -> %2: %3 read as %4")
                                    .arg(writer, reader, text, read.toString(Qt::ISODate));
            }
        }
    }
    EXPECT_TRUE(failures.isEmpty())
        << failures.size() << " failures, e.g. " << failures.mid(0, 8).join(" | ").toStdString();
    EXPECT_EQ(QLocale(), us) << "the default locale is restored";
}

// Text no one's short date wrote: the locale's order first, then month-day-year,
// day-month-year and year-month-day; month names in English and in the locale.
TEST(ValueRules, ShortDatesReadLenientlyInTheLocaleOrderFirst)
{
    const QDate mar4(2024, 3, 4), apr3(2024, 4, 3), mar31(2024, 3, 31);
    const std::tuple<const char *, const char *, QDate> cases[] = {
        // locale, text, date
        {"en_US", "3/4/2024", mar4},
        {"C", "3/4/2024", apr3},
        {"de_DE", "3/4/2024", apr3},
        {"ar_EG", "3/4/2024", apr3},
        {"ja_JP", "3/4/2024", mar4},
        {"ja_JP", "24/3/4", mar4},
        {"en_US", "31.3.2024", mar31},
        {"en_US", "2024-03-31", mar31},
        {"de_DE", "2024-03-31", mar31},
        {"de_DE", "March 31, 2024", mar31},
        {"ja_JP", "31 mar 2024", mar31},
        {"de_DE", "31. März 2024", mar31},
        {"de_DE", "4 Mär 2024", mar4},
        {"en_US", "4-MAR-24", mar4},
        {"C", "١٣/١٢/٢٠٢٤", QDate(2024, 12, 13)},
        {"en_US", "2/30/2024", QDate()},
        {"de_DE", "13/13/2024", QDate()},
        {"C", "31 Foo 2024", QDate()},
        {"en_US", "March 2024", QDate()},
        {"en_US", "1/5/2024 3", QDate()},
        {"en_US", "1/5/2024 $", QDate()},
        {"en_US", "March April 1 2024", QDate()}};
    for (const auto &[name, text, date] : cases) {
        const DefaultLocale reading{QLocale(QString::fromLatin1(name))};
        const QDate read = parseShortDate(QString::fromUtf8(text));
        EXPECT_EQ(read, date) << name << ": " << text << " read as "
                              << read.toString(Qt::ISODate).toStdString();
    }
}

TEST(ValueRules, VariantTextAndLeadingNumbersFollowThePlatform)
{
    EXPECT_EQ(variantToText(QVariant(true), us), QStringLiteral("True"));
    EXPECT_EQ(variantToText(QVariant(2.0), us), QStringLiteral("2"));
    EXPECT_EQ(variantToText(QVariant(1.5f), de), QStringLiteral("1,5"));
    EXPECT_EQ(variantToText(QVariant(), us), QString());
    EXPECT_EQ(variantToText(QVariant(QStringLiteral("x")), us), QStringLiteral("x"));
    EXPECT_DOUBLE_EQ(leadingNumber(QStringLiteral(" 2.5in"), us), 2.5);
    EXPECT_DOUBLE_EQ(leadingNumber(QStringLiteral("abc"), us), 0.0);
    EXPECT_DOUBLE_EQ(leadingNumber(QStringLiteral(".5"), us), 0.5);
}

} // namespace
