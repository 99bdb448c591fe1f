// The font dialog of the report fonts dialogs, driven by its properties and control names:
// fractional sizes are kept, effects and colours go in and out unchanged.

#include "forms/FontColorDialog.h"
#include "support/DialogDriver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontComboBox>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

TEST(FontColorDialog, KeepsWhatItIsGivenAndWhatIsTyped)
{
    FontColorDialog dialog;
    QFont preset(QStringLiteral("DejaVu Sans"));
    preset.setPointSizeF(10.5);
    preset.setBold(true);
    preset.setStrikeOut(true);
    dialog.setProperty("currentFont", preset);
    dialog.setProperty("color", QColor(Qt::red));
    const QFont read = dialog.property("currentFont").value<QFont>();
    EXPECT_EQ(read.pointSizeF(), 10.5);
    EXPECT_TRUE(read.bold());
    EXPECT_FALSE(read.italic());
    EXPECT_TRUE(read.strikeOut());
    EXPECT_EQ(dialog.property("color").value<QColor>(), QColor(Qt::red));

    auto *size = dialog.findChild<QComboBox *>(QStringLiteral("cboSize"));
    const struct {
        const char *typed;
        double points;
    } sizes[] = {{"12.3", 12.3}, {"7", 7}, {"abc", 7}, {"0", 7}, {"2000", 7}};
    for (const auto &c : sizes) {
        size->setCurrentText(QString::fromLatin1(c.typed));
        EXPECT_NEAR(dialog.currentFont().pointSizeF(), c.points, 1e-6) << c.typed;
    }

    // A colour outside the sixteen gets an entry of its own and comes back as it was.
    const QColor own(0x12, 0x34, 0x56);
    dialog.setColor(own);
    EXPECT_EQ(dialog.color(), own);
    dialog.findChild<QCheckBox *>(QStringLiteral("chkItalic"))->setChecked(true);
    EXPECT_TRUE(dialog.currentFont().italic());
    dialog.show();
    test::SaveScreenshot(&dialog, QStringLiteral("CommonDialog1"));
}

} // namespace
} // namespace bravcpl5
