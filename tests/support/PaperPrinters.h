#pragma once

// A printer information of printers with the paper and state given for each, for dialogs
// that check configurations against what a printer can print. The test keeps a pointer to
// change a printer while a dialog is open.

#include "printers/PrinterInfo.h"

#include <QHash>
#include <utility>

namespace bravcpl5::test {

struct PaperPrinters final : PaperPrinterInfo {
    QStringList printerNames() const override { return names; }
    QString defaultPrinterName() const override { return defaultName; }
    PrinterPaper paper(const QString &printer) const override
    {
        ++reads;
        return printers.value(printer);
    }
    void add(const QString &name, PrinterPaper paper)
    {
        names.append(name);
        printers.insert(name, std::move(paper));
    }

    QStringList names;
    QString defaultName;
    QHash<QString, PrinterPaper> printers;
    mutable int reads = 0;
};

// A laser that cannot print within a quarter inch of the edge: Letter and A4, the
// Automatic and Manual bins, nothing wrong with it.
inline PrinterPaper QuarterInchLaser()
{
    const QMargins quarterInch(360, 360, 360, 360);
    PrinterPaper paper;
    paper.sizes = {{QStringLiteral("Letter"), 1, 12240, 15840, quarterInch},
                   {QStringLiteral("A4"), 9, 11906, 16838, quarterInch}};
    paper.bins = {{QStringLiteral("Automatic"), 7}, {QStringLiteral("Manual Feed"), 4}};
    paper.currentSize = 1;
    paper.currentBin = 7;
    paper.state.known = true;
    return paper;
}

} // namespace bravcpl5::test
