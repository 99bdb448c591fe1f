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
    // The same unchanged list is answered from the last answer, as a host's cache would.
    if (const auto cached = m_answers.constFind(field);
        cached != m_answers.constEnd() && cached->rows.isSharedWith(rows))
        return cached->xml;
    QString xml;
    xml.reserve(rows.size() * (2 * field.size() + 40) + 40);
    xml += QStringLiteral("<Records>");
    for (const QString &row : rows) {
        xml += QLatin1String("<Record><") + field + QLatin1Char('>') + row.toHtmlEscaped()
               + QLatin1String("</") + field + QLatin1String("></Record>");
    }
    xml += QStringLiteral("</Records>");
    m_answers.insert(field, {rows, xml});
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
    if (!value.contains(QLatin1Char('&')))
        return value;
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
