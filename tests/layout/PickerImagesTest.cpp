#include "layout/PickerImages.h"

#include "support/TestOutput.h"

#include <QPainter>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

struct Swatch {
    const char *suffix;
    QRgb rgb;
};

// The names and colours the host's pickers ask for.
const Swatch swatches[] = {
    {"AUTOMATIC", 0x000000},   {"BLACK", 0x000000},     {"BLUE", 0x0000FF},
    {"BRIGHTGREEN", 0x00FF00}, {"DARKBLUE", 0x000080},  {"DARKRED", 0x800000},
    {"DARKYELLOW", 0x808000},  {"GRAY25", 0xC0C0C0},    {"GRAY50", 0x808080},
    {"GREEN", 0x008000},       {"PINK", 0xFF00FF},      {"RED", 0xFF0000},
    {"TEAL", 0x008080},        {"TURQUOISE", 0x00FFFF}, {"VIOLET", 0x800080},
    {"WHITE", 0xFFFFFF},       {"YELLOW", 0xFFFF00},
};

QStringList expectedNames()
{
    QStringList names = {"ALIGNLEFT",        "ALIGNCENTER",       "ALIGNRIGHT",
                         "BORDERNONE",       "BORDERBOX",         "BORDERTHICKBOX",
                         "BORDERBOTTOM",     "BORDERTHICKBOTTOM", "BORDERDOUBLEBOTTOM",
                         "BORDERTHICKTOP",   "BORDERTOPBOTTOM",   "BORDERTOPTHICKBOTTOM",
                         "BORDERLEFT",       "BORDERTHICKLEFT",   "BORDERRIGHT",
                         "BORDERTHICKRIGHT", "BORDERLEFTRIGHT"};
    for (const Swatch &s : swatches) {
        names << QStringLiteral("COLOR") + s.suffix << QStringLiteral("BACKCOLOR") + s.suffix;
        if (QLatin1String(s.suffix) != QLatin1String("AUTOMATIC"))
            names << QStringLiteral("TEXTCOLOR") + s.suffix;
    }
    return names;
}

TEST(PickerImages, EveryNameLoadsAsSixteenColourSixteenBySixteenAndNoOther)
{
    QStringList expected = expectedNames();
    for (const QString &name : expected) {
        const QImage image = PickerImage(name);
        ASSERT_FALSE(image.isNull()) << name.toStdString();
        EXPECT_EQ(image.size(), QSize(16, 16)) << name.toStdString();
        EXPECT_LE(image.colorCount(), 16) << name.toStdString();
        EXPECT_GT(image.colorCount(), 0) << name.toStdString();
    }
    QStringList all = PickerImageNames();
    all.sort();
    expected.sort();
    EXPECT_EQ(all, expected);
    for (const char *name :
         {"TEXTCOLORAUTOMATIC", "alignleft", "", "BORDERTHICKTOPBOTTOM", "../ALIGNLEFT"})
        EXPECT_TRUE(PickerImage(QString::fromLatin1(name)).isNull()) << name;
}

TEST(PickerImages, SwatchesShowTheirColour)
{
    for (const Swatch &s : swatches) {
        for (const char *prefix : {"COLOR", "TEXTCOLOR", "BACKCOLOR"}) {
            const QImage image = PickerImage(QLatin1String(prefix) + s.suffix);
            if (image.isNull())
                continue; // TEXTCOLORAUTOMATIC
            EXPECT_EQ(image.pixel(8, 8) & 0xFFFFFF, s.rgb) << prefix << s.suffix;
        }
    }
    // The border colour swatch is framed, the others fill the image.
    EXPECT_NE(PickerImage("COLORRED").pixel(0, 0) & 0xFFFFFF, 0xFF0000u);
    EXPECT_EQ(PickerImage("BACKCOLORRED").pixel(0, 0) & 0xFFFFFF, 0xFF0000u);
}

TEST(PickerImages, BorderLinesAreWhereTheBorderIs)
{
    auto ink = [](const char *name, int x, int y) {
        return qGray(PickerImage(QLatin1String(name)).pixel(x, y)) < 64;
    };
    // Middle of each side of the cell: left (2,8), top (8,2), right (14,8), bottom (8,14).
    EXPECT_TRUE(ink("BORDERLEFT", 2, 8) && !ink("BORDERLEFT", 14, 8) && !ink("BORDERLEFT", 8, 14));
    EXPECT_TRUE(ink("BORDERBOX", 2, 8) && ink("BORDERBOX", 8, 2) && ink("BORDERBOX", 14, 8)
                && ink("BORDERBOX", 8, 14));
    EXPECT_TRUE(ink("BORDERTHICKBOTTOM", 8, 14) && ink("BORDERTHICKBOTTOM", 8, 13)
                && !ink("BORDERTHICKBOTTOM", 8, 2));
    EXPECT_TRUE(ink("BORDERBOTTOM", 8, 14) && !ink("BORDERBOTTOM", 8, 13));
    EXPECT_TRUE(ink("BORDERDOUBLEBOTTOM", 8, 14) && !ink("BORDERDOUBLEBOTTOM", 8, 13)
                && ink("BORDERDOUBLEBOTTOM", 8, 12));
    EXPECT_FALSE(ink("BORDERNONE", 2, 9) || ink("BORDERNONE", 9, 14));
}

// A contact sheet of every image, eight times enlarged, for a person to look at.
TEST(PickerImages, ContactSheet)
{
    const QStringList names = PickerImageNames();
    constexpr int cell = 16 * 8 + 8;
    constexpr int columns = 8;
    QImage sheet(columns * cell, int((names.size() + columns - 1) / columns) * (cell + 14),
                 QImage::Format_RGB32);
    sheet.fill(QColor(230, 230, 230));
    QPainter painter(&sheet);
    QFont font = painter.font();
    font.setPixelSize(9);
    painter.setFont(font);
    for (int i = 0; i < names.size(); ++i) {
        const QPoint at((i % columns) * cell + 4, (i / columns) * (cell + 14) + 4);
        painter.drawImage(QRect(at, QSize(128, 128)), PickerImage(names[i]));
        painter.drawText(QRect(at + QPoint(0, 128), QSize(cell, 14)), Qt::AlignLeft, names[i]);
    }
    painter.end();
    EXPECT_TRUE(sheet.save(testOutputPath(QStringLiteral("picker-images.png"))));
}

} // namespace
} // namespace bravcpl5::test
