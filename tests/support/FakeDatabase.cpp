#include "support/FakeDatabase.h"

#include <QRegularExpression>

namespace bravcpl5::test {

QString FakeDatabase::selectedField(const QString &sql)
{
    static const QRegularExpression select(QStringLiteral(R"(^\s*SELECT\s+(?:TOP\s+\d+\s+)?(\w+))"),
                                           QRegularExpression::CaseInsensitiveOption);
    return select.match(sql).captured(1);
}

QString FakeDatabase::ExecuteRead(const QString &sql)
{
    ++reads;
    const QString field = selectedField(sql);
    const QStringList rows = fields.value(field);
    QString xml;
    xml.reserve(rows.size() * (2 * field.size() + 40) + 40);
    xml += QStringLiteral("<Records>");
    for (const QString &row : rows) {
        xml += QStringLiteral("<Record><%1>%2</%1></Record>").arg(field, row.toHtmlEscaped());
    }
    xml += QStringLiteral("</Records>");
    return xml;
}

QVariant FakeDatabase::GetRecordValue2(const QString &record, const QString &fieldName)
{
    const QString open = QLatin1Char('<') + fieldName + QLatin1Char('>');
    const qsizetype start = record.indexOf(open);
    const qsizetype end = record.indexOf(QStringLiteral("</") + fieldName, start);
    if (start < 0 || end < 0)
        return QString();
    QString value = record.mid(start + open.size(), end - start - open.size());
    return value.replace(QLatin1String("&lt;"), QLatin1String("<"))
        .replace(QLatin1String("&gt;"), QLatin1String(">"))
        .replace(QLatin1String("&quot;"), QLatin1String("\""))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

void FakeDatabase::PreTerminate() { ++preTerminates; }

QVariant FakeDatabase::ExecuteScaler(const QString &sql)
{
    const QStringList rows = fields.value(selectedField(sql));
    return rows.isEmpty() ? QVariant(QString()) : QVariant(rows.first());
}

QVariant FakeDatabase::ExecuteSelectField(const QString &, const QString &fieldName)
{
    const QStringList rows = fields.value(fieldName);
    return rows.isEmpty() ? QVariant(QString()) : QVariant(rows.first());
}

} // namespace bravcpl5::test
