#include "filters/DateRanges.h"

#include "library/ValueRules.h"

namespace bravcpl5 {

namespace {

constexpr int lastPlaceholder = 16;

// The date whose serial value is 0; a part reading as it counts as not given.
const QDate zeroDate(1899, 12, 30);

QDate readDatePart(const QString &part)
{
    const QDate date = values::parseShortDate(part.trimmed());
    return date.isValid() && date != zeroDate ? date : QDate();
}

} // namespace

QStringList DateRangeChoices()
{
    // The order is the one users know; it is deliberately not grouped by kind.
    return {QStringLiteral("Today"),
            QStringLiteral("Yesterday"),
            QStringLiteral("This Year"),
            QStringLiteral("This Week"),
            QStringLiteral("This Month"),
            QStringLiteral("Last Week"),
            QStringLiteral("Last Month"),
            QStringLiteral("Past 30 days"),
            QStringLiteral("Past 60 days"),
            QStringLiteral("Past 90 days"),
            QString::fromLatin1(customDateRangeName)};
}

QString FormatString(const QString &templ, const QVariantList &args)
{
    QString text = templ;
    for (int i = 0; i <= lastPlaceholder && i < args.size(); ++i)
        text.replace(QLatin1Char('{') + QString::number(i) + QLatin1Char('}'),
                     values::variantToText(args[i]));
    return text;
}

void ParseCustomDateRange(const QString &text, QDate &start, QDate &end)
{
    start = end = QDate::currentDate();
    if (text.isEmpty())
        return;
    QString rest = text.toLower();
    rest.remove(QString::fromLatin1(customDateRangeName).toLower());
    rest.remove(QLatin1Char(':'));
    const QStringList parts = rest.split(QStringLiteral(" to "));
    if (parts.size() != 2)
        return;
    if (const QDate first = readDatePart(parts[0]); first.isValid())
        start = first;
    if (const QDate second = readDatePart(parts[1]); second.isValid())
        end = second;
}

QString CustomDateRangeText(const QDate &start, const QDate &end)
{
    return FormatString(QStringLiteral("{0} : {1} to {2}"),
                        {QString::fromLatin1(customDateRangeName), values::toShortDate(start),
                         values::toShortDate(end)});
}

bool IsCustomDateRange(const QString &value)
{
    return value.startsWith(QLatin1String(customDateRangeName), Qt::CaseSensitive);
}

} // namespace bravcpl5
