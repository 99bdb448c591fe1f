#include "ReportFilters.h"

#include "filters/DateRanges.h"
#include "filters/FilterDefinitions.h"
#include "library/Xml.h"

#include <QRegularExpression>
#include <algorithm>

using namespace bravcpl5;

namespace {

// Which field of the sample's records each filter applies to, by the filter's element
// name. A yes/no filter says what its two values mean; "No" leaves out the records whose
// field is yes, "Yes" takes them all. Filters not listed here (ship dates, invoiced or
// discontinued switches: the sample keeps no such data) are left out.
struct FilterField {
    const char *filter;
    const char *field;
    const char *whenYes = nullptr;
    const char *whenNo = nullptr;
};

constexpr FilterField filterFields[] = {
    {"Dates", "OrderDate"},
    {"DateRange", "OrderDate"},
    {"OrderDate", "OrderDate"},
    {"Vendor", "VendorName"},
    {"Manufacturer", "Manufacturer"},
    {"ProductType", "ProductType"},
    {"Product", "Product"},
    {"Source", "ProductSource"},
    {"ProductSource", "ProductSource"},
    {"City", "City"},
    {"Zip", "Zip"},
    {"State", "State"},
    {"Salesperson", "Salesperson"},
    {"Sidemark", "Sidemark"},
    {"Installed", "Installed", "Installed orders included", "Installed orders left out"},
};

const FilterField *fieldOf(const QString &filter)
{
    const auto found = std::find_if(
        std::begin(filterFields), std::end(filterFields),
        [&](const FilterField &f) { return filter == QLatin1String(f.filter); });
    return found == std::end(filterFields) ? nullptr : found;
}

// A product source value is a word ("Stock", any case) or the code the filters dialog
// writes ("3"); -1 for anything else.
int productSourceCode(const QString &value)
{
    for (const FilterChoice &choice : FillFilterChoices(nullptr, FilterType::ProductSource, 0)) {
        if (value.compare(choice.caption, Qt::CaseInsensitive) == 0
            || value == QString::number(choice.data))
            return choice.data;
    }
    return -1;
}

QString productSourceCaption(int code)
{
    for (const FilterChoice &choice : FillFilterChoices(nullptr, FilterType::ProductSource, 0)) {
        if (choice.data == code)
            return choice.caption;
    }
    return {};
}

QString productSourceWords(int code)
{
    static const char *const words[] = {"Products without a source", "Purchased products",
                                        "Fabricated products", "Stock products",
                                        "Products from other sources"};
    return QString::fromLatin1(words[code]);
}

// The library's reading of a yes/no value: "0", "false" and "no" are no, all else yes.
bool isYes(const QString &value)
{
    FilterRow row;
    row.type = FilterType::Boolean;
    ApplyFilterValue(row, value);
    return row.value != QLatin1String("0");
}

// "1 March 2024": the locale's long date without the day of the week.
QString dateInWords(const QDate &date)
{
    const QLocale locale;
    QString format = locale.dateFormat(QLocale::LongFormat);
    format.remove(QRegularExpression(QStringLiteral("[,،\\s]*dddd[,،\\s]*")));
    return locale.toString(date, format);
}

// A named range, or a custom range read by the library's parser; nothing for anything else.
std::optional<DateSpan> dateSpan(const QString &value, const QDate &today)
{
    if (IsCustomDateRange(value)) {
        DateSpan span;
        ParseCustomDateRange(value, span.first, span.last);
        return span;
    }
    return NamedDateRange(value, today);
}

} // namespace

// Weeks start on the locale's first day of the week (Sunday in the United States, Monday
// in Germany). "This Week", "This Month" and "This Year" are the whole calendar period, so
// that promised and scheduled dates later in it count too; "Last ..." is the whole period
// before; "Past 30 days" is the 30 days that end today, today included.
std::optional<DateSpan> NamedDateRange(const QString &name, const QDate &today,
                                       const QLocale &locale)
{
    const QDate week = today.addDays(-((today.dayOfWeek() - locale.firstDayOfWeek() + 7) % 7));
    const QDate month(today.year(), today.month(), 1);
    const QDate year(today.year(), 1, 1);
    // In the order of DateRangeChoices(), whose names they go with.
    const DateSpan spans[] = {
        {today, today},
        {today.addDays(-1), today.addDays(-1)},
        {year, year.addYears(1).addDays(-1)},
        {week, week.addDays(6)},
        {month, month.addMonths(1).addDays(-1)},
        {week.addDays(-7), week.addDays(-1)},
        {month.addMonths(-1), month.addDays(-1)},
        {today.addDays(-29), today},
        {today.addDays(-59), today},
        {today.addDays(-89), today},
    };
    const QStringList names = DateRangeChoices();
    for (qsizetype i = 0; i < qsizetype(std::size(spans)); ++i) {
        if (name.compare(names[i], Qt::CaseInsensitive) == 0)
            return spans[i];
    }
    return std::nullopt;
}

bool ReportCondition::matches(const Record &record) const
{
    const QVariant value = record.value(field);
    switch (test) {
    case Test::Between:
        return value.toDate() >= dates.first && value.toDate() <= dates.last;
    case Test::Equals:
        return value.toString().compare(text, Qt::CaseInsensitive) == 0;
    case Test::Contains:
        return value.toString().contains(text, Qt::CaseInsensitive);
    case Test::IsFalse:
        return !value.toBool();
    }
    return false;
}

bool ReportFilters::matches(const Record &record) const
{
    return std::all_of(conditions.begin(), conditions.end(),
                       [&](const ReportCondition &c) { return c.matches(record); });
}

QString ReportFilters::summary() const { return words.join(QStringLiteral(" · ")); }

ReportFilters ReadReportFilters(QObject *host, const pugi::xml_document &configuration,
                                const QDate &today)
{
    ReportFilters filters;
    const QString source = GetXmlValue(QStringLiteral("//Identification/Source"), configuration,
                                       QStringLiteral("Orders"));
    for (pugi::xml_node filter :
         SelectSingleNode(configuration, QStringLiteral("//Filters")).node().children()) {
        const FilterField *field = fieldOf(QString::fromUtf8(filter.name()));
        if (filter.type() != pugi::node_element || !field)
            continue;
        const QString label = GetXmlAttribute(filter, QStringLiteral("label"),
                                              QString::fromUtf8(filter.name()));
        const QString value = ResolveFilterValue(
            host, GetXmlAttribute(filter, QStringLiteral("value"), QString()));
        ReportCondition condition;
        condition.field = QString::fromLatin1(field->field);

        switch (ParseFilterType(GetXmlAttribute(filter, QStringLiteral("type"), QString()))) {
        case FilterType::DateRange: {
            const std::optional<DateSpan> span = dateSpan(value, today);
            if (!span)
                continue;
            condition.test = ReportCondition::Test::Between;
            condition.dates = *span;
            filters.words << (span->first == span->last
                                  ? QStringLiteral("%1 of %2").arg(source, dateInWords(span->first))
                                  : QStringLiteral("%1 from %2 to %3")
                                        .arg(source, dateInWords(span->first),
                                             dateInWords(span->last)));
            break;
        }
        case FilterType::Boolean:
            if (!field->whenYes)
                continue;
            if (isYes(value)) {
                filters.words << QString::fromLatin1(field->whenYes);
                continue; // nothing left out
            }
            condition.test = ReportCondition::Test::IsFalse;
            filters.words << QString::fromLatin1(field->whenNo);
            break;
        case FilterType::ProductSource: {
            const int code = productSourceCode(value);
            if (code < 0)
                continue;
            condition.text = productSourceCaption(code);
            filters.words << productSourceWords(code);
            break;
        }
        case FilterType::FreeText:
            if (value.isEmpty())
                continue;
            condition.test = ReportCondition::Test::Contains;
            condition.text = value;
            filters.words << QStringLiteral("%1: %2").arg(label, value);
            break;
        case FilterType::Manufacturer:
        case FilterType::ProductType:
        case FilterType::Product:
        case FilterType::Vendor:
            if (value.isEmpty() || value == QLatin1String(allVendorsChoice))
                continue;
            condition.text = value;
            filters.words << QStringLiteral("%1: %2").arg(label, value);
            break;
        }
        filters.conditions.append(condition);
    }
    return filters;
}

QList<Record> GeneralReportRecords(QObject *host, const HostDatabase *database,
                                   const QString &configurationFile, const QDate &today)
{
    const XmlDocumentPtr configuration = LoadXmlFile(configurationFile);
    if (!configuration)
        return {};
    QList<Record> records = SourceRecords(database,
                                          GetXmlValue(QStringLiteral("//Identification/Source"),
                                                      *configuration, QStringLiteral("Orders")),
                                          today);
    const ReportFilters filters = ReadReportFilters(host, *configuration, today);
    records.removeIf([&](const Record &record) { return !filters.matches(record); });
    return records;
}
