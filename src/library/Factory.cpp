#include "library/Factory.h"

#include "layout/ReportLayout.h"
#include "library/Library.h"
#include "library/ReportConfiguration.h"
#include "printing/PrinterConfigurations.h"

namespace bravcpl5 {

namespace {
template <typename T> QObject *create() { return new T; }

struct Entry {
    const char *progId;
    QObject *(*create)();
};

constexpr Entry classes[] = {
    {"bravcpl5.Library", &create<Library>},
    {"bravcpl5.PrinterConfigurations", &create<PrinterConfigurations>},
    {"bravcpl5.ReportLayout", &create<ReportLayout>},
    {"bravcpl5.ReportConfiguration", &create<ReportConfiguration>},
};
} // namespace

QObject *CreateObject(const QString &progId)
{
    for (const Entry &entry : classes) {
        // Programmatic identifiers are not case-sensitive.
        if (progId.compare(QLatin1String(entry.progId), Qt::CaseInsensitive) == 0)
            return entry.create();
    }
    return nullptr;
}

} // namespace bravcpl5

QObject *bravcpl5_CreateObject(const char *progId)
{
    return progId ? bravcpl5::CreateObject(QString::fromUtf8(progId)) : nullptr;
}
