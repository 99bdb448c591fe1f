#include "printing/PrinterCheck.h"

#include "library/Units.h"
#include "library/ValueRules.h"
#include "printers/PaperSizeCodes.h"

#include <QMarginsF>
#include <QPageSize>
#include <QSizeF>
#include <algorithm>
#include <cmath>

namespace bravcpl5 {

namespace {

// Lengths are compared in twips; a twip either way is rounding, not a fault.
constexpr double slack = 1.0;

QString inches(double twips)
{
    return QString::number(twips / TwipsPerInch, 'g', 4) + QStringLiteral(" in");
}

QString sizeText(const QSizeF &twips)
{
    return QStringLiteral("%1 x %2 in")
        .arg(twips.width() / TwipsPerInch, 0, 'g', 4)
        .arg(twips.height() / TwipsPerInch, 0, 'g', 4);
}

double twipsOf(const QString &inchesText, double fallback = 0)
{
    const auto value = values::textToSingle(inchesText);
    return value ? *value * TwipsPerInch : fallback;
}

// The sheet a page setup prints on: its portrait size and the edges the printer cannot
// reach, both in twips.
struct Sheet {
    QSizeF twips;
    QMarginsF unprintable;
};

bool takesCustom(const PrinterPaper &paper, const QSizeF &twips)
{
    return !paper.customMinTwips.isEmpty() && twips.width() + slack >= paper.customMinTwips.width()
           && twips.height() + slack >= paper.customMinTwips.height()
           && twips.width() <= paper.customMaxTwips.width() + slack
           && twips.height() <= paper.customMaxTwips.height() + slack;
}

Sheet sheetOf(const PaperSizeInfo &size)
{
    return {QSizeF(size.widthTwips, size.heightTwips), QMarginsF(size.unprintableTwips)};
}

// The printer's sheet for the stored code: its own, a twin of a standard sheet, a custom
// sheet it takes, else none (and a finding).
std::optional<Sheet> findSheet(const PageSetup &setup, const PrinterToCheck &printer,
                               QList<PrinterFinding> &findings)
{
    const PrinterPaper &paper = *printer.paper;
    const int code = *setup.paperSize;
    QSizeF wanted;
    QString what;
    if (code >= FirstPrinterPaperCode) {
        wanted = QSizeF(twipsOf(setup.paperWidth), twipsOf(setup.paperHeight));
        if (const PaperSizeInfo *size = StoredPaperSize(paper.sizes, code, wanted / TwipsPerInch))
            return sheetOf(*size);
        what = QStringLiteral("The custom size %1").arg(sizeText(wanted));
    } else {
        for (const PaperSizeInfo &size : paper.sizes) {
            if (size.code == code
                || IsSheetOfCode(code, QSizeF(size.widthTwips, size.heightTwips) / TwipsPerPoint))
                return sheetOf(size);
        }
        wanted = PaperCodePoints(code) * TwipsPerPoint;
        const QPageSize::PageSizeId id = QPageSize::id(code);
        what = id == QPageSize::Custom
                   ? QStringLiteral("Paper size %1").arg(code)
                   : QStringLiteral("%1 (%2)").arg(
                       QPageSize(id).name(),
                       sizeText(QPageSize(id).size(QPageSize::Point) * TwipsPerPoint));
    }
    if (!wanted.isEmpty() && takesCustom(paper, wanted))
        return Sheet{wanted, QMarginsF()};
    findings.append({FindingKind::PaperNotOffered,
                     QStringLiteral("%1 is not a paper size of %2").arg(what, printer.name),
                     {{QStringLiteral("paperSize"), code},
                      {QStringLiteral("width"), wanted.width() / TwipsPerInch},
                      {QStringLiteral("height"), wanted.height() / TwipsPerInch}}});
    return std::nullopt;
}

QString binName(int code)
{
    static const char *const names[] = {
        nullptr,   "Upper",        "Lower",           "Middle",
        "Manual",  "Envelope",     "Envelope Manual", "Automatic",
        "Tractor", "Small Format", "Large Format",    "Large Capacity",
        nullptr,   nullptr,        "Cassette",        "Form Source"};
    const bool named = code > 0 && code < int(std::size(names)) && names[code];
    return named ? QStringLiteral("The %1 bin (%2)").arg(QLatin1String(names[code])).arg(code)
                 : QStringLiteral("Bin %1").arg(code);
}

void checkBin(const PageSetup &setup, const PrinterToCheck &printer,
              QList<PrinterFinding> &findings)
{
    const QList<PaperBinInfo> &bins = printer.paper->bins;
    if (!setup.paperSource || std::any_of(bins.begin(), bins.end(), [&](const PaperBinInfo &b) {
            return b.code == *setup.paperSource;
        }))
        return;
    findings.append({FindingKind::BinNotOffered,
                     QStringLiteral("%1 is not a paper source of %2")
                         .arg(binName(*setup.paperSource), printer.name),
                     {{QStringLiteral("paperSource"), *setup.paperSource}}});
}

// Every edge of the page as printed against what the printer reaches there: landscape
// turns the paper a quarter counter-clockwise (its top edge comes to the left); the gutter
// widens the binding edge, which mirror margins move to the right on even pages.
void checkMargins(const PageSetup &setup, const Sheet &sheet, const PrinterToCheck &printer,
                  QList<PrinterFinding> &findings)
{
    const QMarginsF &m = sheet.unprintable;
    const QMarginsF least = setup.landscape ? QMarginsF(m.top(), m.right(), m.bottom(), m.left())
                                            : m;
    const double gutter = std::max(0.0, twipsOf(setup.gutter));
    const double left = twipsOf(setup.leftMargin, TwipsPerInch) + gutter;
    const double right = twipsOf(setup.rightMargin, TwipsPerInch);
    struct Edge {
        const char *name;
        double margin, least;
    };
    QList<Edge> edges = {{"top", twipsOf(setup.topMargin, TwipsPerInch), least.top()},
                         {"bottom", twipsOf(setup.bottomMargin, TwipsPerInch), least.bottom()},
                         {"left", left, least.left()},
                         {"right", right, least.right()}};
    if (setup.mirrorMargins) { // even pages
        edges.append({"left", right, least.left()});
        edges.append({"right", left, least.right()});
    }
    QStringList tooNear;
    QVariantMap values;
    for (const Edge &edge : std::as_const(edges)) {
        const QString name = QLatin1String(edge.name);
        if (edge.margin + slack >= edge.least || values.contains(name))
            continue;
        tooNear << QStringLiteral("%1 %2 (at least %3)")
                       .arg(name, inches(edge.margin), inches(edge.least));
        values.insert(name, edge.margin / TwipsPerInch);
    }
    if (!tooNear.isEmpty())
        findings.append({FindingKind::MarginsOutsidePrintableArea,
                         QStringLiteral("%1 cannot print so near the edge: %2")
                             .arg(printer.name, tooNear.join(QStringLiteral(", "))),
                         values});
}

// Whether the label fields say more than every configuration's defaults.
bool labelsInUse(const PageSetup &setup)
{
    const auto is = [](const QString &text, double value) {
        const auto read = values::textToSingle(text);
        return !read || std::abs(*read - value) < 1e-6;
    };
    return !is(setup.columnsPerSheet, 1) || !is(setup.labelWidth, 3.5) || !is(setup.labelHeight, 1)
           || !is(setup.horizontalGap, 0.125) || !is(setup.verticalGap, 0);
}

void checkLabels(const PageSetup &setup, const Sheet &sheet, QList<PrinterFinding> &findings)
{
    if (!labelsInUse(setup))
        return;
    const QSizeF paper = setup.landscape ? sheet.twips.transposed() : sheet.twips;
    const double columns = std::max(
        1.0, std::round(double(values::textToSingle(setup.columnsPerSheet).value_or(1))));
    const double across = twipsOf(setup.leftMargin, TwipsPerInch)
                          + std::max(0.0, twipsOf(setup.gutter))
                          + twipsOf(setup.rightMargin, TwipsPerInch)
                          + columns * twipsOf(setup.labelWidth)
                          + (columns - 1) * twipsOf(setup.horizontalGap);
    const double down = twipsOf(setup.topMargin, TwipsPerInch)
                        + twipsOf(setup.bottomMargin, TwipsPerInch) + twipsOf(setup.labelHeight);
    QStringList problems;
    if (across > paper.width() + slack)
        problems << QStringLiteral("%1 across on paper %2 wide")
                        .arg(inches(across), inches(paper.width()));
    if (down > paper.height() + slack)
        problems
            << QStringLiteral("%1 down on paper %2 high").arg(inches(down), inches(paper.height()));
    if (!problems.isEmpty())
        findings.append({FindingKind::LabelsDoNotFit,
                         QStringLiteral("The labels with their margins need %1")
                             .arg(problems.join(QStringLiteral(" and "))),
                         {{QStringLiteral("across"), across / TwipsPerInch},
                          {QStringLiteral("down"), down / TwipsPerInch},
                          {QStringLiteral("paperWidth"), paper.width() / TwipsPerInch},
                          {QStringLiteral("paperHeight"), paper.height() / TwipsPerInch}}});
}

void checkState(const PrinterToCheck &printer, QList<PrinterFinding> &findings)
{
    const PrinterState &state = printer.paper->state;
    if (!printer.withState || !state.known)
        return;
    if (state.stopped)
        findings.append(
            {FindingKind::PrinterStopped, QStringLiteral("%1 is stopped").arg(printer.name), {}});
    if (!state.acceptingJobs)
        findings.append({FindingKind::PrinterNotAccepting,
                         QStringLiteral("%1 is not accepting jobs").arg(printer.name),
                         {}});
    if (!state.reasons.isEmpty())
        findings.append({FindingKind::PrinterAttention,
                         QStringLiteral("%1 needs attention: %2")
                             .arg(printer.name, state.reasons.join(QStringLiteral(", "))),
                         {{QStringLiteral("reasons"), state.reasons}}});
}

} // namespace

QString FindingKindName(FindingKind kind)
{
    switch (kind) {
    case FindingKind::NoPrinter:
        return QStringLiteral("no-printer");
    case FindingKind::PrinterMissing:
        return QStringLiteral("printer-missing");
    case FindingKind::PaperNotOffered:
        return QStringLiteral("paper-not-offered");
    case FindingKind::BinNotOffered:
        return QStringLiteral("bin-not-offered");
    case FindingKind::MarginsOutsidePrintableArea:
        return QStringLiteral("margins-outside-printable-area");
    case FindingKind::LabelsDoNotFit:
        return QStringLiteral("labels-do-not-fit");
    case FindingKind::PrinterStopped:
        return QStringLiteral("printer-stopped");
    case FindingKind::PrinterNotAccepting:
        return QStringLiteral("printer-not-accepting");
    case FindingKind::PrinterAttention:
        return QStringLiteral("printer-attention");
    }
    return QString();
}

QList<PrinterFinding> CheckPageSetup(const PageSetup &setup, const PrinterToCheck &printer)
{
    QList<PrinterFinding> findings;
    if (printer.name.isEmpty()) {
        findings.append({FindingKind::NoPrinter,
                         QStringLiteral("No printer is assigned to this configuration or to "
                                        "\"(Default)\""),
                         {}});
        return findings;
    }
    if (!printer.paper) {
        findings.append(
            {FindingKind::PrinterMissing,
             QStringLiteral("%1 is not installed on this workstation").arg(printer.name),
             {{QStringLiteral("printer"), printer.name}}});
        return findings;
    }
    checkState(printer, findings);
    const std::optional<Sheet> sheet = setup.paperSize ? findSheet(setup, printer, findings)
                                                       : std::nullopt;
    checkBin(setup, printer, findings);
    if (sheet) {
        checkMargins(setup, *sheet, printer, findings);
        checkLabels(setup, *sheet, findings);
    }
    return findings;
}

QString DescribeFindings(const QList<PrinterFinding> &findings)
{
    if (findings.isEmpty())
        return QStringLiteral("ok");
    QStringList lines;
    for (const PrinterFinding &finding : findings)
        lines << finding.message;
    return lines.join(u'\n');
}

} // namespace bravcpl5
