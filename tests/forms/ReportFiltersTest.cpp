// The report filters dialog through Library.ShowGeneralReportFilters, driven by control
// name over a stand-in database: drop-down lists opened and picked from, free text typed,
// the custom date range dialog answered from inside, and what OK, Cancel, Esc and the
// close box leave in the configuration file.

#include "filters/DateRanges.h"
#include "library/Library.h"
#include "library/ValueRules.h"
#include "library/Xml.h"
#include "support/DialogDriver.h"
#include "support/FakeDatabase.h"
#include "support/MessageRecorder.h"
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

    static QTreeWidget *grid(QWidget *dialog) { return dialog->findChild<QTreeWidget *>("rptItems"); }
    static QString shown(QWidget *dialog, int row) { return grid(dialog)->topLevelItem(row)->text(1); }
    static void click(QWidget *dialog, const char *button)
    {
        dialog->findChild<QPushButton *>(QLatin1String(button))->click();
    }
    QString value(const char *filter) const
    {
        const XmlDocumentPtr document = LoadXmlFile(file);
        return NodeText(SelectSingleNode(*document, QStringLiteral("//Filters/%1/@value").arg(filter)));
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

const QString today = values::toShortDate(QDate::currentDate());
const QString todayInField = QDate::currentDate().toString(QStringLiteral("MM/dd/yyyy"));

TEST_F(FiltersDialog, ShowsEachFilterWithItsValueAndDescription)
{
    QStringList captions, values, hidden;
    QString description;
    test::WhenModal(QStringLiteral("frmGeneralReportFilters"), [&](QWidget *dialog) {
        EXPECT_EQ(dialog->windowTitle(), "Report Filters");
        QTreeWidget *rows = grid(dialog);
        EXPECT_TRUE(rows->isColumnHidden(2));
        EXPECT_TRUE(rows->isColumnHidden(3));
        EXPECT_EQ(rows->headerItem()->text(0), "Filter");
        EXPECT_EQ(rows->headerItem()->text(1), "Value");
        for (int i = 0; i < rows->topLevelItemCount(); ++i) {
            captions.append(rows->topLevelItem(i)->text(0));
            values.append(rows->topLevelItem(i)->text(1));
            hidden.append(rows->topLevelItem(i)->text(2) + '/' + rows->topLevelItem(i)->text(3));
        }
        rows->setCurrentItem(rows->topLevelItem(Active), 1);
        description = dialog->findChild<QLabel *>("lblDescription")->text();
        EXPECT_EQ(rows->topLevelItem(Active)->toolTip(1), "asdf");
        rows->setCurrentItem(rows->topLevelItem(OrderDate), 1);
        test::SaveScreenshot(dialog, QStringLiteral("frmGeneralReportFilters"));
        click(dialog, "cmdCancel");
    });
    EXPECT_FALSE(library.ShowGeneralReportFilters(file));
    EXPECT_EQ(captions, (QStringList{"Order date", "Ship date", "Vendor", "Manufacturer", "Source",
                                     "Active only", "State", "Sidemark"}));
    EXPECT_EQ(values, (QStringList{"Last Week", "Custom Date Range : 3/1/2024 to 3/31/2024", "Acme Shades",
                                   "Alpha Blinds", "Fabricate", "Yes", "TX", "left"}));
    EXPECT_EQ(hidden[ShipDate], "daterange/0");
    EXPECT_EQ(hidden[Vendor], "vendor/1");
    EXPECT_EQ(description, "asdf");
}

TEST_F(FiltersDialog, OkWithoutAChangeRewritesEveryValueWithTokensResolved)
{
    EXPECT_TRUE(runThenOk([](QWidget *) {}));
    EXPECT_EQ(value("OrderDate"), "Last Week");
    EXPECT_EQ(value("ShipDate"), "Custom Date Range : 3/1/2024 to 3/31/2024");
    EXPECT_EQ(value("Vendor"), "Acme Shades");
    EXPECT_EQ(value("Manufacturer"), "Alpha Blinds");
    EXPECT_EQ(value("Source"), "2");
    EXPECT_EQ(value("Active"), "1");
    EXPECT_EQ(value("State"), "TX");
    EXPECT_EQ(value("Sidemark"), "left");
    const XmlDocumentPtr document = LoadXmlFile(file);
    EXPECT_EQ(NodeText(SelectSingleNode(*document, "//Fields/Vendor/@width")), "2");
}

struct CloseCase {
    const char *name;
    std::function<void(QWidget *)> close;
};

void PrintTo(const CloseCase &c, std::ostream *os) { *os << c.name; }

class FiltersClose : public FiltersDialog, public ::testing::WithParamInterface<CloseCase>
{
};

TEST_P(FiltersClose, LeavesTheFileUntouchedAndReturnsFalse)
{
    test::WhenModal(QStringLiteral("frmGeneralReportFilters"), [&](QWidget *dialog) {
        test::TypeIntoCell(grid(dialog), Sidemark, 1, QStringLiteral("right"));
        EXPECT_EQ(shown(dialog, Sidemark), "right");
        GetParam().close(dialog);
    });
    EXPECT_FALSE(library.ShowGeneralReportFilters(file));
    EXPECT_EQ(test::readFile(file), configuration);
}

INSTANTIATE_TEST_SUITE_P(
    Close, FiltersClose,
    ::testing::Values(CloseCase{"Cancel", [](QWidget *d) { FiltersDialog::click(d, "cmdCancel"); }},
                      CloseCase{"CloseBox", [](QWidget *d) { d->close(); }},
                      CloseCase{"Escape",
                                [](QWidget *d) { QTest::keyClick(FiltersDialog::grid(d), Qt::Key_Escape); }}),
    [](const auto &info) { return std::string(info.param.name); });

struct PickCase {
    const char *name;
    int row;
    QStringList offered; // the list as it drops down (a prefix of it)
    QString pick;
    QString shown;
    const char *filter;
    QString stored;
};

void PrintTo(const PickCase &c, std::ostream *os) { *os << c.name; }

class FiltersPick : public FiltersDialog, public ::testing::WithParamInterface<PickCase>
{
};

TEST_P(FiltersPick, OffersTheTypesChoicesAndStoresThePick)
{
    const PickCase &c = GetParam();
    QStringList offered;
    QString after;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) {
        offered = test::OpenChoices(grid(dialog), c.row, 1);
        EXPECT_TRUE(test::PickChoice(c.pick)) << c.pick.toStdString();
        test::Settle();
        after = shown(dialog, c.row);
    }));
    EXPECT_EQ(offered.mid(0, c.offered.size()), c.offered);
    EXPECT_EQ(after, c.shown);
    EXPECT_EQ(value(c.filter), c.stored);
}

INSTANTIATE_TEST_SUITE_P(
    Choices, FiltersPick,
    ::testing::Values(
        PickCase{"BooleanNo", Active, {"Yes", "No"}, "No", "No", "Active", "0"},
        PickCase{"ProductSource", Source, {"None", "Purchase", "Fabricate", "Stock", "Other"}, "Stock",
                 "Stock", "Source", "3"},
        PickCase{"VendorWithAllEntry", Vendor, {"(All Vendors)", "Acme Shades", "Blind Spot", "Cord & Co"},
                 "Cord & Co", "Cord & Co", "Vendor", "Cord & Co"},
        PickCase{"Manufacturer", Manufacturer, {"Alpha Blinds", "Zeta Shutters"}, "Zeta Shutters",
                 "Zeta Shutters", "Manufacturer", "Zeta Shutters"},
        PickCase{"NamedRange", OrderDate,
                 {"Today", "Yesterday", "This Year", "This Week", "This Month", "Last Week", "Last Month",
                  "Past 30 days", "Past 60 days", "Past 90 days", "Custom Date Range"},
                 "Past 90 days", "Past 90 days", "OrderDate", "Past 90 days"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(FiltersDialog, ADropDownIsBuiltAfreshEachTimeItOpens)
{
    QStringList first, second;
    runThenOk([&](QWidget *dialog) {
        first = test::OpenChoices(grid(dialog), Vendor, 1);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        test::Settle();
        database.fields["VendorName"].append("Drapery Depot");
        second = test::OpenChoices(grid(dialog), Vendor, 1);
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    });
    EXPECT_EQ(first.size(), 4);
    EXPECT_EQ(second.size(), 5);
    EXPECT_EQ(second.last(), "Drapery Depot");
    EXPECT_EQ(value("Vendor"), "Acme Shades") << "a dismissed list changes nothing";
}

TEST_F(FiltersDialog, TypedTextIsStoredAsTyped)
{
    EXPECT_TRUE(runThenOk([](QWidget *dialog) {
        test::TypeIntoCell(grid(dialog), State, 1, QStringLiteral("Ohio & more"));
    }));
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

TEST_F(FiltersDialog, CustomRangeForANamedRangeStartsAtTodayAndSurvivesCancel)
{
    QString start, end, after;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) {
        after = chooseCustomRange(dialog, OrderDate, [&](QWidget *range) {
            start = fieldText(range, "txtStartDate");
            end = fieldText(range, "txtEndDate");
            test::SaveScreenshot(range, QStringLiteral("frmCustomDateRange-from-filters"));
            click(range, "cmdCancel");
        });
    }));
    EXPECT_EQ(start, todayInField);
    EXPECT_EQ(end, todayInField);
    const QString todayToToday = CustomDateRangeText(QDate::currentDate(), QDate::currentDate());
    EXPECT_EQ(after, todayToToday);
    EXPECT_EQ(value("OrderDate"), todayToToday);
}

TEST_F(FiltersDialog, CustomRangeChosenAgainKeepsItsDatesAndTakesTheConfirmedOnes)
{
    QString start, end, after;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) {
        after = chooseCustomRange(dialog, ShipDate, [&](QWidget *range) {
            start = fieldText(range, "txtStartDate");
            end = fieldText(range, "txtEndDate");
            auto *endField = range->findChild<QLineEdit *>("txtEndDate");
            endField->selectAll();
            QTest::keyClick(endField, Qt::Key_Delete);
            endField->home(false);
            QTest::keyClicks(endField, "04152024");
            click(range, "cmdOK");
        });
    }));
    EXPECT_EQ(start, "03/01/2024");
    EXPECT_EQ(end, "03/31/2024");
    EXPECT_EQ(after, "Custom Date Range : 3/1/2024 to 4/15/2024");
    EXPECT_EQ(value("ShipDate"), "Custom Date Range : 3/1/2024 to 4/15/2024");
}

TEST_F(FiltersDialog, CustomRangeDialogClosedByItsCloseBoxKeepsTheRowsDates)
{
    QString after;
    runThenOk([&](QWidget *dialog) {
        after = chooseCustomRange(dialog, ShipDate, [](QWidget *range) { range->close(); });
    });
    EXPECT_EQ(after, "Custom Date Range : 3/1/2024 to 3/31/2024");
}

TEST_F(FiltersDialog, AFileWithoutFiltersShowsNoRowsAndOkSavesIt)
{
    file = host.writeSystemFile(QStringLiteral("Bare.rpx"), "<Report><Title>Bare</Title></Report>");
    int rows = -1;
    EXPECT_TRUE(runThenOk([&](QWidget *dialog) { rows = grid(dialog)->topLevelItemCount(); }));
    EXPECT_EQ(rows, 0);
    EXPECT_TRUE(test::readFile(file).contains("<Title>Bare</Title>"));
}

} // namespace
} // namespace bravcpl5
