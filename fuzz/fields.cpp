// A report configuration file as the fields dialog reads its fields and saves them.

#include "FuzzInput.h"

#include "filters/ReportFields.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString path = fuzz::inputFile(data, size);
    const bravcpl5::XmlDocumentPtr document = bravcpl5::LoadXmlFile(path);
    if (!document)
        return 0;
    const QList<bravcpl5::OutputField> fields = bravcpl5::LoadReportFields(document.get());
    if (bravcpl5::SaveReportFields(document.get(), fields, path))
        fuzz::requireLoadable(path);
    return 0;
}
