#include "filters/ReportFields.h"

#include "library/ValueRules.h"
#include "library/Xml.h"

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
                      const QString &file)
{
    if (!document)
        return false;
    if (const pugi::xml_node element = fieldsElement(*document)) {
        for (const OutputField &field : fields) {
            for (pugi::xml_node node = element.first_child(); node; node = node.next_sibling()) {
                if (nameOf(node) == field.key) {
                    SetXmlAttribute(node, QStringLiteral("size"), field.size);
                    break;
                }
            }
        }
    }
    return SaveXmlDocument(*document, file);
}

} // namespace bravcpl5
