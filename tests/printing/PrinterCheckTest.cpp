// The check of a page setup against its printer, rule by rule, on a laser printer whose
// hardware margins differ on every edge, so that a margin checked against the wrong edge
// (a wrong turn for landscape, the gutter on the wrong side) shows.

#include "printing/PrinterCheck.h"

#include <functional>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

constexpr int inch = 1440;

// Letter and its own 4 x 6 in label stock (code 257); left 0.125, top 0.25, right 0.375,
// bottom 0.5 in out of reach.
PrinterPaper laser()
{
    PrinterPaper paper;
    const QMargins reach(inch / 8, inch / 4, inch * 3 / 8, inch / 2);
    paper.sizes = {{QStringLiteral("Letter"), 1, 17 * inch / 2, 11 * inch, reach},
                   {QStringLiteral("Label 4 x 6"), 257, 4 * inch, 6 * inch, reach}};
    paper.bins = {{QStringLiteral("Upper"), 1}, {QStringLiteral("Automatic"), 7}};
    paper.customMinTwips = QSize(inch, inch);
    paper.customMaxTwips = QSize(17 * inch / 2, 14 * inch);
    return paper;
}

// Letter from the automatic bin with 1 in margins: nothing to find.
PageSetup letter()
{
    PageSetup setup;
    setup.paperSize = 1;
    setup.paperSource = 7;
    return setup;
}

PageSetup with(const std::function<void(PageSetup &)> &change)
{
    PageSetup setup = letter();
    change(setup);
    return setup;
}

PrinterToCheck on(std::optional<PrinterPaper> paper = laser(), bool withState = true)
{
    return {QStringLiteral("Office Laser"), std::move(paper), withState};
}

PrinterPaper changed(const std::function<void(PrinterPaper &)> &change)
{
    PrinterPaper paper = laser();
    change(paper);
    return paper;
}

void margins(PageSetup &s, const char *top, const char *bottom, const char *left, const char *right)
{
    s.topMargin = QLatin1String(top);
    s.bottomMargin = QLatin1String(bottom);
    s.leftMargin = QLatin1String(left);
    s.rightMargin = QLatin1String(right);
}

void labels(PageSetup &s, const char *columns, const char *width, const char *height,
            const char *gap)
{
    s.columnsPerSheet = QLatin1String(columns);
    s.labelWidth = QLatin1String(width);
    s.labelHeight = QLatin1String(height);
    s.horizontalGap = QLatin1String(gap);
}

struct CheckCase {
    const char *name;
    PageSetup setup;
    PrinterToCheck printer;
    QStringList kinds;
    QStringList edges = {}; // the margins found too near their edge
};

TEST(PrinterCheck, EachRuleFiresAtItsBoundary)
{
    const QString paper = QStringLiteral("paper-not-offered");
    const QString tooNear = QStringLiteral("margins-outside-printable-area");
    const QString labelsOver = QStringLiteral("labels-do-not-fit");
    const CheckCase cases[] = {
        {"Fits", letter(), on(), {}},
        {"NoPrinter", letter(), {QString(), laser()}, {"no-printer"}},
        {"PrinterNotInstalled", letter(), on(std::nullopt), {"printer-missing"}},
        {"TabloidNotOffered", with([](PageSetup &s) { s.paperSize = 3; }), on(), {paper}},
        // Not among the printer's sizes, but a custom sheet it takes.
        {"LegalAsCustomSheet", with([](PageSetup &s) { s.paperSize = 5; }), on(), {}},
        // Letter Small is Letter's size: the printer's Letter prints it.
        {"TwinOfLetter", with([](PageSetup &s) { s.paperSize = 2; }), on(), {}},
        // Saved on another workstation as its code 300: found by its size as this one's 257.
        {"OwnSizeUnderAnotherCode",
         with([](PageSetup &s) {
             s.paperSize = 300;
             s.paperWidth = QStringLiteral("4");
             s.paperHeight = QStringLiteral("6");
         }),
         on(),
         {}},
        {"CustomSizeInRange",
         with([](PageSetup &s) {
             s.paperSize = 300;
             s.paperWidth = QStringLiteral("5");
             s.paperHeight = QStringLiteral("14");
         }),
         on(),
         {}},
        {"CustomSizeTooLong",
         with([](PageSetup &s) {
             s.paperSize = 300;
             s.paperWidth = QStringLiteral("5");
             s.paperHeight = QStringLiteral("14.1");
         }),
         on(),
         {paper}},
        {"CustomSizeWithoutCustomSheets",
         with([](PageSetup &s) {
             s.paperSize = 300;
             s.paperWidth = QStringLiteral("5");
             s.paperHeight = QStringLiteral("7");
         }),
         on(changed([](PrinterPaper &p) { p.customMinTwips = p.customMaxTwips = QSize(); })),
         {paper}},
        {"EnvelopeBinMissing",
         with([](PageSetup &s) { s.paperSource = 5; }),
         on(),
         {"bin-not-offered"}},
        // Portrait: every edge against its own hardware margin, exactly at it is enough.
        {"AtEveryHardwareMargin",
         with([](PageSetup &s) { margins(s, ".25", ".5", ".125", ".375"); }),
         on(),
         {}},
        {"BelowEveryHardwareMargin",
         with([](PageSetup &s) { margins(s, ".24", ".49", ".12", ".37"); }),
         on(),
         {tooNear},
         {"bottom", "left", "right", "top"}},
        // Landscape: the paper's top edge is on the left, its right edge on top, and so on.
        {"LandscapeAtTurnedMargins",
         with([](PageSetup &s) {
             s.landscape = true;
             margins(s, ".375", ".125", ".25", ".5");
         }),
         on(),
         {}},
        {"LandscapeBelowTurnedMargins",
         with([](PageSetup &s) {
             s.landscape = true;
             margins(s, ".37", ".12", ".24", ".49");
         }),
         on(),
         {tooNear},
         {"bottom", "left", "right", "top"}},
        // The gutter widens the left margin, the binding edge.
        {"GutterMakesUpTheLeftMargin",
         with([](PageSetup &s) {
             s.leftMargin = QStringLiteral(".1");
             s.gutter = QStringLiteral(".025");
         }),
         on(),
         {}},
        {"GutterDoesNotHelpTheRight",
         with([](PageSetup &s) {
             s.rightMargin = QStringLiteral(".3");
             s.gutter = QStringLiteral(".1");
         }),
         on(),
         {tooNear},
         {"right"}},
        // Mirrored, even pages put the left margin on the right edge.
        {"MirroredLeftMarginOnTheRight",
         with([](PageSetup &s) {
             s.mirrorMargins = true;
             s.leftMargin = QStringLiteral(".2");
             s.rightMargin = QStringLiteral(".5");
         }),
         on(),
         {tooNear},
         {"right"}},
        {"MirroredGutterOnTheRight",
         with([](PageSetup &s) {
             s.mirrorMargins = true;
             s.leftMargin = QStringLiteral(".275");
             s.gutter = QStringLiteral(".1");
             s.rightMargin = QStringLiteral(".5");
         }),
         on(),
         {}},
        // Three columns of 2.5 in with their gaps and margins fill Letter exactly.
        {"LabelsFitExactly",
         with([](PageSetup &s) {
             margins(s, ".5", ".5", ".25", ".5");
             labels(s, "3", "2.5", "10", ".125");
         }),
         on(),
         {}},
        {"LabelsTooWide",
         with([](PageSetup &s) {
             margins(s, ".5", ".5", ".25", ".5");
             labels(s, "3", "2.51", "1", ".125");
         }),
         on(),
         {labelsOver}},
        {"LabelTooTall",
         with([](PageSetup &s) {
             margins(s, ".5", ".5", ".25", ".5");
             labels(s, "1", "2", "10.01", ".125");
         }),
         on(),
         {labelsOver}},
        // Label fields as every configuration has them are not a label sheet.
        {"DefaultLabelFieldsUnchecked",
         with([](PageSetup &s) { margins(s, "1", "1", "4", "4"); }),
         on(),
         {}},
        {"LabelsAcrossLandscape",
         with([](PageSetup &s) {
             s.landscape = true;
             margins(s, ".5", ".5", ".5", ".5");
             labels(s, "3", "3", "1", "0");
         }),
         on(),
         {}},
        {"SameLabelsPortrait",
         with([](PageSetup &s) {
             margins(s, ".5", ".5", ".5", ".5");
             labels(s, "3", "3", "1", "0");
         }),
         on(),
         {labelsOver}},
        {"PrinterNotReady",
         letter(),
         on(changed([](PrinterPaper &p) {
             p.state = {true, true, false, {QStringLiteral("media-empty-error")}};
         })),
         {"printer-stopped", "printer-not-accepting", "printer-attention"}},
        {"StateLeftOut",
         letter(),
         on(changed([](PrinterPaper &p) {
                p.state = {true, true, false, {QStringLiteral("media-empty-error")}};
            }),
            false),
         {}},
    };
    for (const CheckCase &c : cases) {
        SCOPED_TRACE(c.name);
        const QList<PrinterFinding> findings = CheckPageSetup(c.setup, c.printer);
        QStringList kinds;
        for (const PrinterFinding &finding : findings)
            kinds << FindingKindName(finding.kind);
        EXPECT_EQ(kinds, c.kinds) << DescribeFindings(findings).toStdString();
        if (!c.edges.isEmpty() && !findings.isEmpty()) {
            EXPECT_EQ(findings.first().values.keys(), c.edges);
        }
    }
}

} // namespace
} // namespace bravcpl5
