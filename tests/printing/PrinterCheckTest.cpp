// The check of a page setup against its printer, rule by rule, on a laser printer whose
// hardware margins differ on every edge, so that a margin checked against the wrong edge
// (a wrong turn for landscape, the gutter on the wrong side) shows.

#include "printing/PrinterCheck.h"

#include <QHash>
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

// Letter changed by "Field=value" words (lengths in inches), "Landscape" and "Mirrored".
PageSetup with(const char *changes)
{
    PageSetup setup = letter();
    const QHash<QString, QString PageSetup::*> lengths = {
        {"Top", &PageSetup::topMargin},           {"Bottom", &PageSetup::bottomMargin},
        {"Left", &PageSetup::leftMargin},         {"Right", &PageSetup::rightMargin},
        {"Gutter", &PageSetup::gutter},           {"PaperWidth", &PageSetup::paperWidth},
        {"PaperHeight", &PageSetup::paperHeight}, {"Columns", &PageSetup::columnsPerSheet},
        {"LabelWidth", &PageSetup::labelWidth},   {"LabelHeight", &PageSetup::labelHeight},
        {"Gap", &PageSetup::horizontalGap}};
    for (const QString &change : QString::fromLatin1(changes).split(u' ')) {
        const QString field = change.section(u'=', 0, 0), value = change.section(u'=', 1);
        if (field == u"Landscape")
            setup.landscape = true;
        else if (field == u"Mirrored")
            setup.mirrorMargins = true;
        else if (field == u"PaperSize")
            setup.paperSize = value.toInt();
        else if (field == u"PaperSource")
            setup.paperSource = value.toInt();
        else if (lengths.contains(field))
            setup.*lengths.value(field) = value;
        else
            ADD_FAILURE() << "no field " << field.toStdString();
    }
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

// Stopped, rejecting jobs and out of paper.
PrinterPaper stopped()
{
    return changed([](PrinterPaper &p) {
        p.state = {true, true, false, {QStringLiteral("media-empty-error")}};
    });
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
        {"TabloidNotOffered", with("PaperSize=3"), on(), {paper}},
        // Not among the printer's sizes, but a custom sheet it takes.
        {"LegalAsCustomSheet", with("PaperSize=5"), on(), {}},
        // Letter Small is Letter's size: the printer's Letter prints it.
        {"TwinOfLetter", with("PaperSize=2"), on(), {}},
        // Saved on another workstation as its code 300: found by its size as this one's 257.
        {"OwnSizeUnderAnotherCode", with("PaperSize=300 PaperWidth=4 PaperHeight=6"), on(), {}},
        {"CustomSizeInRange", with("PaperSize=300 PaperWidth=5 PaperHeight=14"), on(), {}},
        {"CustomSizeTooLong", with("PaperSize=300 PaperWidth=5 PaperHeight=14.1"), on(), {paper}},
        {"CustomSizeWithoutCustomSheets",
         with("PaperSize=300 PaperWidth=5 PaperHeight=7"),
         on(changed([](PrinterPaper &p) { p.customMinTwips = p.customMaxTwips = QSize(); })),
         {paper}},
        {"EnvelopeBinMissing", with("PaperSource=5"), on(), {"bin-not-offered"}},
        // Portrait: every edge against its own hardware margin, exactly at it is enough.
        {"AtEveryHardwareMargin", with("Top=.25 Bottom=.5 Left=.125 Right=.375"), on(), {}},
        {"BelowEveryHardwareMargin",
         with("Top=.24 Bottom=.49 Left=.12 Right=.37"),
         on(),
         {tooNear},
         {"bottom", "left", "right", "top"}},
        // Landscape: the paper's top edge is on the left, its right edge on top, and so on.
        {"LandscapeAtTurnedMargins",
         with("Landscape Top=.375 Bottom=.125 Left=.25 Right=.5"),
         on(),
         {}},
        {"LandscapeBelowTurnedMargins",
         with("Landscape Top=.37 Bottom=.12 Left=.24 Right=.49"),
         on(),
         {tooNear},
         {"bottom", "left", "right", "top"}},
        // The gutter widens the left margin, the binding edge.
        {"GutterMakesUpTheLeftMargin", with("Left=.1 Gutter=.025"), on(), {}},
        {"GutterDoesNotHelpTheRight", with("Right=.3 Gutter=.1"), on(), {tooNear}, {"right"}},
        // Mirrored, even pages put the left margin on the right edge.
        {"MirroredLeftMarginOnTheRight",
         with("Mirrored Left=.2 Right=.5"),
         on(),
         {tooNear},
         {"right"}},
        {"MirroredGutterOnTheRight", with("Mirrored Left=.275 Gutter=.1 Right=.5"), on(), {}},
        // Three columns of 2.5 in with their gaps and margins fill Letter exactly.
        {"LabelsFitExactly",
         with(
             "Top=.5 Bottom=.5 Left=.25 Right=.5 Columns=3 LabelWidth=2.5 LabelHeight=10 Gap=.125"),
         on(),
         {}},
        {"LabelsTooWide",
         with(
             "Top=.5 Bottom=.5 Left=.25 Right=.5 Columns=3 LabelWidth=2.51 LabelHeight=1 Gap=.125"),
         on(),
         {labelsOver}},
        {"LabelTooTall",
         with("Top=.5 Bottom=.5 Left=.25 Right=.5 Columns=1 LabelWidth=2 LabelHeight=10.01 "
              "Gap=.125"),
         on(),
         {labelsOver}},
        // Label fields as every configuration has them are not a label sheet.
        {"DefaultLabelFieldsUnchecked", with("Top=1 Bottom=1 Left=4 Right=4"), on(), {}},
        {"LabelsAcrossLandscape",
         with("Landscape Top=.5 Bottom=.5 Left=.5 Right=.5 Columns=3 LabelWidth=3 LabelHeight=1 "
              "Gap=0"),
         on(),
         {}},
        {"SameLabelsPortrait",
         with("Top=.5 Bottom=.5 Left=.5 Right=.5 Columns=3 LabelWidth=3 LabelHeight=1 Gap=0"),
         on(),
         {labelsOver}},
        {"PrinterNotReady",
         letter(),
         on(stopped()),
         {"printer-stopped", "printer-not-accepting", "printer-attention"}},
        {"StateLeftOut", letter(), on(stopped(), false), {}},
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
