#pragma once

// The format texts of a general report's furniture and what they print. The layout
// document stores a format as the text itself; the host's formatter reads it the way this
// module does:
// - a named format ("Short Date", "Long Date", "Medium Date", "General Date"; "Short Time",
//   "Medium Time", "Long Time"), in the user's locale;
// - or a pattern: d dd ddd dddd (day, name), m mm mmm mmmm (month, name; minutes right
//   after an hour), yy yyyy, h hh, n nn (minutes), s ss, AM/PM am/pm A/P a/p AMPM (a
//   12-hour clock with that marker); text in double quotes, or after a backslash, prints
//   as it stands, as does any other character.
// An empty date or time format prints the short form.

#include <QDate>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QTime>

namespace bravcpl5 {

// The entries of the print date and print time lists, in order: the named formats, then
// a few patterns.
QStringList PrintDateFormats();
QStringList PrintTimeFormats();

QString FormatPrintDate(const QString &format, const QDate &date,
                        const QLocale &locale = QLocale());
QString FormatPrintTime(const QString &format, const QTime &time,
                        const QLocale &locale = QLocale());

// A page-number format ("Page nnn of mmm", ...) for one page: "nnnn" and "nnn" become the
// page number, "mmm" the page count. An empty format prints as "Page nnn of mmm".
QString FormatPageNumber(const QString &format, int page, int pageCount);

} // namespace bravcpl5
