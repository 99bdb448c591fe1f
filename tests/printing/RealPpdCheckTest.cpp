// The check against the sandbox's queues as the system reads them: real PPDs' sizes, bins
// and imageable areas, and queues that are stopped or reject jobs.

#include "library/Units.h"
#include "printers/PaperSizeCodes.h"
#include "printing/PrinterCheck.h"
#include "support/SandboxCups.h"

#include <functional>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

QString inches(double twips) { return QString::number(twips / TwipsPerInch, 'f', 4); }

void margins(PageSetup &s, const QString &all)
{
    s.topMargin = s.bottomMargin = s.leftMargin = s.rightMargin = all;
}

// A DYMO label of its own (its "30252 Address"), by the code and size this workstation gives
// it, with margins just clear of what the printer cannot reach; code 0 when it has none.
PageSetup addressLabel(const PrinterPaper &paper)
{
    PageSetup s;
    s.paperSize = 0;
    for (const PaperSizeInfo &size : paper.sizes) {
        if (!size.name.contains(QLatin1String("30252")))
            continue;
        EXPECT_GE(size.code, FirstPrinterPaperCode);
        s.paperSize = size.code;
        s.paperWidth = inches(size.widthTwips);
        s.paperHeight = inches(size.heightTwips);
        s.topMargin = inches(size.unprintableTwips.top() + 1);
        s.bottomMargin = inches(size.unprintableTwips.bottom() + 1);
        s.leftMargin = inches(size.unprintableTwips.left() + 1);
        s.rightMargin = inches(size.unprintableTwips.right() + 1);
    }
    return s;
}

struct RealCase {
    const char *name;
    const char *queue;
    std::function<PageSetup(const PrinterPaper &)> setup;
    QStringList kinds;
};

PageSetup letter(const std::function<void(PageSetup &)> &change = {})
{
    PageSetup s;
    s.paperSize = 1;
    margins(s, QStringLiteral(".25"));
    if (change)
        change(s);
    return s;
}

TEST(RealPpdCheck, WhatTheQueuesCannotPrint)
{
    SKIP_WITHOUT_CUPSD();
    const auto constant = [](PageSetup s) { return [s](const PrinterPaper &) { return s; }; };
    const RealCase cases[] = {
        {"LetterOnALabelPrinter",
         "Real-DYMO-LabelWriter-450",
         constant(letter()),
         {"paper-not-offered"}},
        {"ItsOwnLabel", "Real-DYMO-LabelWriter-450", addressLabel, {}},
        {"NoEnvelopeFeeder",
         "Real-Brother-HL-2600CN",
         constant(letter([](PageSetup &s) { s.paperSource = 5; })),
         {"bin-not-offered"}},
        {"MarginsInsideTheUnprintableEdge",
         "Real-HP-LaserJet-4250",
         constant(letter([](PageSetup &s) { margins(s, QStringLiteral(".05")); })),
         {"margins-outside-printable-area"}},
        {"MatchingLetter", "Real-HP-LaserJet-4250", constant(letter()), {}},
        {"ThreeColumnsOfThreeInchLabels",
         "Real-HP-LaserJet-4250",
         constant(letter([](PageSetup &s) {
             s.columnsPerSheet = QStringLiteral("3");
             s.labelWidth = QStringLiteral("3");
             s.horizontalGap = QStringLiteral("0");
         })),
         {"labels-do-not-fit"}},
        {"Stopped", "Stopped-Laser", constant(letter()), {"printer-stopped"}},
        {"Rejecting", "Rejecting-Laser", constant(letter()), {"printer-not-accepting"}},
    };
    const std::unique_ptr<PrinterInfo> system = CreateSystemPrinterInfo();
    for (const RealCase &c : cases) {
        SCOPED_TRACE(c.name);
        const QString queue = QString::fromUtf8(c.queue);
        if (!system->printerNames().contains(queue)) {
            ADD_FAILURE() << c.queue << " is not in the sandbox";
            continue;
        }
        const PrinterPaper paper = system->paper(queue);
        const QList<PrinterFinding> findings = CheckPageSetup(c.setup(paper), {queue, paper});
        QStringList kinds;
        for (const PrinterFinding &finding : findings)
            kinds << FindingKindName(finding.kind);
        EXPECT_EQ(kinds, c.kinds) << DescribeFindings(findings).toStdString();
    }
}

} // namespace
} // namespace bravcpl5
