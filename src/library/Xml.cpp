#include "library/Xml.h"

#include "library/Logging.h"
#include "library/ValueRules.h"
#include "library/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
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

// Real settings documents are a handful of levels deep; a deeper one is refused whole, so
// that nothing downstream meets a document it could not walk or save back.
constexpr int maxElementDepth = 64;
// Saved documents are indented for people to read while that stays cheap; a deeper one is
// written without indentation, so that a save never grows a document by more than a small
// factor (indentation is at most this many levels on any line).
constexpr int maxIndentedDepth = 8;

qint64 fileSize(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() ? info.size() : 0;
}

// Visits every node below `root` in document order without recursing, however deep the
// document; `visit` gets each node and its depth below `root` (children of `root` are 1).
template <typename Visit> void walk(pugi::xml_node root, Visit visit)
{
    int depth = 0;
    pugi::xml_node node = root.first_child();
    if (node)
        depth = 1;
    while (node) {
        visit(node, depth);
        if (node.first_child()) {
            node = node.first_child();
            ++depth;
            continue;
        }
        while (node && node != root && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        if (!node || node == root)
            break;
        node = node.next_sibling();
    }
}

int elementDepth(const pugi::xml_node &root)
{
    int deepest = 0;
    walk(root, [&](pugi::xml_node node, int depth) {
        if (node.type() == pugi::node_element)
            deepest = std::max(deepest, depth);
    });
    return deepest;
}

// The text of the node's character data at any depth, in document order.
void collectText(pugi::xml_node node, std::string &out)
{
    walk(node, [&](pugi::xml_node child, int) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            out += child.value();
    });
}

// The text is held, and saved, as UTF-8 once loaded. A declaration that named the
// encoding the file came in ("ISO-8859-1", "UTF-16"), or held anything the parser's
// encoding guess reads as such (it looks for "encoding" anywhere in it), would make the
// saved file read in that encoding again and garble every character outside ASCII, once
// more on every save; so the declaration keeps only its version and a valid "standalone".
void settleDeclaration(pugi::xml_document &document)
{
    const pugi::xml_node declaration = document.first_child();
    if (declaration.type() != pugi::node_declaration)
        return;
    const std::string standalone = declaration.attribute("standalone").value();
    document.remove_child(declaration);
    pugi::xml_node settled = document.prepend_child(pugi::node_declaration);
    settled.append_attribute("version") = "1.0";
    if (standalone == "yes" || standalone == "no")
        settled.append_attribute("standalone") = standalone.c_str();
}

// Where a byte offset is, as an editor shows it: "line 3, column 14" (columns in bytes).
QString textPosition(const QByteArray &bytes, ptrdiff_t offset)
{
    const QByteArrayView before = QByteArrayView(bytes).first(
        std::clamp(qsizetype(offset), qsizetype(0), bytes.size()));
    const qsizetype lineStart = before.lastIndexOf('\n') + 1;
    return QStringLiteral("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(before.size() - lineStart + 1);
}

// Refuses a document, saying why in LastXmlError and, for a file, in the log with its path.
XmlDocumentPtr refuse(const QString &path, QString why)
{
    if (!path.isEmpty())
        qCWarning(lcXml).noquote() << "ignoring" << path << "-" << why;
    lastError() = std::move(why);
    return nullptr;
}

// Parses `bytes` in the encoding they declare (a byte-order mark, or UTF-8), and refuses
// what is malformed, has no root element, or nests too deeply. `path` names the file the
// bytes came from, "" for text.
XmlDocumentPtr parse(const QByteArray &bytes, pugi::xml_encoding encoding, const QString &path)
{
    lastError().clear();
    if (bytes.isEmpty())
        return nullptr;
    auto doc = std::make_unique<pugi::xml_document>();
    const pugi::xml_parse_result result = doc->load_buffer(bytes.constData(), size_t(bytes.size()),
                                                           parseOptions, encoding);
    if (!result) {
        if (!path.isEmpty())
            qCWarning(lcXml).noquote() << "ignoring" << path << "-" << result.description() << "at"
                                       << textPosition(bytes, result.offset);
        lastError() = QStringLiteral("%1 at offset %2")
                          .arg(QString::fromUtf8(result.description()))
                          .arg(result.offset);
        return nullptr;
    }
    if (!doc->document_element())
        return refuse(path, QStringLiteral("No root element"));
    if (elementDepth(*doc) > maxElementDepth)
        return refuse(
            path, QStringLiteral("Elements nested more than %1 levels deep").arg(maxElementDepth));
    settleDeclaration(*doc);
    return doc;
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
    if (size <= 0) {
        qCDebug(lcXml).noquote() << "no document at" << path;
        return nullptr;
    }
    // A file that is never parsed leaves LastXmlError as it was; the log says why.
    if (size > maxDocumentBytes) {
        qCWarning(lcXml).noquote()
            << "ignoring" << path << "-" << size << "bytes, more than a settings document ever has";
        return nullptr;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(lcXml).noquote() << "cannot read" << path << "-" << file.errorString();
        return nullptr;
    }
    return parse(file.readAll(), pugi::encoding_auto, path);
}

XmlDocumentPtr LoadXmlText(const QString &text)
{
    return parse(text.toUtf8(), pugi::encoding_utf8, QString());
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

QByteArray XmlDocumentText(const pugi::xml_document &document)
{
    ByteArrayWriter writer;
    const bool indent = elementDepth(document) <= maxIndentedDepth;
    document.save(writer, "  ", indent ? pugi::format_indent : pugi::format_raw,
                  pugi::encoding_utf8);
    return writer.bytes;
}

bool SaveXmlDocument(const pugi::xml_document &document, const QString &path, QString *why)
{
    if (path.isEmpty())
        return false;
    const QByteArray text = XmlDocumentText(document);
    QString reason = QStringLiteral("it would be larger than the %1 MiB a settings file may hold")
                         .arg(maxDocumentBytes / (1024 * 1024));
    if (text.size() <= maxDocumentBytes && WriteWholeFile(path, text, &reason))
        return true;
    qCWarning(lcXml).noquote() << "could not save" << path << "-" << reason;
    if (why)
        *why = reason;
    return false;
}

} // namespace bravcpl5
