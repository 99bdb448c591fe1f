// A report configuration file's bytes through the fields reader, each size checked as
// the dialog checks typed text, and saved as OK saves them: the saved file loads again
// with the same fields and labels.

#include "FuzzInput.h"

#include "filters/ReportFields.h"
#include "library/Xml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    using namespace bravcpl5;
    const XmlDocumentPtr document = LoadXmlFile(fuzz::InputFile(data, size));
    const QList<OutputField> fields = LoadReportFields(document.get());
    if (!document)
        return 0;
    for (const OutputField &field : fields)
        (void)IsAcceptableFieldSize(field.size);
    const QString saved = fuzz::OutputFile();
    fuzz::Require(SaveReportFields(document.get(), fields, saved), "field sizes cannot be saved");
    const XmlDocumentPtr reloaded = LoadXmlFile(saved);
    fuzz::Require(reloaded != nullptr, "saved fields do not load again");
    const QList<OutputField> again = LoadReportFields(reloaded.get());
    fuzz::Require(again.size() == fields.size(), "saved fields read back with another number of fields");
    for (qsizetype i = 0; i < fields.size(); ++i)
        fuzz::Require(again[i].key == fields[i].key && again[i].label == fields[i].label,
                      "a saved field reads back with another key or label");
    return 0;
}
