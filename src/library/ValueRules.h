#pragma once

// The value rules of the platform the settings files were first written on. Every
// conversion between stored text and numbers or dates goes through here, so that a file
// reads the same wherever it is opened; do not re-derive these rules elsewhere.

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QVariant>
#include <cstdint>
#include <optional>

namespace bravcpl5::values {

// The locale-aware "is numeric" test, returning the number when it passes: blanks around
// the number, a leading sign, the locale's grouping separators in the whole part, its
// decimal separator, and an exponent (E or D) are accepted. Empty text is not numeric.
std::optional<double> parseNumber(const QString &text, const QLocale &locale = QLocale());
bool isNumeric(const QString &text, const QLocale &locale = QLocale());

// Whole-number conversions round halves to the even neighbour (12.5 -> 12, 13.5 -> 14)
// and fail (nullopt) when the rounded value does not fit.
std::optional<std::int16_t> toInt16(double value);
std::optional<std::int32_t> toInt32(double value);
std::optional<std::int16_t> textToInt16(const QString &text, const QLocale &locale = QLocale());
std::optional<std::int32_t> textToInt32(const QString &text, const QLocale &locale = QLocale());

// Single precision; fails when the value is beyond the single range.
std::optional<float> toSingle(double value);
std::optional<float> textToSingle(const QString &text, const QLocale &locale = QLocale());

// The shortest decimal text of a single, up to seven significant digits, with the
// locale's decimal separator and a leading zero: 1.5, 0.125, 64, 1E-05, 1.234568E+07.
QString singleToText(float value, const QLocale &locale = QLocale());
QString integerToText(qint64 value);

// Short dates: the locale's short date order with a four-digit year (1/5/2024 in en_US).
QString shortDateFormat(const QLocale &locale = QLocale());
QString toShortDate(const QDate &date, const QLocale &locale = QLocale());
// Reads a date as the original platform did: three numbers, or two and a month name (in
// the locale's language or in English), in the locale's short date order, and when that
// makes no date, month-day-year, day-month-year or year-month-day; so 3/31/2024 is 31 March
// everywhere, and an ambiguous 3/4/2024 reads in the locale's order. Two-digit years fall
// in 1930-2029. An invalid QDate when the text is no date in any of these orders.
QDate parseShortDate(const QString &text, const QLocale &locale = QLocale());

// The locale's long time without a time zone (1:05:09 PM in en_US), and the general date
// form: the short date, then the long time.
QString toLongTime(const QTime &time, const QLocale &locale = QLocale());
QString toGeneralDate(const QDateTime &dateTime, const QLocale &locale = QLocale());

// Text of a value returned by a late-bound call: booleans as True/False, singles and
// doubles by the rules above, invalid values as empty text.
QString variantToText(const QVariant &value, const QLocale &locale = QLocale());

// The leading number of a text (" 2.5in" -> 2.5, "abc" -> 0), as the preview reads fields.
double leadingNumber(const QString &text, const QLocale &locale = QLocale());

} // namespace bravcpl5::values
