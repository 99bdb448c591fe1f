// Any bytes as a settings file, and as text: loading gives a document or nothing with a
// reason, never a crash; what loads can be saved, within a small factor of its size, and
// loaded again; reading a value walks the document however it is shaped.

#include "FuzzInput.h"

#include "library/Xml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace bravcpl5;
    const XmlDocumentPtr document = LoadXmlFile(fuzz::InputFile(data, size));
    if (!document) {
        fuzz::Require(size == 0 || !LastXmlError().isEmpty(), "a refused file gives no reason");
    } else {
        fuzz::RequireSavedTextLoads(*document, size);
        // The whole text of the root element: every level at once.
        (void)NodeText(pugi::xpath_node(document->document_element()));
        (void)GetXmlSingle(QStringLiteral("//TopMargin"), *document, 1.0f);
    }
    if (const XmlDocumentPtr fromText =
            LoadXmlText(QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size))))
        fuzz::RequireSavedTextLoads(*fromText);
    return 0;
}
