// OK in a dialog on a truly full disk: the report configuration keeps every old byte
// (the dialog still closes, as it always does after OK).

#include "library/Library.h"
#include "support/DialogDriver.h"
#include "support/SmallFileSystem.h"
#include "support/TestHost.h"

#include <QPushButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

// A report configuration of about `size` bytes: as many fields as it takes.
QByteArray configurationOfSize(qint64 size)
{
    QByteArray xml = "<?xml version=\"1.0\"?>\n<Report>\n  <Title>Orders</Title>\n  <Fields>\n";
    for (int i = 0; xml.size() < size - 24; ++i)
        xml += "    <Field" + QByteArray::number(i) + " label=\"Field " + QByteArray::number(i)
               + "\" width=\"1\"/>\n";
    return xml + "  </Fields>\n</Report>\n";
}

using test::FullDiskCase;
using FullDiskDialog = test::FullDiskTest; // `size`: the old configuration's; `fits`: it is saved

TEST_P(FullDiskDialog, FieldsOkKeepsTheOldFileWhole)
{
    const FullDiskCase c = GetParam();
    test::SmallFileSystem fs(256 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    test::TestHost host;
    Library library;
    library.Initialize(&host);
    const QByteArray old = configurationOfSize(c.size);
    const QString file = test::writeFile(fs.filePath(QStringLiteral("Orders.rpx")), old);
    fs.fill(c.roomLeft);

    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [](QWidget *dialog) {
        test::TypeIntoCell(dialog->findChild<QTreeWidget *>("rptItems"), 0, 1, QStringLiteral("3"));
        dialog->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
    });
    EXPECT_TRUE(library.ShowGeneralReportFields(file));
    const QByteArray now = test::readFile(file);
    if (c.fits)
        EXPECT_TRUE(now.contains("size=\"3\""));
    else
        EXPECT_EQ(now, old);
    library.PreTerminate();
}

INSTANTIATE_TEST_SUITE_P(Table, FullDiskDialog,
                         ::testing::Values(FullDiskCase{"ThreeKiB_NoRoom", 3 * 1024, 0, false},
                                           FullDiskCase{"TenKiB_NoRoom", 10 * 1024, 0, false},
                                           FullDiskCase{"TenKiB_SomeRoom", 10 * 1024, 4096, false},
                                           FullDiskCase{"ThreeKiB_RoomEnough", 3 * 1024, 32 * 1024,
                                                        true}),
                         test::FullDiskCaseName);

} // namespace
} // namespace bravcpl5
