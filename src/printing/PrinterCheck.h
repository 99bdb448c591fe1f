#pragma once

// Whether a printer can print a configuration's page setup as it is stored: its paper, its
// bin, its margins and its label sheet, and whether the printer is ready. Each finding says
// what is wrong in a short sentence for people, with a kind that tools and tests match on.
// A configuration without findings is "ok".

#include "printers/PrinterInfo.h"
#include "printing/PageSetup.h"

#include <QList>
#include <QString>
#include <QVariantMap>
#include <optional>

namespace bravcpl5 {

enum class FindingKind {
    NoPrinter,                   // "no-printer"
    PrinterMissing,              // "printer-missing"
    PaperNotOffered,             // "paper-not-offered"
    BinNotOffered,               // "bin-not-offered"
    MarginsOutsidePrintableArea, // "margins-outside-printable-area"
    LabelsDoNotFit,              // "labels-do-not-fit"
    PrinterStopped,              // "printer-stopped"
    PrinterNotAccepting,         // "printer-not-accepting"
    PrinterAttention,            // "printer-attention"
};

// The kind's identifier, as tools print it ("paper-not-offered").
QString FindingKindName(FindingKind kind);

struct PrinterFinding {
    FindingKind kind;
    QString message;    // "Legal (8.5 x 14 in) is not a paper size of DYMO LabelWriter 450"
    QVariantMap values; // what was found wanting: "paperSize", "margin", "reasons", ...
};

// The printer a configuration prints on, as the check sees it.
struct PrinterToCheck {
    QString name;                      // "" when neither the configuration nor "(Default)"
                                       // has a printer
    std::optional<PrinterPaper> paper; // none when the printer is not on this workstation
    bool withState = true;             // false leaves the printer's state out
};

// The findings for a page setup on a printer; empty when the printer prints it as stored.
// Sizes compare by dimensions as the paper codes do, so a printer's twin of a standard
// size offers it. The label sheet is checked only where it is in use (more than one column,
// or label fields other than the defaults every configuration has).
QList<PrinterFinding> CheckPageSetup(const PageSetup &setup, const PrinterToCheck &printer);

// A configuration's findings, as the store checks every configuration at once.
struct ConfigurationCheck {
    QString configuration;
    QString printer; // the printer it prints on; "" for none
    QList<PrinterFinding> findings;
};

// The findings in one line each, or "ok".
QString DescribeFindings(const QList<PrinterFinding> &findings);

} // namespace bravcpl5
