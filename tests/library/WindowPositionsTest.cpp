#include "library/Registry.h"
#include "library/WindowPositions.h"

#include <QWidget>
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
// are ignored; "10,20,abc,40" moves the form and keeps its size.
TEST(WindowPositions, RestoreAppliesTheRecordAsStored)
{
    const std::tuple<const char *, bool, QRect> cases[] = { // record, restore size, x/y/width/height
        {"1200,2400,9000,6000", true, QRect(160, 80, 600, 400)},
        {"0,0,100,100", false, QRect(0, 0, 300, 200)},
        {"-300,-1500,9000,6000", false, QRect(-100, -20, 300, 200)},
        {"10,20,abc,40", true, QRect(1, 1, 300, 200)},
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

TEST(Registry, ValuesLiveUnderTheCurrentUserOnly)
{
    const QString k = QStringLiteral("Software\\Tarnwell\\Lumarest\\5.0\\Settings (Test)\\Printer Configurations");
    EXPECT_EQ(GetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("Labels"), QStringLiteral("d")), QStringLiteral("d"));
    EXPECT_TRUE(SetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("Labels"), QStringLiteral("Zebra")));
    EXPECT_TRUE(SetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("(Default)"), QString()));
    EXPECT_EQ(GetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("Labels"), {}), QStringLiteral("Zebra"));
    EXPECT_EQ(GetRegValue(HKEY_CURRENT_USER_HANDLE, k, QStringLiteral("(Default)"), QStringLiteral("d")), QString())
        << "an empty value is a value, not a missing one";
    EXPECT_EQ(GetRegValue(0x80000002u, k, QStringLiteral("Labels"), QStringLiteral("d")), QStringLiteral("d"));
    EXPECT_FALSE(SetRegValue(0x80000002u, k, QStringLiteral("Labels"), QStringLiteral("x")));
}

} // namespace
