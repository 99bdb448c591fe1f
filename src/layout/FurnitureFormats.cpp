#include "layout/FurnitureFormats.h"

#include "library/ValueRules.h"

namespace bravcpl5 {

namespace {

const QString shortDate = QStringLiteral("Short Date");
const QString longDate = QStringLiteral("Long Date");
const QString mediumDate = QStringLiteral("Medium Date");
const QString generalDate = QStringLiteral("General Date");
const QString shortTime = QStringLiteral("Short Time");
const QString mediumTime = QStringLiteral("Medium Time");
const QString longTime = QStringLiteral("Long Time");

// The 12-hour markers a pattern may hold, longest first; each prints its own kind of text.
struct Marker {
    QLatin1String token;
    QLatin1String am;
    QLatin1String pm;
};
const Marker markers[] = {
    {QLatin1String("AM/PM"), QLatin1String("AM"), QLatin1String("PM")},
    {QLatin1String("am/pm"), QLatin1String("am"), QLatin1String("pm")},
    {QLatin1String("AMPM"), {}, {}}, // the locale's own markers
    {QLatin1String("A/P"), QLatin1String("A"), QLatin1String("P")},
    {QLatin1String("a/p"), QLatin1String("a"), QLatin1String("p")},
};

const Marker *markerAt(const QString &format, qsizetype at)
{
    for (const Marker &marker : markers) {
        if (QStringView(format).mid(at).startsWith(marker.token, Qt::CaseSensitive))
            return &marker;
    }
    return nullptr;
}

bool hasMarker(const QString &format)
{
    for (qsizetype i = 0; i < format.size(); ++i) {
        if (markerAt(format, i))
            return true;
    }
    return false;
}

QString twoDigits(int value) { return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0')); }

// One pass over a pattern; `date` or `time` may be invalid when the pattern does not ask
// for it (a date pattern holding an hour prints midnight).
QString formatPattern(const QString &format, const QDate &date, const QTime &time,
                      const QLocale &locale)
{
    const bool twelveHour = hasMarker(format);
    QString out;
    bool afterHour = false; // "m" right after an hour means minutes
    qsizetype i = 0;
    while (i < format.size()) {
        const QChar c = format.at(i);
        if (const Marker *marker = markerAt(format, i)) {
            const bool pm = time.hour() >= 12;
            if (marker->am.size() == 0)
                out += pm ? locale.pmText() : locale.amText();
            else
                out += pm ? marker->pm : marker->am;
            i += marker->token.size();
            continue;
        }
        if (c == u'"') {
            const qsizetype end = format.indexOf(u'"', i + 1);
            out += format.mid(i + 1, (end < 0 ? format.size() : end) - i - 1);
            i = end < 0 ? format.size() : end + 1;
            continue;
        }
        if (c == u'\\' && i + 1 < format.size()) {
            out += format.at(i + 1);
            i += 2;
            continue;
        }
        const char16_t letter = c.toLower().unicode();
        qsizetype run = 1;
        while (i + run < format.size() && format.at(i + run).toLower() == c.toLower())
            ++run;
        switch (letter) {
        case u'd':
            if (run == 1)
                out += QString::number(date.day());
            else if (run == 2)
                out += twoDigits(date.day());
            else if (run == 3)
                out += locale.dayName(date.dayOfWeek(), QLocale::ShortFormat);
            else
                out += locale.dayName(date.dayOfWeek(), QLocale::LongFormat);
            break;
        case u'm':
            if (afterHour && run <= 2)
                out += run == 1 ? QString::number(time.minute()) : twoDigits(time.minute());
            else if (run == 1)
                out += QString::number(date.month());
            else if (run == 2)
                out += twoDigits(date.month());
            else if (run == 3)
                out += locale.monthName(date.month(), QLocale::ShortFormat);
            else
                out += locale.monthName(date.month(), QLocale::LongFormat);
            break;
        case u'y':
            out += run <= 2 ? twoDigits(date.year() % 100) : QString::number(date.year());
            break;
        case u'h': {
            int hour = time.hour();
            if (twelveHour)
                hour = hour % 12 == 0 ? 12 : hour % 12;
            out += run == 1 ? QString::number(hour) : twoDigits(hour);
            break;
        }
        case u'n':
            out += run == 1 ? QString::number(time.minute()) : twoDigits(time.minute());
            break;
        case u's':
            out += run == 1 ? QString::number(time.second()) : twoDigits(time.second());
            break;
        default:
            out += format.mid(i, run);
        }
        if (letter == u'h')
            afterHour = true;
        else if (letter != u':' && letter != u' ')
            afterHour = false;
        i += run;
    }
    return out;
}

} // namespace

QStringList PrintDateFormats()
{
    return {shortDate,
            longDate,
            mediumDate,
            generalDate,
            QStringLiteral("mm/dd/yyyy"),
            QStringLiteral("dd/mm/yyyy"),
            QStringLiteral("yyyy-mm-dd"),
            QStringLiteral("mmmm d, yyyy"),
            QStringLiteral("dddd, mmmm d, yyyy")};
}

QStringList PrintTimeFormats()
{
    return {shortTime,
            mediumTime,
            longTime,
            QStringLiteral("h:nn AM/PM"),
            QStringLiteral("hh:nn"),
            QStringLiteral("hh:nn:ss")};
}

QString FormatPrintDate(const QString &format, const QDate &date, const QLocale &locale)
{
    if (format.isEmpty() || format.compare(shortDate, Qt::CaseInsensitive) == 0
        || format.compare(generalDate, Qt::CaseInsensitive) == 0)
        return values::toShortDate(date, locale);
    if (format.compare(longDate, Qt::CaseInsensitive) == 0)
        return locale.toString(date, QLocale::LongFormat);
    if (format.compare(mediumDate, Qt::CaseInsensitive) == 0)
        return formatPattern(QStringLiteral("dd-mmm-yy"), date, QTime(0, 0), locale);
    return formatPattern(format, date, QTime(0, 0), locale);
}

QString FormatPrintTime(const QString &format, const QTime &time, const QLocale &locale)
{
    if (format.isEmpty() || format.compare(shortTime, Qt::CaseInsensitive) == 0)
        return formatPattern(QStringLiteral("hh:nn"), QDate(), time, locale);
    if (format.compare(mediumTime, Qt::CaseInsensitive) == 0)
        return formatPattern(QStringLiteral("hh:nn AMPM"), QDate(), time, locale);
    if (format.compare(longTime, Qt::CaseInsensitive) == 0)
        return values::toLongTime(time, locale);
    return formatPattern(format, QDate(), time, locale);
}

QString FormatPageNumber(const QString &format, int page, int pageCount)
{
    QString text = format.isEmpty() ? QStringLiteral("Page nnn of mmm") : format;
    text.replace(QLatin1String("nnnn"), QString::number(page));
    text.replace(QLatin1String("nnn"), QString::number(page));
    return text.replace(QLatin1String("mmm"), QString::number(pageCount));
}

} // namespace bravcpl5
