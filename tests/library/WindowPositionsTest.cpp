#include "library/WindowPositions.h"
#include "library/Registry.h"

#include <QDialog>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

const QString key = QString::fromLatin1(WindowPositionsKey);

void store(const QString &name, const QString &record)
{
    SetRegValue(HKEY_CURRENT_USER_HANDLE, key, name, record);
}

QString stored(const QString &name)
{
    return GetRegValue(HKEY_CURRENT_USER_HANDLE, key, name, QStringLiteral("none"));
}

// 15 twips to the pixel at the offscreen screen's 96 dpi. Records of three or five fields
// are ignored; "10,20,abc,40" moves the form and keeps its size, as does a size no window
// can have, while a place far off any screen is applied as stored.
TEST(WindowPositions, RestoreAppliesTheRecordAsStored)
{
    const std::tuple<const char *, bool, QRect> cases[] = {
        // record, restore size, x/y/width/height
        {"1200,2400,9000,6000", true, QRect(160, 80, 600, 400)},
        {"0,0,100,100", false, QRect(0, 0, 300, 200)},
        {"-300,-1500,9000,6000", false, QRect(-100, -20, 300, 200)},
        {"10,20,abc,40", true, QRect(1, 1, 300, 200)},
        // no window is that large, or negative: the size is refused, the place applied as it is
        {"1200,2400,2147483647,2147483647", true, QRect(160, 80, 300, 200)},
        {"1200,2400,9000,2147483647", true, QRect(160, 80, 600, 200)},
        {"1200,2400,-9000,6000", true, QRect(160, 80, 300, 200)},
        {"2147483647,-2147483648,9000,6000", true, QRect(-143165577, 143165576, 600, 400)},
        {"abc,20,9000,6000", true, QRect(50, 60, 300, 200)},
        {"1200,2400,9000", true, QRect(50, 60, 300, 200)},
        {"1200,2400,9000,6000,1", true, QRect(50, 60, 300, 200)},
        {"", true, QRect(50, 60, 300, 200)}};
    for (const auto &[record, restoreSize, expected] : cases) {
        QWidget form;
        form.setGeometry(50, 60, 300, 200);
        ASSERT_EQ(form.logicalDpiX(), 96);
        store(QStringLiteral("frmTest"), QString::fromLatin1(record));
        RestoreWindowPosition(QStringLiteral("frmTest"), &form, restoreSize);
        EXPECT_EQ(QRect(form.pos(), form.size()), expected) << record;
    }
}

TEST(WindowPositions, SaveThenRestoreRoundTrips)
{
    QWidget form;
    form.setGeometry(123, 45, 678, 321);
    SaveWindowPosition(QStringLiteral("frmRound"), &form);
    const QString record = stored(QStringLiteral("frmRound"));
    EXPECT_EQ(record, QStringLiteral("675,1845,10170,4815"));

    QWidget other;
    other.setGeometry(0, 0, 10, 10);
    RestoreWindowPosition(QStringLiteral("frmRound"), &other, true);
    EXPECT_EQ(QRect(other.pos(), other.size()), QRect(123, 45, 678, 321));
    SaveWindowPosition(QStringLiteral("frmRound"), &other);
    EXPECT_EQ(stored(QStringLiteral("frmRound")), record);
}

// The record is the frame's, and the offscreen platform draws a frame (two pixels each side)
// around a shown dialog: restored before showing, as the dialogs do, the frame lands on the
// record, and five rounds of showing, saving and restoring leave the record as it was. (The
// offscreen platform keeps a frame placed by its position on the screen, so records off the
// screen's top left are tested under a real window manager, in tests/windows.)
TEST(WindowPositions, AShownDialogsFrameKeepsTheRecord)
{
    const std::tuple<const char *, QRect> cases[] = {
        // record; the frame it gives at 96 dpi
        {"1500,3000,9000,6000", QRect(200, 100, 600, 400)},
        {"15000,18000,7500,4500", QRect(1200, 1000, 500, 300)},
        {"0,0,3000,1500", QRect(0, 0, 200, 100)}};
    for (const auto &[record, frame] : cases) {
        SCOPED_TRACE(record);
        store(QStringLiteral("frmFramed"), QString::fromLatin1(record));
        for (int round = 1; round <= 5; ++round) {
            QDialog form;
            RestoreWindowPosition(QStringLiteral("frmFramed"), &form, true);
            form.show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
            EXPECT_TRUE(QTest::qWaitFor(
                [&, frame = frame]() { return form.windowHandle()->frameGeometry() == frame; },
                1000))
                << "round " << round;
            SaveWindowPosition(QStringLiteral("frmFramed"), &form);
            EXPECT_EQ(stored(QStringLiteral("frmFramed")).toStdString(), record)
                << "round " << round;
        }
    }
}

TEST(Registry, ValuesLiveUnderTheCurrentUserOnly)
{
    const QString k = QStringLiteral(
        "Software\\Tarnwell\\Lumarest\\5.0\\Settings (Test)\\Printer Configurations");
    EXPECT_EQ(
        GetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("Labels"), QStringLiteral("d")),
        QStringLiteral("d"));
    EXPECT_TRUE(SetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("Labels"),
                            QStringLiteral("Zebra")));
    EXPECT_TRUE(SetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("(Default)"), QString()));
    EXPECT_EQ(GetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("Labels"), {}),
              QStringLiteral("Zebra"));
    EXPECT_EQ(
        GetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("(Default)"), QStringLiteral("d")),
        QString())
        << "an empty value is a value, not a missing one";
    EXPECT_EQ(GetRegValue(0x80000002u, k, QStringLiteral("Labels"), QStringLiteral("d")),
              QStringLiteral("d"));
    EXPECT_FALSE(SetRegValue(0x80000002u, k, QStringLiteral("Labels"), QStringLiteral("x")));
}

} // namespace
