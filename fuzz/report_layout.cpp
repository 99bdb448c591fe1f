// A general report layout file as the layout dialog and the reports read it.

#include "FuzzInput.h"

#include "layout/GeneralReportLayout.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString path = fuzz::inputFile(data, size);
    const bravcpl5::XmlDocumentPtr document = bravcpl5::LoadXmlFile(path);
    if (!document)
        return 0;
    const bravcpl5::GeneralReportLayout layout = bravcpl5::GeneralReportLayout::fromDocument(
        *document);
    if (layout.save(path)) {
        fuzz::requireLoadable(path);
        // What was saved reads back as the same layout.
        if (!(bravcpl5::GeneralReportLayout::fromDocument(*bravcpl5::LoadXmlFile(path)) == layout))
            __builtin_trap();
    }
    return 0;
}
