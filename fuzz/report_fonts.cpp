// A report fonts file as both fonts dialogs read it, top it up and save it.

#include "FuzzInput.h"

#include "layout/ReportFontList.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString path = fuzz::inputFile(data, size);
    const bravcpl5::XmlDocumentPtr document = bravcpl5::LoadXmlFile(path);
    if (!document)
        return 0;
    for (std::int16_t family : {bravcpl5::generalReports, bravcpl5::processReports}) {
        bravcpl5::ReportFontList list = bravcpl5::ReportFontList::fromDocument(*document, family);
        list.addMissingTypes();
        if (list.save(path))
            fuzz::requireLoadable(path);
    }
    return 0;
}
