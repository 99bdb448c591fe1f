// A report layout file's bytes through the layout reader, saved as the layout dialog's OK
// saves it: the saved document loads again and reads back as the same layout.

#include "FuzzInput.h"

#include "layout/GeneralReportLayout.h"
#include "library/Xml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace bravcpl5;
    const XmlDocumentPtr document = LoadXmlFile(fuzz::InputFile(data, size));
    if (!document)
        return 0;
    const GeneralReportLayout layout = GeneralReportLayout::fromDocument(*document);
    const QString saved = fuzz::OutputFile();
    fuzz::Require(layout.save(saved), "a layout that was read cannot be saved");
    const XmlDocumentPtr reloaded = LoadXmlFile(saved);
    fuzz::Require(reloaded != nullptr, "a saved layout does not load again");
    fuzz::Require(GeneralReportLayout::fromDocument(*reloaded) == layout,
                  "a saved layout reads back different");
    return 0;
}
