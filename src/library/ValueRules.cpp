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

// A date text taken apart: its numbers, with how many digits each was written with, and
// the month it names in words (0 when it names none).
struct DateParts {
    QList<int> numbers;
    QList<qsizetype> widths;
    int namedMonth = 0;
};

bool sameName(const QString &word, const QString &name)
{
    QString letters;
    for (QChar c : name) {
        if (c.isLetter() || c.isMark())
            letters += c;
    }
    return !letters.isEmpty() && word.compare(letters, Qt::CaseInsensitive) == 0;
}

// The month a word names, long or short, in any case and without an abbreviation's dot:
// the locale's own names first, then the English ones that files are so often written with.
int monthNamed(const QString &word, const QLocale &locale)
{
    static const QLocale english(QLocale::English, QLocale::UnitedStates);
    for (const QLocale &names : {locale, english}) {
        for (int month = 1; month <= 12; ++month) {
            for (const QLocale::FormatType type : {QLocale::LongFormat, QLocale::ShortFormat}) {
                if (sameName(word, names.monthName(month, type))
                    || sameName(word, names.standaloneMonthName(month, type)))
                    return month;
            }
        }
    }
    return 0;
}

// Numbers (digits of any script; code points, as some scripts' digits lie outside the
// BMP) and at most one month name, between blanks, punctuation and direction marks.
// Nothing when anything else is in the text or the parts are not three.
std::optional<DateParts> splitDate(const QString &text, const QLocale &locale)
{
    const QList<uint> points = text.toUcs4();
    DateParts parts;
    qsizetype i = 0;
    while (i < points.size()) {
        const char32_t c = points[i];
        qsizetype j = i + 1;
        if (QChar::isDigit(c)) {
            int value = QChar::digitValue(c);
            for (; j < points.size() && QChar::isDigit(char32_t(points[j])); ++j) {
                if (j - i == 9)
                    return std::nullopt; // longer than any part of a date
                value = value * 10 + QChar::digitValue(char32_t(points[j]));
            }
            parts.numbers.append(value);
            parts.widths.append(j - i);
        } else if (QChar::isLetter(c)) {
            while (j < points.size()
                   && (QChar::isLetter(char32_t(points[j])) || QChar::isMark(char32_t(points[j]))))
                ++j;
            if (parts.namedMonth != 0)
                return std::nullopt;
            parts.namedMonth = monthNamed(
                QString::fromUcs4(reinterpret_cast<const char32_t *>(points.constData()) + i,
                                  j - i),
                locale);
            if (parts.namedMonth == 0)
                return std::nullopt;
        } else if (!QChar::isSpace(c) && !QChar::isPunct(c)
                   && QChar::category(c) != QChar::Other_Format) {
            return std::nullopt;
        }
        i = j;
    }
    if (parts.numbers.size() != (parts.namedMonth != 0 ? 2 : 3))
        return std::nullopt;
    return parts;
}

// The order of day, month and year in the locale's short format, as "dmy".
QString localeOrder(const QLocale &locale)
{
    QString order;
    for (QChar c : locale.dateFormat(QLocale::ShortFormat)) {
        const QChar lower = c.toLower();
        if ((lower == u'd' || lower == u'm' || lower == u'y') && !order.contains(lower))
            order += lower;
    }
    return order.size() == 3 ? order : QStringLiteral("mdy");
}

// The parts read in one order; a named month takes no number. Two-digit years fall in
// 1930-2029.
QDate dateInOrder(const DateParts &parts, QStringView order)
{
    int day = 0, month = parts.namedMonth, year = 0;
    qsizetype yearWidth = 0, next = 0;
    for (const QChar field : order) {
        if (field == u'm' && parts.namedMonth != 0)
            continue;
        const int value = parts.numbers[next];
        if (field == u'd') {
            day = value;
        } else if (field == u'm') {
            month = value;
        } else {
            year = value;
            yearWidth = parts.widths[next];
        }
        ++next;
    }
    if (yearWidth <= 2)
        year += year < 30 ? 2000 : 1900;
    return QDate(year, month, day);
}

} // namespace

QDate parseShortDate(const QString &text, const QLocale &locale)
{
    const QString trimmed = text.trimmed();
    // The locale's order first; when it makes no date of the parts (a "month" above 12),
    // the other orders, as the platform the files were first written on did. So a date
    // written under another locale reads as the same day unless it is ambiguous, and an
    // ambiguous one reads in this locale's order.
    if (const auto parts = splitDate(trimmed, locale)) {
        for (const QString &order : {localeOrder(locale), QStringLiteral("mdy"),
                                     QStringLiteral("dmy"), QStringLiteral("ymd")}) {
            if (const QDate date = dateInOrder(*parts, order); date.isValid())
                return date;
        }
    }
    // What toShortDate wrote with other words in it (a year mark, say) reads back exactly.
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
