#include "filters/ReportFields.h"

#include "library/ValueRules.h"
#include "library/Xml.h"

#include <QHash>

namespace bravcpl5 {

namespace {

pugi::xml_node fieldsElement(const pugi::xml_document &document)
{
    return SelectSingleNode(document, QStringLiteral("//Fields")).node();
}

QString nameOf(pugi::xml_node node) { return QString::fromUtf8(node.name()); }

} // namespace

QList<OutputField> LoadReportFields(const pugi::xml_document *document)
{
    QList<OutputField> fields;
    if (!document)
        return fields;
    for (pugi::xml_node node = fieldsElement(*document).first_child(); node;
         node = node.next_sibling()) {
        if (node.type() != pugi::node_element)
            continue;
        const QString key = nameOf(node);
        fields.append({key, GetXmlAttribute(node, QStringLiteral("label"), key),
                       GetXmlAttribute(node, QStringLiteral("width"), QStringLiteral("2"))});
    }
    return fields;
}

bool IsAcceptableFieldSize(const QString &text) { return values::isNumeric(text); }

bool SaveReportFields(pugi::xml_document *document, const QList<OutputField> &fields,
                      const QString &file, QString *why)
{
    if (!document)
        return false;
    // The first element of each name takes the size; indexed once, so that a save takes
    // time in proportion to the fields.
    QHash<QString, pugi::xml_node> byName;
    for (pugi::xml_node node = fieldsElement(*document).first_child(); node;
         node = node.next_sibling()) {
        if (!byName.contains(nameOf(node)))
            byName.insert(nameOf(node), node);
    }
    for (const OutputField &field : fields) {
        if (const auto it = byName.constFind(field.key); it != byName.cend())
            SetXmlAttribute(*it, QStringLiteral("size"), field.size);
    }
    return SaveXmlDocument(*document, file, why);
}

} // namespace bravcpl5
