#pragma once

// Date-range filters hold either the name of a relative range ("Last Week"), which the
// host turns into dates when it runs the report, or a custom range with two dates in the
// text form "Custom Date Range : 1/5/2024 to 2/5/2024" (the locale's short dates).

#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariantList>

namespace bravcpl5 {

inline constexpr auto customDateRangeName = "Custom Date Range";

// The range names offered, in their order, "Custom Date Range" last.
QStringList DateRangeChoices();

// `templ` with "{0}" to "{16}" replaced by the matching arguments as text, in increasing
// order, so an argument holding a higher placeholder is replaced by a later pass.
QString FormatString(const QString &templ, const QVariantList &args);

// The two dates of a custom range text (any case, with or without blanks around the
// colon). A date that is missing or unreadable stays today.
void ParseCustomDateRange(const QString &text, QDate &start, QDate &end);

// "Custom Date Range : <start> to <end>".
QString CustomDateRangeText(const QDate &start, const QDate &end);

// Whether a value shown in a date-range filter is a custom range (case-sensitive prefix).
bool IsCustomDateRange(const QString &value);

} // namespace bravcpl5
