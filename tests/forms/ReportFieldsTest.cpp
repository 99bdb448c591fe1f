// The report fields dialog through Library.ShowGeneralReportFields, driven by control
// name: sizes typed into the grid, OK, Cancel, Esc and the close box, and what reaches the
// configuration file; and the fields document read and written on its own.

#include "library/Library.h"
#include "library/Registry.h"
#include "library/Xml.h"
#include "support/DialogDriver.h"
#include "support/TestHost.h"

#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

const QByteArray configuration = R"(<?xml version="1.0"?>
<Report>
  <Title>Orders by vendor</Title>
  <Fields>
    <OrderNumber label="Order" width="1"/>
    <Vendor label="Vendor" width="2.5"/>
    <Total width="1.25"/>
    <Notes label="Notes"/>
  </Fields>
  <Filters><Vendor type="vendor" value="Acme"/></Filters>
</Report>
)";

struct FieldsDialog : ::testing::Test {
    FieldsDialog()
    {
        library.Initialize(&host);
        file = host.writeSystemFile(QStringLiteral("Orders.rpx"), configuration);
    }
    ~FieldsDialog() override { library.PreTerminate(); }

    static QTreeWidget *grid(QWidget *dialog) { return dialog->findChild<QTreeWidget *>("rptItems"); }
    static void click(QWidget *dialog, const char *button)
    {
        dialog->findChild<QPushButton *>(QLatin1String(button))->click();
    }
    static QStringList column(QWidget *dialog, int column)
    {
        QStringList texts;
        for (int i = 0; i < grid(dialog)->topLevelItemCount(); ++i)
            texts.append(grid(dialog)->topLevelItem(i)->text(column));
        return texts;
    }
    QString attribute(const QString &xpath) const
    {
        const XmlDocumentPtr document = LoadXmlFile(file);
        return document ? NodeText(SelectSingleNode(*document, xpath)) : QStringLiteral("<no file>");
    }

    test::TestHost host;
    Library library;
    QString file;
};

TEST_F(FieldsDialog, ListsEachFieldWithItsWidthAndDefaults)
{
    QStringList labels, sizes;
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        EXPECT_EQ(dialog->windowTitle(), "Report Fields");
        EXPECT_EQ(dialog->font().family(), "Verdana");
        labels = column(dialog, 0);
        sizes = column(dialog, 1);
        test::SaveScreenshot(dialog, QStringLiteral("frmGeneralReportFields"));
        click(dialog, "cmdCancel");
    });
    EXPECT_FALSE(library.ShowGeneralReportFields(file));
    EXPECT_EQ(labels, (QStringList{"Order", "Vendor", "Total", "Notes"}));
    EXPECT_EQ(sizes, (QStringList{"1", "2.5", "1.25", "2"}));
}

struct SizeCase {
    const char *name;
    QString typed;
    QString shown; // what the cell holds afterwards
};

void PrintTo(const SizeCase &c, std::ostream *os) { *os << c.name; }

class FieldSizes : public FieldsDialog, public ::testing::WithParamInterface<SizeCase>
{
};

TEST_P(FieldSizes, RefusesWhatIsNotANumberAndWritesSizeNotWidth)
{
    const SizeCase &c = GetParam();
    QString shown;
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        test::TypeIntoCell(grid(dialog), 1, 1, c.typed);
        shown = grid(dialog)->topLevelItem(1)->text(1);
        click(dialog, "cmdOK");
    });
    EXPECT_TRUE(library.ShowGeneralReportFields(file));
    EXPECT_EQ(shown, c.shown);
    EXPECT_EQ(attribute("//Fields/Vendor/@size"), c.shown);
    EXPECT_EQ(attribute("//Fields/Vendor/@width"), "2.5") << "width keeps its old value";
    EXPECT_EQ(attribute("//Fields/Notes/@size"), "2") << "every row is written";
    EXPECT_EQ(attribute("//Fields/Notes/@width"), "");
}

INSTANTIATE_TEST_SUITE_P(Sizes, FieldSizes,
                         ::testing::Values(SizeCase{"Empty", "", "2.5"}, SizeCase{"Letters", "abc", "2.5"},
                                           SizeCase{"Fraction", "1.5", "1.5"},
                                           SizeCase{"Negative", "-3", "-3"},
                                           SizeCase{"Grouped", "1,000", "1,000"}),
                         [](const auto &info) { return std::string(info.param.name); });

struct CloseCase {
    const char *name;
    std::function<void(QWidget *)> close;
};

void PrintTo(const CloseCase &c, std::ostream *os) { *os << c.name; }

class FieldsClose : public FieldsDialog, public ::testing::WithParamInterface<CloseCase>
{
};

TEST_P(FieldsClose, LeavesTheFileUntouchedAndReturnsFalse)
{
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        test::TypeIntoCell(grid(dialog), 0, 1, QStringLiteral("9"));
        GetParam().close(dialog);
    });
    EXPECT_FALSE(library.ShowGeneralReportFields(file));
    EXPECT_EQ(test::readFile(file), configuration);
}

INSTANTIATE_TEST_SUITE_P(
    Close, FieldsClose,
    ::testing::Values(CloseCase{"Cancel", [](QWidget *d) { FieldsDialog::click(d, "cmdCancel"); }},
                      CloseCase{"CloseBox", [](QWidget *d) { d->close(); }},
                      CloseCase{"Escape",
                                [](QWidget *d) { QTest::keyClick(FieldsDialog::grid(d), Qt::Key_Escape); }}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(FieldsDialog, FieldsSharingANameBothUpdateTheFirstElement)
{
    file = host.writeSystemFile(QStringLiteral("Twins.rpx"), R"(<Report><Fields>
        <Vendor label="Vendor" width="1"/><Vendor label="Vendor again" width="2"/>
        </Fields></Report>)");
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        test::TypeIntoCell(grid(dialog), 0, 1, QStringLiteral("4"));
        test::TypeIntoCell(grid(dialog), 1, 1, QStringLiteral("5"));
        click(dialog, "cmdOK");
    });
    EXPECT_TRUE(library.ShowGeneralReportFields(file));
    EXPECT_EQ(attribute("//Fields/Vendor[1]/@size"), "5") << "the last row wins";
    EXPECT_EQ(attribute("//Fields/Vendor[2]/@size"), "");
}

TEST_F(FieldsDialog, AFileWithoutFieldsShowsNoRowsAndIsRewrittenUnchanged)
{
    // Single quotes: a file the library writes itself would use double ones, which shows
    // that OK did rewrite it.
    const QByteArray bare = "<?xml version='1.0'?><Report><Title>Bare</Title><Filters><A value='1'/></Filters></Report>";
    file = host.writeSystemFile(QStringLiteral("Bare.rpx"), bare);
    int rows = -1;
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        rows = grid(dialog)->topLevelItemCount();
        click(dialog, "cmdOK");
    });
    EXPECT_TRUE(library.ShowGeneralReportFields(file));
    EXPECT_EQ(rows, 0);
    const QByteArray after = test::readFile(file);
    EXPECT_NE(after, bare);
    EXPECT_EQ(QString::fromUtf8(after).simplified().remove(' ').toStdString(),
              QString::fromUtf8(bare).replace('\'', '"').remove(' ').toStdString());
}

TEST_F(FieldsDialog, AMissingFileGivesAnEmptyListAndOkStillSaysTrue)
{
    const QString missing = host.systemFolder() + QStringLiteral("/Missing.rpx");
    int rows = -1;
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        rows = grid(dialog)->topLevelItemCount();
        click(dialog, "cmdOK");
    });
    EXPECT_TRUE(library.ShowGeneralReportFields(missing));
    EXPECT_EQ(rows, 0);
    EXPECT_FALSE(QFile::exists(missing));
}

TEST_F(FieldsDialog, RemembersItsPlaceAndSizeUnderItsFormName)
{
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        dialog->setGeometry(120, 90, 500, 380);
        dialog->move(120, 90);
        click(dialog, "cmdCancel");
    });
    library.ShowGeneralReportFields(file);
    const QString record = GetRegValue(HKEY_CURRENT_USER_HANDLE, QString::fromLatin1(WindowPositionsKey),
                                       QStringLiteral("frmGeneralReportFields"), QString());
    EXPECT_EQ(record.split(',').size(), 4) << record.toStdString();

    QRect reopened;
    test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
        reopened = QRect(dialog->pos(), dialog->size());
        click(dialog, "cmdCancel");
    });
    library.ShowGeneralReportFields(file);
    EXPECT_EQ(reopened, QRect(120, 90, 500, 380));
}

} // namespace
} // namespace bravcpl5
