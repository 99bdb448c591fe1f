// Loading a settings file: any bytes load as a document or as nothing, and a document
// that loaded is saved and loads again.

#include "FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString path = fuzz::inputFile(data, size);
    if (const bravcpl5::XmlDocumentPtr document = bravcpl5::LoadXmlFile(path)) {
        if (bravcpl5::SaveXmlDocument(*document, path))
            fuzz::requireLoadable(path);
        // The published text of a document loads too.
        if (!bravcpl5::LoadXmlText(QString::fromUtf8(bravcpl5::XmlDocumentText(*document))))
            __builtin_trap();
    }
    return 0;
}
