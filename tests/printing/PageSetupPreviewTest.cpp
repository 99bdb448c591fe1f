// The page setup preview: the checks that reject a page, the scale, and what is drawn.

#include "printing/PageSetupPreview.h"
#include "printing/PainterPreviewSurface.h"
#include "support/QtPrinters.h"
#include "support/RecordingPreviewSurface.h"
#include "support/TestOutput.h"

#include <QImage>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

constexpr float inch = 1440;
const QColor background(240, 240, 240);

// A letter page, one-inch margins, one column of 3.5 by 1 inch labels.
PageSetupPreviewInfo letter()
{
    PageSetupPreviewInfo i;
    i.PaperWidth = 8.5f * inch;
    i.PaperHeight = 11 * inch;
    i.LeftMargin = i.TopMargin = i.RightMargin = i.BottomMargin = inch;
    i.ColumnsPerSheet = 1;
    i.LabelWidth = 3.5f * inch;
    i.LabelHeight = inch;
    i.HorizontalGap = 0.125f * inch;
    return i;
}

TEST(PageSetupPreview, RejectsPagesThatCannotBeLaidOut)
{
    const struct {
        const char *name;
        bool invalid;
        void (*change)(PageSetupPreviewInfo &);
        int rectangles = -1; // -1: not counted
    } cases[] = {
        {"letterFits", false, [](PageSetupPreviewInfo &) {}},
        {"marginsFillTheHeight", true,
         [](auto &i) {
             i.TopMargin = 5 * inch;
             i.BottomMargin = 6 * inch;
         }},
        {"gutterFillsTheWidth", true, [](auto &i) { i.Gutter = 6.5f * inch; }},
        // The label checks run whatever is drawn: 2 + 2.875 + 3.5 inches fit, 2 + 3 + 3.5 do not.
        {"gutterBesideLabelsFits", false, [](auto &i) { i.Gutter = 2.875f * inch; }},
        {"gutterBesideLabelsTooWide", true, [](auto &i) { i.Gutter = 3 * inch; }},
        // Rows are counted as columns: eight columns of one-inch labels pass, nine do not.
        {"eightColumnsAsRows", false,
         [](auto &i) {
             i.ColumnsPerSheet = 8;
             i.LabelWidth = 0.5f * inch;
             i.HorizontalGap = 0;
         }},
        {"nineColumnsAsRows", true,
         [](auto &i) {
             i.ColumnsPerSheet = 9;
             i.LabelWidth = 0.5f * inch;
             i.HorizontalGap = 0;
         }},
        {"labelsTooWide", true, [](auto &i) { i.ColumnsPerSheet = 2; }},
        {"verticalGapsTooTall", true,
         [](auto &i) {
             i.ColumnsPerSheet = 2;
             i.LabelWidth = inch;
             i.VerticalGap = 7.5f * inch;
         }},
        // 16777215 + 0.5 is below 2^24, but as a single it is 2^24 itself: invalid.
        {"sumRoundedToSingle", true,
         [](auto &i) {
             i.PaperHeight = 16777216;
             i.TopMargin = 16777215;
             i.BottomMargin = 0.5f;
         }},
        // Background, shadow, sheet, printable area and one label: rows that do not move are drawn
        // once.
        {"unmovingRowsDrawnOnce", false,
         [](auto &i) {
             i.ShowLabels = true;
             i.LabelHeight = 0;
         },
         5},
        {"overflowEndsTheDrawing", false,
         [](auto &i) {
             i.LabelWidth = 3e38f;
             i.ColumnsPerSheet = 2;
         },
         1},
    };
    for (const auto &c : cases) {
        PageSetupPreviewInfo info = letter();
        c.change(info);
        RecordingPreviewSurface surface(3000, 3000);
        DrawPageSetupPreview(info, surface);
        EXPECT_EQ(!surface.texts.isEmpty(), c.invalid) << c.name;
        if (c.rectangles >= 0) {
            EXPECT_EQ(surface.rectangles.size(), c.rectangles) << c.name;
        }
    }
}

QString describe(const DrawnRectangle &r)
{
    return QStringLiteral("%1,%2 %3,%4 %5/%6 %7")
        .arg(r.from.x(), 0, 'f', 1)
        .arg(r.from.y(), 0, 'f', 1)
        .arg(r.to.x(), 0, 'f', 1)
        .arg(r.to.y(), 0, 'f', 1)
        .arg(r.outline.name(), r.fill.name())
        .arg(int(r.style));
}

// Margins of 64 inches all round.
TEST(PageSetupPreview, InvalidSettingsAreWrittenAtTheTopLeft)
{
    PageSetupPreviewInfo info = letter();
    info.TopMargin = info.BottomMargin = info.LeftMargin = info.RightMargin = 64 * inch;
    RecordingPreviewSurface surface(2700, 3000, background);
    DrawPageSetupPreview(info, surface);

    ASSERT_EQ(surface.rectangles.size(), 1); // the clearing only
    EXPECT_EQ(describe(surface.rectangles[0]),
              describe({{0, 0}, {2700, 3000}, background, background, FillStyle::Solid}));
    ASSERT_EQ(surface.texts.size(), 1);
    EXPECT_EQ(surface.texts[0].text, "Invalid Settings");
    EXPECT_EQ(surface.texts[0].at, QPointF(100, 100));
    EXPECT_EQ(surface.texts[0].color, QColor(Qt::black));
}

TEST(PageSetupPreview, ScaleIsOneStepBelowTheFirstThatFits)
{
    const PageSetupPreviewInfo page = letter(); // 12240 by 15840
    EXPECT_EQ(GetPreviewScale(page, RecordingPreviewSurface(20000, 20000)), 0.99f);
    EXPECT_EQ(GetPreviewScale(page, RecordingPreviewSurface(12240, 15840)), 0.99f);
    // Fits at 0.5 and is drawn one step below; the steps are taken in single precision.
    EXPECT_NEAR(GetPreviewScale(page, RecordingPreviewSurface(20000, 8000)), 0.49f, 1e-5f);
    EXPECT_NEAR(GetPreviewScale(page, RecordingPreviewSurface(3000, 3000)), 0.17f, 1e-5f);
}

TEST(PageSetupPreview, DrawsShadowSheetGutterAndPrintableAreaCentred)
{
    PageSetupPreviewInfo info = letter();
    info.Gutter = 0.5f * inch;
    RecordingPreviewSurface surface(20000, 20000, background);
    DrawPageSetupPreview(info, surface);

    const float s = 0.99f;
    const float x0 = (20000 - s * 12240) / 2, y0 = (20000 - s * 15840) / 2;
    const float x1 = x0 + s * 12240, y1 = y0 + s * 15840;
    const QColor grey(150, 150, 150), black(Qt::black);
    const DrawnRectangle expected[] = {
        {{0, 0}, {20000, 20000}, background, background, FillStyle::Solid},
        {{x0 + 30, y0 + 30}, {x1 + 30, y1 + 30}, grey, grey, FillStyle::Solid},
        {{x0, y0}, {x1, y1}, black, Qt::white, FillStyle::Solid},
        {{x0, y0}, {x0 + s * 720, y1}, black, black, FillStyle::DiagonalCross},
        {{x0 + s * 720 + s * 1440, y0 + s * 1440},
         {x1 - s * 1440, y1 - s * 1440},
         black,
         QColor(0xF5, 0xF5, 0xF5),
         FillStyle::Solid}};
    QStringList drawn, wanted;
    for (const DrawnRectangle &r : surface.rectangles)
        drawn << describe(r);
    for (const DrawnRectangle &r : expected)
        wanted << describe(r);
    EXPECT_EQ(drawn, wanted);
    EXPECT_TRUE(surface.texts.isEmpty());
}

TEST(PageSetupPreview, LabelModeDrawsTheGridOnTheSheet)
{
    PageSetupPreviewInfo info = letter();
    info.ShowLabels = true;
    info.ColumnsPerSheet = 2;
    info.LabelWidth = 3 * inch;
    info.VerticalGap = 0.5f * inch;
    info.HorizontalGap = 0.25f * inch;
    RecordingPreviewSurface surface(20000, 20000);
    DrawPageSetupPreview(info, surface);

    // 9 inches of height take rows of 1 inch plus 0.5 gap: 6 rows (the last ends at 8.5).
    const QList<DrawnRectangle> labels = surface.rectangles.mid(4);
    ASSERT_EQ(labels.size(), 12);
    for (const DrawnRectangle &label : labels) {
        EXPECT_EQ(label.fill, QColor(0xE0, 0xE0, 0xE0));
        EXPECT_EQ(label.outline, QColor(Qt::black));
    }
    const float s = 0.99f;
    EXPECT_FLOAT_EQ(labels[1].from.x() - labels[0].from.x(), s * 3.25f * inch);
    EXPECT_FLOAT_EQ(labels[2].from.y() - labels[0].from.y(), s * 1.5f * inch);
}

// Draws on an image at 96 dpi (15 twips a pixel) and saves it for a person to look at.
QImage render(const PageSetupPreviewInfo &info, const QString &fileName)
{
    QImage image(180, 200, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    image.fill(Qt::magenta); // anything not drawn over stands out
    {
        PainterPreviewSurface surface(image, background);
        DrawPageSetupPreview(info, surface);
    }
    image.save(testOutputPath(fileName));
    return image;
}

int pixelsWhere(const QImage &image, QRect area, bool (*test)(int grey))
{
    int count = 0;
    for (int x = area.left(); x <= area.right(); ++x)
        for (int y = area.top(); y <= area.bottom(); ++y)
            count += test(qGray(image.pixel(x, y)));
    return count;
}

TEST(PageSetupPreview, PaintsOnAnImage)
{
    const QImage plain = render(letter(), QStringLiteral("preview-letter.png"));
    EXPECT_EQ(plain.pixelColor(2, 2), background);
    EXPECT_EQ(plain.pixelColor(90, 100), QColor(0xF5, 0xF5, 0xF5)); // printable area
    // Sheet: 0.17 of 12240 by 15840 twips is 139 by 180 pixels, centred.
    EXPECT_EQ(plain.pixelColor(90, 15), QColor(Qt::white)); // top margin
    EXPECT_EQ(plain.pixelColor(175, 100), background);      // beyond the shadow

    PageSetupPreviewInfo info = letter();
    std::swap(info.PaperWidth, info.PaperHeight);
    info.Gutter = inch;
    const QImage gutter = render(info, QStringLiteral("preview-landscape-gutter.png"));
    // The hatched gutter mixes black lines with the white sheet.
    const QRect hatched(8, 60, 10, 80);
    EXPECT_GT(pixelsWhere(gutter, hatched, [](int grey) { return grey < 64; }), 50);
    EXPECT_GT(pixelsWhere(gutter, hatched, [](int grey) { return grey > 200; }), 50);

    info = letter();
    info.TopMargin = info.BottomMargin = 64 * inch;
    const QImage invalid = render(info, QStringLiteral("preview-invalid.png"));
    EXPECT_GT(pixelsWhere(invalid, invalid.rect(), [](int grey) { return grey < 100; }),
              20); // the text
    EXPECT_EQ(invalid.pixelColor(150, 180), background);
}

} // namespace
} // namespace bravcpl5::test
