#include "printers/CachedPrinterInfo.h"

namespace bravcpl5 {

CachedPrinterInfo::CachedPrinterInfo(const PrinterInfo &source) : m_source(source) {}

QStringList CachedPrinterInfo::printerNames() const
{
    if (!m_names)
        m_names = m_source.printerNames();
    return *m_names;
}

QString CachedPrinterInfo::defaultPrinterName() const
{
    if (!m_default)
        m_default = m_source.defaultPrinterName();
    return *m_default;
}

PrinterPaper CachedPrinterInfo::paper(const QString &printer) const
{
    // Printer names are compared without regard to case, as the print system does.
    const QString key = printer.toUpper();
    auto found = m_paper.constFind(key);
    if (found == m_paper.cend())
        found = m_paper.insert(key, m_source.paper(printer));
    return *found;
}

void CachedPrinterInfo::refresh()
{
    m_names.reset();
    m_default.reset();
    m_paper.clear();
}

} // namespace bravcpl5
