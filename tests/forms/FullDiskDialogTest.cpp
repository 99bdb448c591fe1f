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
        xml += "    <Field" + QByteArray::number(i) + " label=\"Field " + QByteArray::number(i) + "\" width=\"1\"/>\n";
    return xml + "  </Fields>\n</Report>\n";
}

struct Case {
    const char *name;
    qint64 size;
    qint64 roomLeft;
    bool saved;
};

void PrintTo(const Case &c, std::ostream *out) { *out << c.name; }

class FullDiskDialog : public ::testing::TestWithParam<Case>
{
};

TEST_P(FullDiskDialog, FieldsOkKeepsTheOldFileWhole)
{
    const Case c = GetParam();
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
    if (c.saved)
        EXPECT_TRUE(now.contains("size=\"3\""));
    else
        EXPECT_EQ(now, old);
    library.PreTerminate();
}

INSTANTIATE_TEST_SUITE_P(Table, FullDiskDialog, ::testing::Values(
    Case{"ThreeKiB_NoRoom", 3 * 1024, 0, false},
    Case{"TenKiB_NoRoom", 10 * 1024, 0, false},
    Case{"TenKiB_SomeRoom", 10 * 1024, 4096, false},
    Case{"ThreeKiB_RoomEnough", 3 * 1024, 32 * 1024, true}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
} // namespace bravcpl5
