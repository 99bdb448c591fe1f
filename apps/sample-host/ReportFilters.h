#pragma once

// How a host turns the filter values of a general report's configuration file into the
// conditions its records are selected with, and into the words of the report's subtitle.
//
// The library lets the user set each filter's `value` (and nothing else); the host reads
// the values when it runs the report:
//   const ReportFilters filters = ReadReportFilters(host, configuration, QDate::currentDate());
//   records.removeIf([&](const Record &r) { return !filters.matches(r); });
//   subtitle = filters.summary();
// The sample's orders are made up in memory, so the conditions are checked in memory; a
// host whose records are in SQL turns each condition into "field BETWEEN ? AND ?",
// "field = ?", "field LIKE ?" or "NOT field" with the values bound.

#include "Records.h"

#include <QDate>
#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <optional>
#include <pugixml.hpp>

class QObject;

struct DateSpan {
    QDate first, last; // both included

    bool operator==(const DateSpan &) const = default;
};

// The days a named date range ("Last Month", any case) covers on the calendar of
// `locale`, seen from `today`; nothing for a name that is not offered.
std::optional<DateSpan> NamedDateRange(const QString &name, const QDate &today,
                                       const QLocale &locale = QLocale());

// One condition on one field of a record.
struct ReportCondition {
    enum class Test {
        Between,  // a date within `dates`
        Equals,   // the text, without regard to case
        Contains, // part of the text, without regard to case
        IsFalse,  // a yes/no field that is no
    };
    QString field;
    Test test = Test::Equals;
    QString text;
    DateSpan dates;

    bool matches(const Record &record) const;
};

struct ReportFilters {
    QList<ReportCondition> conditions;
    QStringList words; // each applied filter in words, in the file's order

    bool matches(const Record &record) const;
    // For the subtitle: "Orders from 1 March 2024 to 31 March 2024 · Vendor: Acme Window
    // Supply · Stock products".
    QString summary() const;
};

// The conditions of the filters in `configuration`, placeholder values ("[1stvendor]")
// resolved through `host`'s database. Filters this host cannot apply are left out of
// both the conditions and the words.
ReportFilters ReadReportFilters(QObject *host, const pugi::xml_document &configuration,
                                const QDate &today);

// The records of a general report: those of its source that pass its filters.
QList<Record> GeneralReportRecords(QObject *host, const HostDatabase *database,
                                   const QString &configurationFile, const QDate &today);
