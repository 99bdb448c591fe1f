// The report filters dialog through Library.ShowGeneralReportFilters, driven by control
// name over a stand-in database: drop-down lists opened and picked from, free text typed,
// the custom date range dialog answered from inside, and what OK, Cancel, Esc and the
// close box leave in the configuration file.

#include "filters/DateRanges.h"
#include "library/Library.h"
#include "library/Xml.h"
#include "support/DialogDriver.h"
#include "support/FakeDatabase.h"
#include "support/MessageRecorder.h"
#include "support/QtPrinters.h"
#include "support/TestHost.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

const QByteArray configuration = R"(<?xml version="1.0"?>
<Report>
  <Filters>
    <OrderDate label="Order date" type="daterange" value="Last Week" description="Orders placed in this period."/>
    <ShipDate label="Ship date" type="DateRange" value="Custom Date Range : 3/1/2024 to 3/31/2024"/>
    <Vendor label="Vendor" type="vendor" allowall="1" value="[1stvendor]"/>
    <Manufacturer type="manufacturer" value="[1STMANUFACTURER]"/>
    <Source label="Source" type="productsource" value="fabricate"/>
    <Active label="Active only" type="boolean" value="yes" description="Standard"/>
    <State label="State" value="[companybilltostate]"/>
    <Sidemark label="Sidemark" value="left"/>
  </Filters>
  <Fields><Vendor width="2"/></Fields>
</Report>
)";

enum Row { OrderDate, ShipDate, Vendor, Manufacturer, Source, Active, State, Sidemark };

struct FiltersDialog : ::testing::Test {
    FiltersDialog()
    {
        database.fields = {{"VendorName", {"Acme Shades", "Blind Spot", "Cord & Co"}},
                           {"Manufacturer", {"Alpha Blinds", "Zeta Shutters"}},
                           {"BillToState", {"TX"}}};
        host.setBravSql(&database);
        host.setCommon(&database);
        library.Initialize(&host);
        file = host.writeSystemFile(QStringLiteral("Orders.rpx"), configuration);
    }
    ~FiltersDialog() override { library.PreTerminate(); }

    static QTreeWidget *grid(QWidget *dialog)
    {
        return dialog->findChild<QTreeWidget *>("rptItems");
    }
    static QString shown(QWidget *dialog, int row)
    {
        return grid(dialog)->topLevelItem(row)->text(1);
    }
    static void click(QWidget *dialog, const char *button)
    {
        dialog->findChild<QPushButton *>(QLatin1String(button))->click();
    }
    QString value(const char *filter) const
    {
        const XmlDocumentPtr document = LoadXmlFile(file);
        return NodeText(
            SelectSingleNode(*document, QStringLiteral("//Filters/%1/@value").arg(filter)));
    }
    // Runs `action` in the filters dialog, then confirms it with OK.
    bool runThenOk(std::function<void(QWidget *)> action)
    {
        test::WhenModal(QStringLiteral("frmGeneralReportFilters"), [action](QWidget *dialog) {
            action(dialog);
            test::Settle();
            click(dialog, "cmdOK");
        });
        return library.ShowGeneralReportFilters(file);
    }

    test::TestHost host;
    test::FakeDatabase database;
    Library library;
    QString file;
};

const QString todayInField = QDate::currentDate().toString(QStringLiteral("MM/dd/yyyy"));

// Each filter shows its value and description; OK without a change rewrites every value
// with its tokens resolved, and leaves the rest of the file alone.
TEST_F(FiltersDialog, ShowsEachFilterAndOkRewritesEveryValueWithTokensResolved)
{
    QStringList rows; // caption, value, then the hidden type and "allowall"
    QString description;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) {
        EXPECT_EQ(dialog->windowTitle(), "Report Filters");
        QTreeWidget *items = grid(dialog);
        EXPECT_TRUE(items->isColumnHidden(2) && items->isColumnHidden(3));
        EXPECT_EQ(items->headerItem()->text(0) + '|' + items->headerItem()->text(1),
                  "Filter|Value");
        for (int i = 0; i < items->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *item = items->topLevelItem(i);
            rows << QStringList{item->text(0), item->text(1), item->text(2), item->text(3)}.join(
                '|');
        }
        items->setCurrentItem(items->topLevelItem(Active), 1);
        description = dialog->findChild<QLabel *>("lblDescription")->text();
        EXPECT_EQ(items->topLevelItem(Active)->toolTip(1), "asdf");
        items->setCurrentItem(items->topLevelItem(OrderDate), 1);
        test::SaveScreenshot(dialog, QStringLiteral("frmGeneralReportFilters"));
    }));
    EXPECT_EQ(rows, (QStringList{"Order date|Last Week|daterange|0",
                                 "Ship date|Custom Date Range : 3/1/2024 to 3/31/2024|daterange|0",
                                 "Vendor|Acme Shades|vendor|1",
                                 "Manufacturer|Alpha Blinds|manufacturer|0",
                                 "Source|Fabricate|productsource|0", "Active only|Yes|boolean|0",
                                 "State|TX||0", "Sidemark|left||0"}));
    EXPECT_EQ(description, "asdf");
    QStringList stored;
    for (const char *filter : {"OrderDate", "ShipDate", "Vendor", "Manufacturer", "Source",
                               "Active", "State", "Sidemark"})
        stored << value(filter);
    EXPECT_EQ(stored, (QStringList{"Last Week", "Custom Date Range : 3/1/2024 to 3/31/2024",
                                   "Acme Shades", "Alpha Blinds", "2", "1", "TX", "left"}));
    const XmlDocumentPtr document = LoadXmlFile(file);
    EXPECT_EQ(NodeText(SelectSingleNode(*document, "//Fields/Vendor/@width")), "2");
}

TEST_F(FiltersDialog, CancelEscapeAndTheCloseBoxLeaveTheFileUntouchedAndReturnFalse)
{
    for (const auto &[name, close] : test::WaysToCancel(QStringLiteral("rptItems"))) {
        SCOPED_TRACE(name);
        test::WhenModal(QStringLiteral("frmGeneralReportFilters"),
                        [&, close = close](QWidget *dialog) {
                            test::TypeIntoCell(grid(dialog), Sidemark, 1, QStringLiteral("right"));
                            EXPECT_EQ(shown(dialog, Sidemark), "right");
                            close(dialog);
                        });
        EXPECT_FALSE(library.ShowGeneralReportFilters(file));
        EXPECT_EQ(test::readFile(file), configuration);
    }
}

TEST_F(FiltersDialog, EachTypeOffersItsChoicesAndStoresThePick)
{
    const struct {
        int row;
        QStringList offered; // the list as it drops down (a prefix of it)
        QString pick;
        const char *filter;
        QString stored;
    } cases[] = {
        {Active, {"Yes", "No"}, "No", "Active", "0"},
        {Source, {"None", "Purchase", "Fabricate", "Stock", "Other"}, "Stock", "Source", "3"},
        {Vendor,
         {"(All Vendors)", "Acme Shades", "Blind Spot", "Cord & Co"},
         "Cord & Co",
         "Vendor",
         "Cord & Co"},
        {Manufacturer,
         {"Alpha Blinds", "Zeta Shutters"},
         "Zeta Shutters",
         "Manufacturer",
         "Zeta Shutters"},
        {OrderDate,
         {"Today", "Yesterday", "This Year", "This Week", "This Month", "Last Week", "Last Month",
          "Past 30 days", "Past 60 days", "Past 90 days", "Custom Date Range"},
         "Past 90 days",
         "OrderDate",
         "Past 90 days"}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.filter);
        QStringList offered;
        QString after;
        EXPECT_TRUE(runThenOk([&](QWidget *dialog) {
            offered = test::OpenChoices(grid(dialog), c.row, 1);
            EXPECT_TRUE(test::PickChoice(c.pick)) << c.pick.toStdString();
            test::Settle();
            after = shown(dialog, c.row);
        }));
        EXPECT_EQ(offered.mid(0, c.offered.size()), c.offered);
        EXPECT_EQ(after, c.pick);
        EXPECT_EQ(value(c.filter), c.stored);
    }
}

TEST_F(FiltersDialog, ADropDownIsBuiltAfreshEachTimeItOpensAndTypedTextIsStoredAsTyped)
{
    QStringList first, second;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) {
        first = test::OpenChoices(grid(dialog), Vendor, 1);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        test::Settle();
        database.fields["VendorName"].append("Drapery Depot");
        second = test::OpenChoices(grid(dialog), Vendor, 1);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        test::Settle();
        test::TypeIntoCell(grid(dialog), State, 1, QStringLiteral("Ohio & more"));
    }));
    EXPECT_EQ(first.size(), 4);
    EXPECT_EQ(second.size(), 5);
    EXPECT_EQ(second.last(), "Drapery Depot");
    EXPECT_EQ(value("Vendor"), "Acme Shades") << "a dismissed list changes nothing";
    EXPECT_EQ(value("State"), "Ohio & more");
}

// Picks "Custom Date Range" in `row`, then lets `answer` deal with the custom range
// dialog, and returns what the row shows once it has closed.
QString chooseCustomRange(QWidget *dialog, int row, std::function<void(QWidget *)> answer)
{
    bool answered = false;
    test::WhenModal(QStringLiteral("frmCustomDateRange"), [&](QWidget *range) {
        answer(range);
        answered = true;
    });
    test::OpenChoices(FiltersDialog::grid(dialog), row, 1);
    EXPECT_TRUE(test::PickChoice(QStringLiteral("Custom Date Range")));
    // The range dialog runs from the event loop once the cell editor has closed.
    QElapsedTimer clock;
    clock.start();
    while (!answered && clock.elapsed() < 5000)
        test::Settle(10);
    EXPECT_TRUE(answered) << "the custom date range dialog did not open";
    test::Settle();
    return FiltersDialog::shown(dialog, row);
}

QString fieldText(QWidget *dialog, const char *name)
{
    return dialog->findChild<QLineEdit *>(QLatin1String(name))->text();
}

// A named range opens the custom range dialog at today, a custom one at its own dates; Cancel
// and the close box keep what the row had, OK takes the confirmed dates.
TEST_F(FiltersDialog, TheCustomRangeDialogStartsFromTheRowAndOnlyOkChangesIt)
{
    QString namedStart, namedEnd, named, closed, customStart, customEnd, custom;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) {
        named = chooseCustomRange(dialog, OrderDate, [&](QWidget *range) {
            namedStart = fieldText(range, "txtStartDate");
            namedEnd = fieldText(range, "txtEndDate");
            test::SaveScreenshot(range, QStringLiteral("frmCustomDateRange-from-filters"));
            click(range, "cmdCancel");
        });
        closed = chooseCustomRange(dialog, ShipDate, [](QWidget *range) { range->close(); });
        custom = chooseCustomRange(dialog, ShipDate, [&](QWidget *range) {
            customStart = fieldText(range, "txtStartDate");
            customEnd = fieldText(range, "txtEndDate");
            auto *endField = range->findChild<QLineEdit *>("txtEndDate");
            endField->selectAll();
            QTest::keyClick(endField, Qt::Key_Delete);
            endField->home(false);
            QTest::keyClicks(endField, "04152024");
            click(range, "cmdOK");
        });
    }));
    EXPECT_EQ(namedStart, todayInField);
    EXPECT_EQ(namedEnd, todayInField);
    const QString todayToToday = CustomDateRangeText(QDate::currentDate(), QDate::currentDate());
    EXPECT_EQ(named, todayToToday);
    EXPECT_EQ(value("OrderDate"), todayToToday);
    EXPECT_EQ(closed, "Custom Date Range : 3/1/2024 to 3/31/2024");
    EXPECT_EQ(customStart, "03/01/2024");
    EXPECT_EQ(customEnd, "03/31/2024");
    EXPECT_EQ(custom, "Custom Date Range : 3/1/2024 to 4/15/2024");
    EXPECT_EQ(value("ShipDate"), "Custom Date Range : 3/1/2024 to 4/15/2024");
}

TEST_F(FiltersDialog, AFileWithoutFiltersShowsNoRowsAndOkSavesIt)
{
    file = host.writeSystemFile(QStringLiteral("Bare.rpx"), "<Report><Title>Bare</Title></Report>");
    int rows = -1;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) { rows = grid(dialog)->topLevelItemCount(); }));
    EXPECT_EQ(rows, 0);
    EXPECT_TRUE(test::readFile(file).contains("<Title>Bare</Title>"));
}

// A custom range written in the user's locale survives OK after OK, whatever that locale
// writes: month names in C, day first in German, year first in Japanese. One written with US
// dates keeps both of them in any locale: "3/31" has no thirteenth month to be read as, so it
// reads as 31 March rather than falling back to today.
class FiltersDialogInLocale : public FiltersDialog,
                              public ::testing::WithParamInterface<const char *>
{
protected:
    FiltersDialogInLocale() { QLocale::setDefault(QLocale(QString::fromLatin1(GetParam()))); }
    ~FiltersDialogInLocale() override
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }
};

TEST_P(FiltersDialogInLocale, ACustomRangeKeepsItsDatesThroughTwoOks)
{
    const QString range = CustomDateRangeText(QDate(2024, 3, 1), QDate(2024, 3, 31));
    file = host.writeSystemFile(QStringLiteral("Range.rpx"),
                                "<Report><Filters><ShipDate type=\"daterange\" value=\""
                                    + range.toUtf8()
                                    + "\"/><OrderDate type=\"daterange\" "
                                      "value=\"Custom Date Range : 1/1/2024 to 3/31/2024\"/>"
                                      "</Filters></Report>");
    EXPECT_TRUE(runThenOk([](QWidget *) {}));
    EXPECT_TRUE(runThenOk([](QWidget *) {}));
    EXPECT_EQ(value("ShipDate"), range);
    QDate start, end;
    ParseCustomDateRange(range, start, end);
    EXPECT_EQ(start, QDate(2024, 3, 1));
    EXPECT_EQ(end, QDate(2024, 3, 31));
    EXPECT_EQ(value("OrderDate"), CustomDateRangeText(QDate(2024, 1, 1), QDate(2024, 3, 31)));
}

INSTANTIATE_TEST_SUITE_P(Locales, FiltersDialogInLocale, ::testing::Values("C", "de_DE", "ja_JP"));

} // namespace
} // namespace bravcpl5
