#include "library/ValueRules.h"

#include <cfenv>
#include <cmath>
#include <limits>

namespace bravcpl5::values {

namespace {

bool isBlank(QChar c) { return c == u' ' || c == u'\t' || c == QChar(0xA0); }

// Scans a number in the locale's notation; returns the C-locale text of it and how many
// characters it used, or nothing when no digit was seen.
struct Scan {
    QByteArray plain;
    qsizetype used = 0;
    bool valid = false;
};

Scan scanNumber(const QString &text, qsizetype pos, const QLocale &locale, bool allowGrouping)
{
    const QString decimal = locale.decimalPoint();
    const QString group = locale.groupSeparator();
    Scan s;
    qsizetype i = pos;
    const qsizetype n = text.size();
    if (i < n && (text[i] == u'+' || text[i] == u'-')) {
        if (text[i] == u'-')
            s.plain += '-';
        ++i;
    }
    bool digits = false;
    while (i < n) {
        if (text[i].isDigit() && text[i].unicode() < 128) {
            s.plain += char(text[i].unicode());
            digits = true;
            ++i;
        } else if (allowGrouping && !group.isEmpty() && text.mid(i, group.size()) == group
                   && digits) {
            i += group.size();
        } else {
            break;
        }
    }
    if (!decimal.isEmpty() && text.mid(i, decimal.size()) == decimal) {
        i += decimal.size();
        s.plain += '.';
        while (i < n && text[i].isDigit() && text[i].unicode() < 128) {
            s.plain += char(text[i].unicode());
            digits = true;
            ++i;
        }
    }
    if (!digits)
        return s;
    s.valid = true;
    // An exponent counts only when digits follow it.
    if (i < n && (text[i] == u'e' || text[i] == u'E' || text[i] == u'd' || text[i] == u'D')) {
        qsizetype j = i + 1;
        QByteArray exp = "e";
        if (j < n && (text[j] == u'+' || text[j] == u'-'))
            exp += char(text[j++].unicode());
        const qsizetype start = j;
        while (j < n && text[j].isDigit() && text[j].unicode() < 128)
            exp += char(text[j++].unicode());
        if (j > start) {
            s.plain += exp;
            i = j;
        }
    }
    s.used = i - pos;
    return s;
}

} // namespace

std::optional<double> parseNumber(const QString &text, const QLocale &locale)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && isBlank(text[start]))
        ++start;
    while (end > start && isBlank(text[end - 1]))
        --end;
    if (start == end)
        return std::nullopt;
    const QString body = text.mid(start, end - start);
    const Scan s = scanNumber(body, 0, locale, true);
    if (!s.valid || s.used != body.size())
        return std::nullopt;
    bool ok = false;
    const double value = s.plain.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

bool isNumeric(const QString &text, const QLocale &locale)
{
    return parseNumber(text, locale).has_value();
}

namespace {
template <typename Int> std::optional<Int> roundToInt(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    // nearbyint honours the current rounding mode, which is round-to-nearest-even unless
    // someone changed it; rint-style rounding is what the stored files were written with.
    const int previous = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const double rounded = std::nearbyint(value);
    std::fesetround(previous);
    if (rounded < double(std::numeric_limits<Int>::min())
        || rounded > double(std::numeric_limits<Int>::max()))
        return std::nullopt;
    return Int(rounded);
}
} // namespace

std::optional<std::int16_t> toInt16(double value) { return roundToInt<std::int16_t>(value); }
std::optional<std::int32_t> toInt32(double value) { return roundToInt<std::int32_t>(value); }

std::optional<std::int16_t> textToInt16(const QString &text, const QLocale &locale)
{
    const auto number = parseNumber(text, locale);
    return number ? toInt16(*number) : std::nullopt;
}

std::optional<std::int32_t> textToInt32(const QString &text, const QLocale &locale)
{
    const auto number = parseNumber(text, locale);
    return number ? toInt32(*number) : std::nullopt;
}

std::optional<float> toSingle(double value)
{
    if (!std::isfinite(value) || std::fabs(value) > double(std::numeric_limits<float>::max()))
        return std::nullopt;
    return float(value);
}

std::optional<float> textToSingle(const QString &text, const QLocale &locale)
{
    const auto number = parseNumber(text, locale);
    return number ? toSingle(*number) : std::nullopt;
}

QString singleToText(float value, const QLocale &locale)
{
    // Seven significant digits is what a single holds, and %g drops trailing zeros and
    // switches to an exponent below 1E-04 and from 1E+07 on, as the original does; only
    // the exponent letter differs (1E-05, 1.234568E+07).
    QString text = QString::asprintf("%.7g", double(value));
    text.replace(u'e', u'E');
    const QString decimal = locale.decimalPoint();
    if (decimal != QLatin1String("."))
        text.replace(u'.', decimal);
    return text;
}

QString integerToText(qint64 value) { return QString::number(value); }

QString shortDateFormat(const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

QString toShortDate(const QDate &date, const QLocale &locale)
{
    return date.isValid() ? locale.toString(date, shortDateFormat(locale)) : QString();
}

namespace {

// Typed dates: the order of day, month and year comes from the locale's short format;
// the separators may be any of the usual ones, and digits of any script count.
QDate parseTypedDate(const QString &trimmed, const QLocale &locale)
{
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    QList<QChar> order;
    for (QChar c : format) {
        const QChar lower = c.toLower();
        if ((lower == u'd' || lower == u'm' || lower == u'y') && !order.contains(lower))
            order.append(lower);
    }
    if (order.size() != 3)
        order = {u'm', u'd', u'y'};

    // Code points rather than QChars: some scripts' digits lie outside the BMP.
    const QList<uint> points = trimmed.toUcs4();
    QList<int> parts;
    QList<int> widths;
    qsizetype i = 0;
    while (i < points.size()) {
        if (!QChar::isDigit(char32_t(points[i]))) {
            if (!(points[i] == u'/' || points[i] == u'-' || points[i] == u'.' || points[i] == u' '))
                return {};
            ++i;
            continue;
        }
        int value = 0;
        qsizetype j = i;
        for (; j < points.size() && QChar::isDigit(char32_t(points[j])) && j - i < 9; ++j)
            value = value * 10 + QChar::digitValue(char32_t(points[j]));
        if (j < points.size() && QChar::isDigit(char32_t(points[j])))
            return {}; // longer than any part of a date
        parts.append(value);
        widths.append(int(j - i));
        i = j;
    }
    if (parts.size() != 3)
        return {};
    int day = 0, month = 0, year = 0, yearWidth = 0;
    for (int k = 0; k < 3; ++k) {
        if (order[k] == u'd')
            day = parts[k];
        else if (order[k] == u'm')
            month = parts[k];
        else {
            year = parts[k];
            yearWidth = widths[k];
        }
    }
    if (yearWidth <= 2)
        year += year < 30 ? 2000 : 1900;
    return QDate(year, month, day);
}

} // namespace

QDate parseShortDate(const QString &text, const QLocale &locale)
{
    const QString trimmed = text.trimmed();
    // Digits and separators alone read as typed: what toShortDate wrote in such a locale
    // reads back the same this way, at a tenth of the cost of the locale's own parser.
    if (const QDate typed = parseTypedDate(trimmed, locale); typed.isValid())
        return typed;
    // What toShortDate wrote otherwise reads back exactly, month names and marks included.
    return locale.toDate(trimmed, shortDateFormat(locale));
}

QString variantToText(const QVariant &value, const QLocale &locale)
{
    if (!value.isValid() || value.isNull())
        return QString();
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Float:
        return singleToText(value.toFloat(), locale);
    case QMetaType::Double: {
        const double d = value.toDouble();
        if (d == std::trunc(d) && std::fabs(d) < 1e15)
            return QString::number(qint64(d));
        QString text = QString::number(d, 'g', 15);
        text.replace(u'.', locale.decimalPoint());
        return text;
    }
    case QMetaType::QDate:
        return toShortDate(value.toDate(), locale);
    default:
        return value.toString();
    }
}

double leadingNumber(const QString &text, const QLocale &locale)
{
    qsizetype start = 0;
    while (start < text.size() && isBlank(text[start]))
        ++start;
    const Scan s = scanNumber(text, start, locale, false);
    if (!s.valid)
        return 0.0;
    bool ok = false;
    const double value = s.plain.toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0.0;
}

QString toLongTime(const QTime &time, const QLocale &locale)
{
    // The long format ends in the time zone ("t"), which a local time has no use for.
    QString format = locale.timeFormat(QLocale::LongFormat);
    format.remove(QLatin1Char('t'));
    return locale.toString(time, format.trimmed());
}

QString toGeneralDate(const QDateTime &dateTime, const QLocale &locale)
{
    return toShortDate(dateTime.date(), locale) + QLatin1Char(' ')
           + toLongTime(dateTime.time(), locale);
}

} // namespace bravcpl5::values
