// The report fields dialog through Library.ShowGeneralReportFields, driven by control
// name: sizes typed into the grid, OK, Cancel, Esc and the close box, and what reaches the
// configuration file; and the fields document read and written on its own.

#include "library/Library.h"
#include "library/Registry.h"
#include "library/Xml.h"
#include "support/DialogDriver.h"
#include "support/TestHost.h"

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
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

    static QTreeWidget *grid(QWidget *dialog)
    {
        return dialog->findChild<QTreeWidget *>("rptItems");
    }
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
    // Runs `action` in the dialog over `path`, then clicks `button`.
    bool run(const QString &path, std::function<void(QWidget *)> action,
             const char *button = "cmdOK")
    {
        test::WhenModal(QStringLiteral("frmGeneralReportFields"), [&](QWidget *dialog) {
            action(dialog);
            click(dialog, button);
        });
        return library.ShowGeneralReportFields(path);
    }
    QString attribute(const QString &xpath) const
    {
        const XmlDocumentPtr document = LoadXmlFile(file);
        return document ? NodeText(SelectSingleNode(*document, xpath))
                        : QStringLiteral("<no file>");
    }

    test::TestHost host;
    Library library;
    QString file;
};

TEST_F(FieldsDialog, ListsEachFieldWithItsWidthAndDefaults)
{
    QStringList labels, sizes;
    EXPECT_FALSE(run(
        file,
        [&](QWidget *dialog) {
            EXPECT_EQ(dialog->windowTitle(), "Report Fields");
            EXPECT_EQ(dialog->font().family(), "Verdana");
            labels = column(dialog, 0);
            sizes = column(dialog, 1);
            test::SaveScreenshot(dialog, QStringLiteral("frmGeneralReportFields"));
        },
        "cmdCancel"));
    EXPECT_EQ(labels, (QStringList{"Order", "Vendor", "Total", "Notes"}));
    EXPECT_EQ(sizes, (QStringList{"1", "2.5", "1.25", "2"}));
}

// What is not a number is refused; OK writes "size" to every row and leaves "width" alone.
TEST_F(FieldsDialog, RefusesWhatIsNotANumberAndWritesSizeNotWidth)
{
    const std::pair<QString, QString> cases[] = {{"", "2.5"},
                                                 {"abc", "2.5"},
                                                 {"1.5", "1.5"},
                                                 {"-3", "-3"},
                                                 {"1,000", "1,000"}}; // typed, then shown
    for (const auto &[typed, expected] : cases) {
        SCOPED_TRACE(typed.toStdString());
        host.writeSystemFile(QStringLiteral("Orders.rpx"), configuration);
        QString shown;
        EXPECT_TRUE(run(file, [&, typed = typed](QWidget *dialog) {
            test::TypeIntoCell(grid(dialog), 1, 1, typed);
            shown = grid(dialog)->topLevelItem(1)->text(1);
        }));
        EXPECT_EQ(shown, expected);
        EXPECT_EQ(attribute("//Fields/Vendor/@size"), expected);
        EXPECT_EQ(attribute("//Fields/Vendor/@width"), "2.5") << "width keeps its old value";
        EXPECT_EQ(attribute("//Fields/Notes/@size"), "2") << "every row is written";
        EXPECT_EQ(attribute("//Fields/Notes/@width"), "");
    }
}

TEST_F(FieldsDialog, CancelEscapeAndTheCloseBoxLeaveTheFileUntouchedAndReturnFalse)
{
    for (const auto &[name, close] : test::WaysToCancel(QStringLiteral("rptItems"))) {
        SCOPED_TRACE(name);
        test::WhenModal(QStringLiteral("frmGeneralReportFields"),
                        [&, close = close](QWidget *dialog) {
                            test::TypeIntoCell(grid(dialog), 0, 1, QStringLiteral("9"));
                            close(dialog);
                        });
        EXPECT_FALSE(library.ShowGeneralReportFields(file));
        EXPECT_EQ(test::readFile(file), configuration);
    }
}

TEST_F(FieldsDialog, FieldsSharingANameBothUpdateTheFirstElement)
{
    file = host.writeSystemFile(QStringLiteral("Twins.rpx"), R"(<Report><Fields>
        <Vendor label="Vendor" width="1"/><Vendor label="Vendor again" width="2"/>
        </Fields></Report>)");
    EXPECT_TRUE(run(file, [](QWidget *dialog) {
        test::TypeIntoCell(grid(dialog), 0, 1, QStringLiteral("4"));
        test::TypeIntoCell(grid(dialog), 1, 1, QStringLiteral("5"));
    }));
    EXPECT_EQ(attribute("//Fields/Vendor[1]/@size"), "5") << "the last row wins";
    EXPECT_EQ(attribute("//Fields/Vendor[2]/@size"), "");
}

TEST_F(FieldsDialog, FilesWithoutFieldsShowNoRowsAndOkRewritesThemUnchanged)
{
    // Single quotes: a file the library writes itself would use double ones, which shows
    // that OK did rewrite it.
    const QByteArray bare = "<?xml version='1.0'?><Report><Title>Bare</Title><Filters><A "
                            "value='1'/></Filters></Report>";
    file = host.writeSystemFile(QStringLiteral("Bare.rpx"), bare);
    const QString missing = host.systemFolder() + QStringLiteral("/Missing.rpx");
    for (const QString &path : {file, missing}) {
        int rows = -1;
        EXPECT_TRUE(run(path, [&](QWidget *dialog) { rows = grid(dialog)->topLevelItemCount(); }));
        EXPECT_EQ(rows, 0);
    }
    const QByteArray after = test::readFile(file);
    EXPECT_NE(after, bare);
    EXPECT_EQ(QString::fromUtf8(after).simplified().remove(' ').toStdString(),
              QString::fromUtf8(bare).replace('\'', '"').remove(' ').toStdString());
    EXPECT_FALSE(QFile::exists(missing));
}

// A report of twelve fields, as the sample price list has, shows every row at the dialog's
// opening size, at the tests' font as at a large one.
TEST_F(FieldsDialog, OpensWithTwelveFieldsInViewWithoutScrolling)
{
    QByteArray twelve = "<Report><Fields>";
    for (int i = 1; i <= 12; ++i)
        twelve += QStringLiteral("<Field%1 label=\"Field %1\" width=\"1\"/>").arg(i).toUtf8();
    const QString path = host.writeSystemFile(QStringLiteral("Price List.rpx"),
                                              twelve + "</Fields></Report>");
    const QFont font = QApplication::font();
    for (const int points : {font.pointSize(), 14}) {
        SCOPED_TRACE(points);
        QFont sized = font;
        sized.setPointSize(points);
        QApplication::setFont(sized);
        // Each opening at its own size, not where the one before was left.
        SetRegValue(HKEY_CURRENT_USER_HANDLE, QString::fromLatin1(WindowPositionsKey),
                    QStringLiteral("frmGeneralReportFields"), QString());
        run(
            path,
            [&](QWidget *dialog) {
                QTreeWidget *rows = grid(dialog);
                ASSERT_EQ(rows->topLevelItemCount(), 12);
                EXPECT_FALSE(rows->verticalScrollBar()->isVisible());
                EXPECT_LE(rows->visualItemRect(rows->topLevelItem(11)).bottom(),
                          rows->viewport()->height());
                if (points == 14)
                    test::SaveScreenshot(dialog, QStringLiteral("frmGeneralReportFields-twelve"));
            },
            "cmdCancel");
        QApplication::setFont(font);
    }
}

} // namespace
} // namespace bravcpl5
