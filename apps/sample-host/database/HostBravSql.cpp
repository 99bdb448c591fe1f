#include "HostBravSql.h"

#include "HostDatabase.h"

#include <QSqlRecord>
#include <algorithm>
#include <optional>
#include <pugixml.hpp>

HostBravSql::HostBravSql(const HostDatabase &database, QObject *parent)
    : QObject(parent), m_database(database)
{}

namespace {

// Text as element content. Written by hand rather than with QXmlStreamWriter, and in
// one piece when nothing needs escaping: a list of 100,000 vendors is built while the user
// waits for a drop-down to open.
void appendEscaped(QString &xml, const QString &text)
{
    const auto special = [](QChar c) { return c == u'&' || c == u'<' || c == u'>' || c == u'\r'; };
    if (std::none_of(text.begin(), text.end(), special)) {
        xml += text;
        return;
    }
    for (QChar c : text) {
        switch (c.unicode()) {
        case u'&':
            xml += QLatin1String("&amp;");
            break;
        case u'<':
            xml += QLatin1String("&lt;");
            break;
        case u'>':
            xml += QLatin1String("&gt;");
            break;
        case u'\r':
            xml += QLatin1String("&#13;");
            break; // a raw CR would read back as LF
        default:
            xml += c;
        }
    }
}

// A record that is exactly <Record><Field>text</Field></Record> with nothing to unescape,
// as one-column lists come back, is read without a parser: this runs once per row of a
// list. Nothing when the record has another form.
std::optional<QString> plainSingleField(QStringView record, const QString &fieldName)
{
    constexpr QLatin1String recordOpen("<Record><"), recordClose("></Record>");
    QStringView rest = record;
    if (!rest.startsWith(recordOpen))
        return std::nullopt;
    rest = rest.sliced(recordOpen.size()); // Field>text</Field></Record>
    if (!rest.startsWith(fieldName) || !rest.sliced(fieldName.size()).startsWith(u'>'))
        return std::nullopt;
    rest = rest.sliced(fieldName.size() + 1); // text</Field></Record>
    if (!rest.endsWith(recordClose))
        return std::nullopt;
    rest.chop(recordClose.size()); // text</Field
    if (!rest.endsWith(fieldName))
        return std::nullopt;
    rest.chop(fieldName.size()); // text</
    if (!rest.endsWith(QLatin1String("</")))
        return std::nullopt;
    rest.chop(2);
    if (rest.contains(u'<') || rest.contains(u'&'))
        return std::nullopt;
    return rest.toString();
}

} // namespace

QString HostBravSql::ExecuteRead(const QString &sql) const
{
    QSqlQuery query;
    if (!m_database.run(sql, query))
        return {};
    // The markup around the values is the same in every row: before the first value,
    // between two values, and after the last.
    const QSqlRecord record = query.record();
    const int columns = record.count();
    QStringList markup(columns + 1);
    markup[0] = QStringLiteral("<Record>");
    for (int i = 0; i < columns; ++i) {
        markup[i] += u'<' + record.fieldName(i) + u'>';
        markup[i + 1] = QStringLiteral("</") + record.fieldName(i) + u'>';
    }
    markup[columns] += QStringLiteral("</Record>");

    QString xml = QStringLiteral("<Records>");
    while (query.next()) {
        for (int i = 0; i < columns; ++i) {
            xml += markup[i];
            appendEscaped(xml, query.value(i).toString());
        }
        xml += markup[columns];
    }
    xml += QStringLiteral("</Records>");
    return xml;
}

QVariant HostBravSql::GetRecordValue2(const QString &record, const QString &fieldName) const
{
    if (const std::optional<QString> plain = plainSingleField(record, fieldName))
        return *plain;
    QByteArray text = record.toUtf8();
    pugi::xml_document document;
    if (!document.load_buffer_inplace(text.data(), size_t(text.size()),
                                      pugi::parse_cdata | pugi::parse_escapes, pugi::encoding_utf8))
        return {};
    const pugi::xml_node field = document.document_element().child(fieldName.toUtf8().constData());
    if (!field)
        return {};
    return QString::fromUtf8(field.child_value());
}
