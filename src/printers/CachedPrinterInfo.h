#pragma once

// Printer information read once and kept: what a dialog shows stays the same while it is
// open, and opening it asks the print system for the printer list once and for each printer
// once, however often the dialog looks. refresh() forgets it all (the dialogs' Refresh).

#include "printers/PrinterInfo.h"

#include <QHash>
#include <optional>

namespace bravcpl5 {

class CachedPrinterInfo final : public PaperPrinterInfo
{
public:
    // `source` must outlive this object.
    explicit CachedPrinterInfo(const PrinterInfo &source);

    QStringList printerNames() const override;
    QString defaultPrinterName() const override;
    PrinterPaper paper(const QString &printer) const override;

    void refresh();

private:
    const PrinterInfo &m_source;
    mutable std::optional<QStringList> m_names;
    mutable std::optional<QString> m_default;
    mutable QHash<QString, PrinterPaper> m_paper; // by printer name in upper case
};

} // namespace bravcpl5
