// A report fonts file's bytes through both of its readers: the list the fonts dialogs
// edit (saved back as OK saves it, and read back the same) and the index that formats
// report controls.

#include "FuzzInput.h"

#include "layout/FontTypes.h"
#include "layout/ReportFontList.h"
#include "layout/ReportFontsIndex.h"
#include "library/Xml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace bravcpl5;
    const XmlDocumentPtr document = LoadXmlFile(fuzz::InputFile(data, size));
    if (!document)
        return 0;
    for (const std::int16_t reportType : {generalReports, processReports}) {
        ReportFontList list = ReportFontList::fromDocument(*document, reportType);
        list.addMissingTypes();
        const XmlDocumentPtr saved = list.toDocument();
        fuzz::Require(saved != nullptr, "a fonts list gives no document");
        fuzz::RequireSavedTextLoads(*saved);
        fuzz::Require(ReportFontList::fromDocument(*saved, reportType).fonts == list.fonts,
                      "a saved fonts list reads back different");

        const ReportFontsIndex index(*document, reportType);
        for (const FontDefinition &font : list.fonts) {
            (void)index.height(font.type);
            (void)index.font(font.type);
        }
    }
    return 0;
}
