// The report fonts dialogs through ReportLayout.ShowGeneralReportFonts and
// ShowProcessReportFonts, driven by control name: the rows a document gives, the font
// dialog's changes, and what OK, Reset, Cancel and the close box leave in the files.

#include "forms/FontColorDialog.h"
#include "layout/ReportLayout.h"
#include "library/Library.h"
#include "library/Xml.h"
#include "support/DialogDriver.h"
#include "support/TestHost.h"

#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

constexpr int fieldColumn = 0, fontColumn = 1, faceColumn = 2, boldColumn = 3, sizeColumn = 7,
              colorColumn = 8, typeColumn = 9;

struct FontsDialog : ::testing::Test {
    FontsDialog() { library.Initialize(&host); }
    ~FontsDialog() override { library.PreTerminate(); }

    static QTreeWidget *grid(QWidget *d)
    {
        return d->findChild<QTreeWidget *>(QStringLiteral("rptFonts"));
    }
    static void click(QWidget *d, const char *name)
    {
        d->findChild<QPushButton *>(QLatin1String(name))->click();
    }
    static QStringList column(QWidget *d, int column)
    {
        QStringList texts;
        for (int i = 0; i < grid(d)->topLevelItemCount(); ++i)
            texts << grid(d)->topLevelItem(i)->text(column);
        return texts;
    }
    // Opens the process (or general) dialog, runs `action`, and leaves it by `close`.
    bool run(
        bool process, std::function<void(QWidget *)> action,
        std::function<void(QWidget *)> close = [](QWidget *d) { click(d, "cmdOK"); })
    {
        const QString name = process ? QStringLiteral("frmProcessReportFonts")
                                     : QStringLiteral("frmGeneralReportFonts");
        test::WhenModal(name, [&](QWidget *d) {
            action(d);
            close(d);
        });
        ReportLayout *layout = library.reportLayout();
        return process ? layout->ShowProcessReportFonts() : layout->ShowGeneralReportFonts();
    }
    // Changes row `row` through the font dialog to `font` and `color`.
    static void changeRow(QWidget *d, int row, const QFont &font, const QColor &color)
    {
        grid(d)->setCurrentItem(grid(d)->topLevelItem(row));
        test::WhenModal(QStringLiteral("CommonDialog1"), [&](QWidget *fontDialog) {
            fontDialog->setProperty("currentFont", font);
            fontDialog->setProperty("color", color);
            QMetaObject::invokeMethod(fontDialog, "accept");
        });
        click(d, "cmdChangeFont");
    }
    QString userFile(bool process) const
    {
        return host.userFolder()
               + (process ? "/Process Report Fonts.fox" : "/General Report Fonts.fox");
    }
    QStringList savedAttribute(bool process, const char *name) const
    {
        QStringList values;
        const XmlDocumentPtr document = LoadXmlFile(userFile(process));
        if (document)
            for (const pugi::xpath_node &font : document->select_nodes("//Font"))
                values << QString::fromUtf8(font.node().attribute(name).value());
        return values;
    }

    test::TestHost host;
    Library library;
};

TEST_F(FontsDialog, WithoutFilesTheDefaultsOpenAndOkWritesTheUserCopy)
{
    for (const bool process : {false, true}) {
        int rows = 0;
        EXPECT_TRUE(run(process, [&](QWidget *d) {
            EXPECT_EQ(d->windowTitle(), process ? "Process Report Fonts" : "General Report Fonts");
            EXPECT_EQ(d->font().family(), "Verdana");
            rows = grid(d)->topLevelItemCount();
            EXPECT_EQ(column(d, fieldColumn).first(), process ? "Print Date" : "Company Name");
        }));
        EXPECT_EQ(rows, process ? 28 : 13);
        EXPECT_EQ(savedAttribute(process, "type").size(), rows);
        const XmlDocumentPtr saved = LoadXmlFile(userFile(process));
        ASSERT_TRUE(saved);
        QStringList attributes;
        for (pugi::xml_attribute a : saved->select_node("//Font").node().attributes())
            attributes << QString::fromUtf8(a.name());
        EXPECT_EQ(attributes, QStringList({"type", "name", "bold", "italic", "underline",
                                           "strikeout", "size", "color"}));
    }
}

TEST_F(FontsDialog, ProcessListsAreToppedUpAndOddRowsKept)
{
    host.writeSystemFile("Process Report Fonts.fox", R"(<ReportFonts><ProcessReports>
        <Font type="37" name="Georgia" size="10.5"/>
        <Font type="99" name="Courier New" size="9"/>
        <Font type="1" name="Arial" size="14" bold="1"/>
        <Font type="1" name="Arial" size="14" bold="1"/>
      </ProcessReports></ReportFonts>)");
    EXPECT_FALSE(run(
        true,
        [&](QWidget *d) {
            EXPECT_EQ(column(d, typeColumn), QStringList({"37", "99", "1", "1", "35", "36", "38"}));
            EXPECT_EQ(column(d, boldColumn), QStringList({"0", "0", "1", "1", "1", "1", "0"}));
            EXPECT_EQ(column(d, sizeColumn).first(), "10")
                << "a loaded size is a whole number, halves to even";
            EXPECT_EQ(grid(d)->topLevelItem(1)->text(fieldColumn), "");
            EXPECT_EQ(grid(d)->topLevelItem(1)->text(fontColumn), "Example");
            EXPECT_EQ(grid(d)->topLevelItem(0)->text(faceColumn), "Georgia");
        },
        [](QWidget *d) { click(d, "cmdCancel"); }));
    EXPECT_FALSE(QFile::exists(userFile(true)));
}

TEST_F(FontsDialog, AChosenFontKeepsItsFractionAndColour)
{
    EXPECT_TRUE(run(false, [&](QWidget *d) {
        QFont chosen(QStringLiteral("DejaVu Serif"));
        chosen.setPointSizeF(24);
        chosen.setBold(true);
        changeRow(d, 1, chosen, Qt::red);
        chosen.setPointSizeF(10.5);
        chosen.setBold(false);
        changeRow(d, 0, chosen, Qt::blue);
        EXPECT_EQ(grid(d)->topLevelItem(0)->text(sizeColumn), "10.5");
        EXPECT_EQ(grid(d)->topLevelItem(1)->text(colorColumn), "255");
        // A 24-point row is taller than a 10.5-point one.
        EXPECT_GT(grid(d)->visualItemRect(grid(d)->topLevelItem(1)).height(),
                  grid(d)->visualItemRect(grid(d)->topLevelItem(0)).height());
        test::SaveScreenshot(d, QStringLiteral("frmGeneralReportFonts"));
    }));
    EXPECT_EQ(savedAttribute(false, "size").mid(0, 2), QStringList({"10.5", "24"}));
    EXPECT_EQ(savedAttribute(false, "color").mid(0, 2), QStringList({"16711680", "255"}));
    EXPECT_EQ(savedAttribute(false, "name").first(), "DejaVu Serif");
}

TEST_F(FontsDialog, EachRowIsItsSizeInPixelsAndFourteenMoreAndHoldsItsSampleWhole)
{
    const struct {
        const char *size;
        int rowAt96Dpi;  // the size's pixels at 96 dpi, rounded, and 14
        bool sampleFits; // drawn in its own size; else smaller, within the row
    } rows[] = {{"8", 25, true},  {"10", 27, true}, {"12", 30, true},
                {"20", 41, true}, {"36", 62, true}, {"72", 110, false}};
    QByteArray document = "<ReportFonts><GeneralReports>";
    for (const auto &row : rows)
        document += QByteArray("<Font type=\"1\" name=\"DejaVu Sans\" size=\"") + row.size + "\"/>";
    host.writeSystemFile("General Report Fonts.fox", document + "</GeneralReports></ReportFonts>");
    run(false, [&](QWidget *d) {
        ASSERT_EQ(d->logicalDpiY(), 96);
        ASSERT_EQ(grid(d)->topLevelItemCount(), int(std::size(rows)));
        for (int i = 0; i < int(std::size(rows)); ++i) {
            SCOPED_TRACE(rows[i].size);
            QTreeWidgetItem *item = grid(d)->topLevelItem(i);
            const int height = grid(d)->visualItemRect(item).height();
            EXPECT_EQ(height, rows[i].rowAt96Dpi);
            const QFont sample = item->font(fontColumn);
            EXPECT_EQ(sample.family(), "DejaVu Sans");
            EXPECT_LE(QFontMetrics(sample, d).height(), height);
            EXPECT_EQ(sample.pointSizeF() == QByteArray(rows[i].size).toDouble(),
                      rows[i].sampleFits);
        }
        test::SaveScreenshot(d, QStringLiteral("frmGeneralReportFonts-row-heights"));
        // Fitted to its contents, as a double click on its divider does, the Font column
        // is as wide as its widest sample.
        grid(d)->resizeColumnToContents(fontColumn);
        const QTreeWidgetItem *widest = grid(d)->topLevelItem(int(std::size(rows)) - 1);
        EXPECT_GE(
            grid(d)->columnWidth(fontColumn),
            QFontMetrics(widest->font(fontColumn), d).horizontalAdvance(widest->text(fontColumn)));
    });
}

TEST_F(FontsDialog, CancelAndResetWriteNothingAndTheCloseBoxReadsAsConfirmed)
{
    const QByteArray system =
        R"(<ReportFonts><GeneralReports><Font type="2" name="Arial" size="30"/></GeneralReports></ReportFonts>)";
    const QString systemFile = host.writeSystemFile("General Report Fonts.fox", system);
    for (const auto &[way, close] : test::WaysToCancel(QStringLiteral("rptFonts"))) {
        const bool result = run(
            false,
            [&](QWidget *d) {
                click(d, "cmdResetToDefaults");
                EXPECT_EQ(grid(d)->topLevelItemCount(), 13);
            },
            close);
        EXPECT_EQ(result, std::string(way) == "CloseBox") << way;
        EXPECT_FALSE(QFile::exists(userFile(false))) << way;
        EXPECT_EQ(test::readFile(systemFile), system) << way;
    }
}

TEST_F(FontsDialog, EnterOnARowOpensTheFontDialogAndNotOk)
{
    bool opened = false;
    EXPECT_FALSE(run(
        true,
        [&](QWidget *d) {
            test::WhenModal(QStringLiteral("CommonDialog1"), [&](QWidget *fontDialog) {
                opened = true;
                test::SaveScreenshot(fontDialog, QStringLiteral("CommonDialog1-from-fonts"));
                QMetaObject::invokeMethod(fontDialog, "reject");
            });
            grid(d)->setFocus();
            QTest::keyClick(grid(d), Qt::Key_Return);
            EXPECT_TRUE(d->isVisible());
            test::SaveScreenshot(d, QStringLiteral("frmProcessReportFonts"));
        },
        [](QWidget *d) { click(d, "cmdCancel"); }));
    EXPECT_TRUE(opened);
}

} // namespace
} // namespace bravcpl5
