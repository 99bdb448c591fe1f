#include "forms/DateText.h"

#include "library/ValueRules.h"

#include <QLineEdit>
#include <QLocale>

namespace bravcpl5::datetext {

namespace {

// The short date format with each day, month and year part widened to full width.
QString fullWidthFormat()
{
    const QString format = values::shortDateFormat();
    QString result;
    for (qsizetype i = 0; i < format.size();) {
        const QChar c = format[i];
        qsizetype run = 1;
        while (i + run < format.size() && format[i + run] == c)
            ++run;
        if (c == QLatin1Char('d') || c == QLatin1Char('M'))
            result += QString(2, c);
        else if (c == QLatin1Char('y'))
            result += QStringLiteral("yyyy");
        else
            result += QString(run, c);
        i += run;
    }
    return result;
}

} // namespace

QString inputMask()
{
    QString mask = fullWidthFormat();
    for (QChar &c : mask) {
        if (c == QLatin1Char('d') || c == QLatin1Char('M') || c == QLatin1Char('y'))
            c = QLatin1Char('9');
    }
    return mask;
}

QString toText(const QDate &date) { return QLocale().toString(date, fullWidthFormat()); }

QDate fromField(const QLineEdit *field)
{
    // A half-typed year would otherwise read as a two-digit one.
    if (!field || !field->hasAcceptableInput())
        return {};
    return values::parseShortDate(field->text());
}

} // namespace bravcpl5::datetext
