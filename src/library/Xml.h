#pragma once

// Access to the library's settings documents. Every document is created, loaded, queried
// and escaped through these operations so that all of them behave the same:
// - reads go by XPath relative to the node given, and take an explicit default that is
//   returned whenever the node, the value or its conversion is missing or bad (an element
//   that is present but empty reads as the default, never as "");
// - writes go by direct child name and touch only the first child of that name;
// - element text never holds raw line breaks: CR is stored as "&#13;" and LF as "&#10;"
//   (literal text, so the saved file shows "&amp;#13;"); attributes are stored as given;
// - nothing throws: a failed create or load gives a null document, a failed write stops
//   where it is, and the reason of the last parse failure is in LastXmlError().

#include "library/XmlDocument.h"

#include <QByteArray>
#include <QString>
#include <cstdint>

namespace bravcpl5 {

// A new document holding the declaration <?xml version="1.0"?> and an empty root element.
XmlDocumentPtr CreateXmlDocument(const QString &rootName);
// Null when the file is missing, empty, larger than a settings file can be, not XML, or
// nested deeper than a settings document ever is (LastXmlError says why, with the offset
// of a parse error). A file's encoding comes from its byte-order mark, else from an
// ISO-8859-1 declaration, else UTF-8; a loaded document's declaration keeps only its
// version and "standalone", so that it saves, as UTF-8, into a file that reads back the same.
XmlDocumentPtr LoadXmlFile(const QString &path);
XmlDocumentPtr LoadXmlText(const QString &text);
QString LastXmlError();

pugi::xml_node FindChildNode(pugi::xml_node parent, const QString &name);
pugi::xml_node AppendChildElement(const QString &name, pugi::xml_node parent);
pugi::xml_node GetChildNode(const QString &name, pugi::xml_node parent, bool create);

QString GetXmlValue(const QString &xpath, pugi::xml_node node, const QString &defaultValue);
std::int16_t GetXmlInteger(const QString &xpath, pugi::xml_node node, std::int16_t defaultValue);
float GetXmlSingle(const QString &xpath, pugi::xml_node node, float defaultValue);

void SetXmlValue(const QString &name, const QString &value, pugi::xml_node parent);
void SetXmlInteger(const QString &name, std::int16_t value, pugi::xml_node parent);
void SetXmlSingle(const QString &name, float value, pugi::xml_node parent);

QString GetXmlAttribute(pugi::xml_node node, const QString &name, const QString &defaultValue);
void SetXmlAttribute(pugi::xml_node node, const QString &name, const QString &value);

QString EscapeXmlText(const QString &text);
QString UnescapeXmlText(const QString &text);

// The first node that the XPath selects from `node`; empty when none or the XPath is bad.
pugi::xpath_node SelectSingleNode(pugi::xml_node node, const QString &xpath);
// The text of a selected node: an attribute's value, or all text inside an element.
QString NodeText(const pugi::xpath_node &node);

// The document as UTF-8 text: indented while it is shallow enough for that to stay cheap,
// else without indentation; it always loads again.
QByteArray XmlDocumentText(const pugi::xml_document &document);
// Saves whole or not at all (WriteWholeFile): a failed save returns false and leaves the
// previous file byte-for-byte as it was.
// A document larger than LoadXmlFile reads back is refused rather than saved. `why`, when
// given, says why a save failed, for the user.
bool SaveXmlDocument(const pugi::xml_document &document, const QString &path,
                     QString *why = nullptr);

} // namespace bravcpl5
