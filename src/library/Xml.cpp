#include "library/Xml.h"

#include "library/ValueRules.h"
#include "library/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <string>

namespace bravcpl5 {

namespace {

// Settings documents are a few kilobytes; anything this large is not one of ours, and
// refusing it keeps a stray file from stalling the user interface.
constexpr qint64 maxDocumentBytes = 16 * 1024 * 1024;

constexpr unsigned parseOptions = pugi::parse_full;

QString &lastError()
{
    static QString error;
    return error;
}

std::string utf8(const QString &text) { return text.toUtf8().toStdString(); }

// The file reader: the size first, then the whole file decoded as UTF-8.
qint64 fileSize(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() ? info.size() : 0;
}

QString readTextFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    return text;
}

void collectText(pugi::xml_node node, std::string &out)
{
    for (pugi::xml_node child : node.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            out += child.value();
        else if (child.type() == pugi::node_element)
            collectText(child, out);
    }
}

} // namespace

XmlDocumentPtr CreateXmlDocument(const QString &rootName)
{
    auto doc = std::make_unique<pugi::xml_document>();
    pugi::xml_node decl = doc->append_child(pugi::node_declaration);
    decl.append_attribute("version").set_value("1.0");
    if (!doc->append_child(utf8(rootName).c_str()))
        return nullptr;
    return doc;
}

XmlDocumentPtr LoadXmlFile(const QString &path)
{
    const qint64 size = fileSize(path);
    if (size <= 0 || size > maxDocumentBytes)
        return nullptr;
    const QString text = readTextFile(path);
    if (text.isEmpty())
        return nullptr;
    return LoadXmlText(text);
}

XmlDocumentPtr LoadXmlText(const QString &text)
{
    lastError().clear();
    if (text.isEmpty())
        return nullptr;
    auto doc = std::make_unique<pugi::xml_document>();
    const QByteArray bytes = text.toUtf8();
    const pugi::xml_parse_result result =
        doc->load_buffer(bytes.constData(), size_t(bytes.size()), parseOptions, pugi::encoding_utf8);
    if (!result) {
        lastError() = QString::fromUtf8(result.description());
        return nullptr;
    }
    if (!doc->document_element()) {
        lastError() = QStringLiteral("No root element");
        return nullptr;
    }
    return doc;
}

QString LastXmlError() { return lastError(); }

pugi::xml_node FindChildNode(pugi::xml_node parent, const QString &name)
{
    const std::string wanted = utf8(name);
    for (pugi::xml_node child : parent.children()) {
        if (child.type() == pugi::node_element && wanted == child.name())
            return child;
    }
    return {};
}

pugi::xml_node AppendChildElement(const QString &name, pugi::xml_node parent)
{
    return parent.append_child(utf8(name).c_str());
}

pugi::xml_node GetChildNode(const QString &name, pugi::xml_node parent, bool create)
{
    pugi::xml_node found = FindChildNode(parent, name);
    if (!found && create)
        found = AppendChildElement(name, parent);
    return found;
}

pugi::xpath_node SelectSingleNode(pugi::xml_node node, const QString &xpath)
{
    if (!node)
        return {};
    try {
        return node.select_node(utf8(xpath).c_str());
    } catch (const pugi::xpath_exception &) {
        return {};
    }
}

QString NodeText(const pugi::xpath_node &node)
{
    if (node.attribute())
        return QString::fromUtf8(node.attribute().value());
    std::string text;
    if (node.node().type() == pugi::node_pcdata || node.node().type() == pugi::node_cdata)
        text = node.node().value();
    else
        collectText(node.node(), text);
    return QString::fromStdString(text);
}

QString GetXmlValue(const QString &xpath, pugi::xml_node node, const QString &defaultValue)
{
    const pugi::xpath_node found = SelectSingleNode(node, xpath);
    if (!found)
        return defaultValue;
    const QString text = NodeText(found);
    return text.isEmpty() ? defaultValue : UnescapeXmlText(text);
}

std::int16_t GetXmlInteger(const QString &xpath, pugi::xml_node node, std::int16_t defaultValue)
{
    QString text = GetXmlValue(xpath, node, QString());
    if (text.isEmpty() || !values::isNumeric(text))
        text = values::integerToText(defaultValue);
    // An overflow is swallowed and leaves the result at 0.
    return values::textToInt16(text).value_or(0);
}

float GetXmlSingle(const QString &xpath, pugi::xml_node node, float defaultValue)
{
    QString text = GetXmlValue(xpath, node, QString());
    if (text.isEmpty() || !values::isNumeric(text))
        text = values::singleToText(defaultValue);
    return values::textToSingle(text).value_or(0.0f);
}

void SetXmlValue(const QString &name, const QString &value, pugi::xml_node parent)
{
    if (!parent)
        return;
    pugi::xml_node element = FindChildNode(parent, name);
    if (element) {
        while (element.first_child())
            element.remove_child(element.first_child());
    } else {
        element = AppendChildElement(name, parent);
        if (!element)
            return;
    }
    const QString escaped = EscapeXmlText(value);
    if (!escaped.isEmpty())
        element.append_child(pugi::node_pcdata).set_value(utf8(escaped).c_str());
}

void SetXmlInteger(const QString &name, std::int16_t value, pugi::xml_node parent)
{
    SetXmlValue(name, values::integerToText(value), parent);
}

void SetXmlSingle(const QString &name, float value, pugi::xml_node parent)
{
    SetXmlValue(name, values::singleToText(value), parent);
}

QString GetXmlAttribute(pugi::xml_node node, const QString &name, const QString &defaultValue)
{
    if (!node)
        return defaultValue;
    const pugi::xml_attribute attribute = node.attribute(utf8(name).c_str());
    return attribute ? QString::fromUtf8(attribute.value()) : defaultValue;
}

void SetXmlAttribute(pugi::xml_node node, const QString &name, const QString &value)
{
    if (node.type() != pugi::node_element)
        return;
    const std::string key = utf8(name);
    pugi::xml_attribute attribute = node.attribute(key.c_str());
    if (!attribute)
        attribute = node.append_attribute(key.c_str());
    attribute.set_value(utf8(value).c_str());
}

QString EscapeXmlText(const QString &text)
{
    QString escaped = text;
    escaped.replace(QChar(13), QLatin1String("&#13;"));
    escaped.replace(QChar(10), QLatin1String("&#10;"));
    return escaped;
}

QString UnescapeXmlText(const QString &text)
{
    QString plain = text;
    plain.replace(QLatin1String("&#13;"), QString(QChar(13)));
    plain.replace(QLatin1String("&#10;"), QString(QChar(10)));
    return plain;
}

namespace {
// Collects the serialised document, so that it reaches the disk in one whole write.
struct ByteArrayWriter final : pugi::xml_writer {
    void write(const void *data, size_t size) override
    {
        bytes.append(static_cast<const char *>(data), qsizetype(size));
    }
    QByteArray bytes;
};
} // namespace

bool SaveXmlDocument(const pugi::xml_document &document, const QString &path)
{
    if (path.isEmpty())
        return false;
    ByteArrayWriter writer;
    document.save(writer, "  ", pugi::format_indent, pugi::encoding_utf8);
    return WriteWholeFile(path, writer.bytes);
}

} // namespace bravcpl5
