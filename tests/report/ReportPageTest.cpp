#include "report/ReportPage.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

constexpr double inch = 1440;

// A queue like the sandbox's office laser: a quarter inch all round cannot be printed.
CupsQueue officeLaser()
{
    CupsQueue queue;
    queue.found = true;
    queue.hasPpd = true;
    queue.bins = {{"InputSlot", "Upper", "Upper Tray", 1},
                  {"InputSlot", "Lower", "Lower Tray", 2},
                  {"InputSlot", "Manual", "Manual Feed", 4}};
    queue.defaultBinCode = 2;
    const QMarginsF quarter(18, 18, 18, 18);
    queue.sizes = {{"Letter", "Letter", QSizeF(612, 792), quarter, 1},
                   {"Legal", "Legal", QSizeF(612, 1008), quarter, 5},
                   {"w288h432", "Label 4 x 6", QSizeF(288, 432), QMarginsF(4, 8, 12, 16), 256},
                   {"LetterSmall", "Letter (Small)", QSizeF(612, 792), quarter, 257}};
    queue.defaultSizeCode = 1;
    return queue;
}

struct PageCase {
    const char *name;
    ReportPageValues values;
    bool withQueue;
    QSizeF paperTwips; // as printed
    QMarginsF margins; // twips
    double gutter;
    const char *media;
    const char *bin;
    int adjustments;
};

void PrintTo(const PageCase &c, std::ostream *os) { *os << c.name; }

ReportPageValues with(std::function<void(ReportPageValues &)> change)
{
    ReportPageValues values;
    change(values);
    return values;
}

class ResolveReportPageTest : public ::testing::TestWithParam<PageCase>
{
};

TEST_P(ResolveReportPageTest, FitsThePrinter)
{
    const PageCase &c = GetParam();
    const ResolvedReportPage page = ResolveReportPage(
        c.values, c.withQueue ? officeLaser() : CupsQueue(), {});
    EXPECT_NEAR(page.paperTwips().width(), c.paperTwips.width(), 1);
    EXPECT_NEAR(page.paperTwips().height(), c.paperTwips.height(), 1);
    EXPECT_NEAR(page.margins.left(), c.margins.left(), 0.01);
    EXPECT_NEAR(page.margins.top(), c.margins.top(), 0.01);
    EXPECT_NEAR(page.margins.right(), c.margins.right(), 0.01);
    EXPECT_NEAR(page.margins.bottom(), c.margins.bottom(), 0.01);
    EXPECT_NEAR(page.gutter, c.gutter, 0.01);
    EXPECT_EQ(page.mediaKeyword, QString::fromUtf8(c.media));
    EXPECT_EQ(page.binKeyword, QString::fromUtf8(c.bin));
    EXPECT_EQ(page.adjustments.size(), c.adjustments) << page.adjustments.join(u'\n').toStdString();
}

const QMarginsF oneInch(inch, inch, inch, inch);

INSTANTIATE_TEST_SUITE_P(
    Table, ResolveReportPageTest,
    ::testing::Values(
        PageCase{"DefaultsWithoutPrinter", {}, false, {12240, 15840}, oneInch, 0, "", "", 0},
        PageCase{"DefaultsOnTheLaserWithoutAutoBin",
                 {},
                 true,
                 {12240, 15840},
                 oneInch,
                 0,
                 "Letter",
                 "Lower",
                 1},
        PageCase{"LegalLandscapeUpper",
                 with([](auto &v) {
                     v.paperSize = 5;
                     v.orientation = 2;
                     v.paperSource = 1;
                 }),
                 true,
                 {20160, 12240},
                 oneInch,
                 0,
                 "Legal",
                 "Upper",
                 0},
        PageCase{"CustomSizeFromWidthAndHeight",
                 with([](auto &v) {
                     v.paperSize = 256;
                     v.paperWidth = 4 * inch;
                     v.paperHeight = 6 * inch;
                     v.paperSource = 2;
                 }),
                 true,
                 {5760, 8640},
                 oneInch,
                 0,
                 "w288h432",
                 "Lower",
                 0},
        PageCase{"CustomLandscapeTurnsTheUnprintableEdges",
                 with([](auto &v) {
                     v.paperSize = 256;
                     v.paperWidth = 4 * inch;
                     v.paperHeight = 6 * inch;
                     v.orientation = 2;
                     v.paperSource = 2;
                     v.topMargin = v.bottomMargin = 0;
                     v.leftMargin = v.rightMargin = 0;
                 }),
                 true,
                 {8640, 5760},
                 QMarginsF(160, 240, 320, 80),
                 0,
                 "w288h432",
                 "Lower",
                 4},
        PageCase{"MarginsBelowThePrintableAreaAreRaised",
                 with([](auto &v) {
                     v.leftMargin = 0;
                     v.topMargin = -100;
                     v.paperSource = 2;
                 }),
                 true,
                 {12240, 15840},
                 QMarginsF(360, 360, inch, inch),
                 0,
                 "Letter",
                 "Lower",
                 2},
        PageCase{
            "NoPrinterTakesZeroMargins",
            with([](auto &v) { v.leftMargin = v.topMargin = v.rightMargin = v.bottomMargin = 0; }),
            false,
            {12240, 15840},
            QMarginsF(),
            0,
            "",
            "",
            0},
        PageCase{"HugeGutterIsCutToThePaper",
                 with([](auto &v) {
                     v.gutter = 1036800;
                     v.paperSource = 2;
                 }),
                 true,
                 {12240, 15840},
                 oneInch,
                 12240 - 2 * inch - 20,
                 "Letter",
                 "Lower",
                 1},
        PageCase{"SixtyFourInchMarginIsCut",
                 with([](auto &v) {
                     v.leftMargin = 64 * inch;
                     v.paperSource = 2;
                 }),
                 true,
                 {12240, 15840},
                 QMarginsF(12240 - inch - 20, inch, inch, inch),
                 0,
                 "Letter",
                 "Lower",
                 1},
        PageCase{"UnknownBinFallsBackToTheDefault",
                 with([](auto &v) { v.paperSource = 15; }),
                 true,
                 {12240, 15840},
                 oneInch,
                 0,
                 "Letter",
                 "Lower",
                 1},
        PageCase{"SizeTheLaserLacksFallsBackToItsDefault",
                 with([](auto &v) {
                     v.paperSize = 8;
                     v.paperSource = 2;
                 }), // A3
                 true,
                 {12240, 15840},
                 oneInch,
                 0,
                 "Letter",
                 "Lower",
                 1},
        PageCase{"TwinPrintsAsItselfNotAsTheFirstOfItsSize",
                 with([](auto &v) {
                     v.paperSize = 257;
                     v.paperSource = 4;
                 }),
                 true,
                 {12240, 15840},
                 oneInch,
                 0,
                 "LetterSmall",
                 "Manual",
                 0},
        PageCase{"PrinterCodeChosenOnAnotherPrinterGoesByItsDimensions",
                 with([](auto &v) {
                     v.paperSize = 257;
                     v.paperWidth = 4 * inch;
                     v.paperHeight = 6 * inch;
                     v.paperSource = 2;
                 }),
                 true,
                 {5760, 8640},
                 oneInch,
                 0,
                 "w288h432",
                 "Lower",
                 0},
        PageCase{"OddOrientationPrintsPortrait",
                 with([](auto &v) { v.orientation = 0; }),
                 false,
                 {12240, 15840},
                 oneInch,
                 0,
                 "",
                 "",
                 1}));

TEST(ResolvedReportPageTest, PrinterSizeCodeWithoutDimensionsUsesThePrinterSize)
{
    ReportPageValues values;
    values.paperSize = 257;
    values.paperWidth = 0;
    values.paperHeight = 0;
    const QList<PaperSizeInfo> sizes = {{"Label 4 x 6", 256, 5760, 8640},
                                        {"Label 2 x 1", 257, 2880, 1440}};
    const ResolvedReportPage page = ResolveReportPage(values, CupsQueue(), sizes);
    EXPECT_EQ(page.paperTwips(), QSizeF(2880, 1440));
}

} // namespace
