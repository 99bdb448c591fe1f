#include "layout/ReportLayout.h"
#include "layout/WindowsColor.h"
#include "report/ReportField.h"
#include "report/ReportLabel.h"
#include "support/TestOutput.h"

#include <QImage>
#include <QPainter>
#include <QVariant>
#include <array>
#include <gtest/gtest.h>
#include <ostream>
#include <vector>

namespace bravcpl5::test {
namespace {

using Sides = std::array<int, 4>; // left, top, right, bottom

Sides stylesOf(const ReportControl &c)
{
    const QObject *b = c.border();
    return {b->property("LeftStyle").toInt(), b->property("TopStyle").toInt(),
            b->property("RightStyle").toInt(), b->property("BottomStyle").toInt()};
}

struct PresetCase {
    const char *name;
    std::vector<qint16> presets; // applied one after the other
    Sides styles;
};

const PresetCase presetCases[] = {
    {"Box", {1}, {1, 1, 1, 1}},
    {"BoxThenBottomKeepsTheBox", {1, 2}, {1, 1, 1, 1}},
    {"ThickBoxThenBottomThinsOnlyTheBottom", {5, 2}, {7, 7, 7, 1}},
    {"DoubleBottom", {3}, {0, 0, 0, 6}},
    {"TopBottom", {4}, {0, 1, 0, 1}},
    {"TopThickBottom", {6}, {0, 1, 0, 7}},
    {"ThickBottom", {7}, {0, 0, 0, 7}},
    {"LeftThenRight", {8, 9}, {1, 0, 1, 0}},
    {"LeftRight", {10}, {1, 0, 1, 0}},
    {"ThickLeftAndRight", {11, 12}, {7, 0, 7, 0}},
    {"ThickTop", {13}, {0, 7, 0, 0}},
    {"ThickTopThinBottom", {14}, {0, 7, 0, 1}},
    {"NoneChangesNothing", {1, 0}, {1, 1, 1, 1}},
    {"UnknownChangesNothing", {15, -1}, {0, 0, 0, 0}},
};

TEST(ControlFormatting, BorderPresetsAccumulate)
{
    ReportLayout layout;
    for (const PresetCase &c : presetCases) {
        ReportLabel control;
        for (qint16 preset : c.presets)
            EXPECT_TRUE(layout.ApplyBorderToControl(&control, preset)) << c.name;
        EXPECT_EQ(stylesOf(control), c.styles) << c.name;
    }
}

TEST(ControlFormatting, CodesOutsideTheirRangeChangeNothing)
{
    ReportLayout layout;
    ReportField control;
    control.setProperty("Alignment", 1);
    control.font()->setProperty("Bold", true);

    for (const auto &[code, alignment] : {std::pair{3, 1}, {2, 2}, {-1, 2}}) {
        EXPECT_TRUE(layout.ApplyAlignmentToControl(&control, qint16(code)));
        EXPECT_EQ(control.property("Alignment").toInt(), alignment) << code;
    }
    for (const auto &[code, bold] : {std::pair{0, true}, {1, false}, {3, false}, {2, true}}) {
        layout.ApplyTextFormatSettingsToControl(&control, qint16(code));
        EXPECT_EQ(control.font()->property("Bold").toBool(), bold) << code;
    }
}

TEST(ControlFormatting, ColoursPassThroughAndBackColourZeroIsTransparent)
{
    ReportLayout layout;
    ReportLabel control;
    EXPECT_TRUE(layout.ApplyBorderColorSettingsToControl(&control, 128));
    for (const char *side : {"LeftColor", "TopColor", "RightColor", "BottomColor"})
        EXPECT_EQ(control.border()->property(side).toInt(), 128) << side;
    EXPECT_TRUE(layout.ApplyTextColorSettingsToControl(&control, 8388608));
    EXPECT_EQ(control.property("ForeColor").toInt(), 8388608);
    for (const auto &[color, style] : {std::pair{0x00FFFF, 1}, {0, 0}}) {
        EXPECT_TRUE(layout.ApplyBackColorSettingsToControl(&control, color));
        EXPECT_EQ(control.property("BackStyle").toInt(), style);
        EXPECT_EQ(control.property("BackColor").toInt(), color);
    }
}

// A control that has colours but no font, border or back style.
class BareControl : public QObject
{
    Q_OBJECT
    Q_PROPERTY(qint32 BackColor MEMBER backColor)
public:
    qint32 backColor = 7;
};

TEST(ControlFormatting, RefusedAssignmentsReachTheCallerExceptForBoldness)
{
    ReportLayout layout;
    BareControl control;
    EXPECT_FALSE(layout.ApplyBorderToControl(&control, 1));
    EXPECT_FALSE(layout.ApplyBorderColorSettingsToControl(&control, 1));
    EXPECT_FALSE(layout.ApplyTextColorSettingsToControl(&control, 1));
    EXPECT_FALSE(layout.ApplyAlignmentToControl(&control, 0));
    // It stops at the failing back style, so the back colour is not set either.
    EXPECT_FALSE(layout.ApplyBackColorSettingsToControl(&control, 5));
    EXPECT_EQ(control.backColor, 7);
    layout.ApplyTextFormatSettingsToControl(&control, 2);
    layout.ApplyTextFormatSettingsToControl(nullptr, 2);
    EXPECT_FALSE(layout.ApplyTextColorSettingsToControl(nullptr, 1));
    // Nothing to assign, nothing to refuse.
    EXPECT_TRUE(layout.ApplyBorderToControl(nullptr, 0));
}

TEST(ReferenceControls, DrawWhatTheyHold)
{
    ReportLabel control;
    control.setProperty("Caption", QStringLiteral("MMMMMMMM"));
    control.setProperty("ForeColor", WindowsColor(Qt::blue));
    control.setProperty("BackColor", WindowsColor(Qt::yellow));
    control.setProperty("BackStyle", 1);
    control.setProperty("Alignment", 1);
    control.font()->setProperty("Size", 20);
    ReportLayout().ApplyBorderToControl(&control, 7);

    QImage image(200, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        control.draw(painter, QRectF(0, 0, 200, 40));
    }
    image.save(testOutputPath(QStringLiteral("reference-control.png")));
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::yellow));
    EXPECT_EQ(image.pixelColor(100, 39), QColor(Qt::black)); // the thick bottom
    EXPECT_EQ(image.pixelColor(100, 38), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(100, 1), QColor(Qt::yellow)); // no top line
    int leftInk = 0;
    int rightInk = 0;
    for (int y = 0; y < 36; ++y) {
        for (int x = 0; x < 200; ++x) {
            if (image.pixelColor(x, y).blue() > 150 && image.pixelColor(x, y).red() < 100)
                ++(x < 100 ? leftInk : rightInk);
        }
    }
    EXPECT_GT(rightInk, 50); // right-aligned blue text
    EXPECT_GT(rightInk, leftInk);

    control.setProperty("BackStyle", 0);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        control.draw(painter, QRectF(0, 0, 200, 40));
    }
    EXPECT_EQ(image.pixelColor(2, 2), QColor(Qt::white));
}

} // namespace
} // namespace bravcpl5::test

#include "ControlFormattingTest.moc"
