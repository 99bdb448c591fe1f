// The custom date range dialog, driven by its controls: typed dates through the mask, the
// three refusals of OK and where they leave the focus, the drop-down calendar, and what
// Cancel and the close box leave in Cancelled.

#include "forms/DropDownCalendar.h"
#include "forms/frmCustomDateRange.h"
#include "support/DialogDriver.h"
#include "support/MessageRecorder.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

using test::MessageRecorder;

struct RangeForm {
    RangeForm()
    {
        form.Initialize(QDate(2024, 3, 1), QDate(2024, 3, 31), nullptr);
        form.show();
        test::Settle();
    }
    QLineEdit *field(const char *name) { return form.findChild<QLineEdit *>(QLatin1String(name)); }
    QPushButton *button(const char *name) { return form.findChild<QPushButton *>(QLatin1String(name)); }
    // Types digits into a masked date field the way a user does: select all, then type.
    void type(const char *name, const QString &digits)
    {
        QLineEdit *edit = field(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        edit->home(false);
        QTest::keyClicks(edit, digits);
    }

    frmCustomDateRange form;
};

TEST(CustomDateRange, ShowsTheGivenDatesInTheMaskedFields)
{
    RangeForm range;
    EXPECT_EQ(range.field("txtStartDate")->text(), "03/01/2024");
    EXPECT_EQ(range.field("txtEndDate")->text(), "03/31/2024");
    EXPECT_EQ(range.form.windowTitle(), "Custom Date Range");
    EXPECT_FALSE(range.form.isCancelled()) << "the dialog starts not cancelled";
    test::SaveScreenshot(&range.form, QStringLiteral("frmCustomDateRange"));
}

struct OkCase {
    const char *name;
    QString start;   // digits typed into the start field
    QString end;     // digits typed into the end field
    QString message; // empty: accepted
    const char *focus;
};

void PrintTo(const OkCase &c, std::ostream *os) { *os << c.name; }

class CustomDateRangeOk : public ::testing::TestWithParam<OkCase>
{
};

TEST_P(CustomDateRangeOk, AcceptsOrRefusesWithTheFocusOnTheFieldToMend)
{
    const OkCase &c = GetParam();
    MessageRecorder messages;
    RangeForm range;
    range.type("txtStartDate", c.start);
    range.type("txtEndDate", c.end);
    range.button("cmdOK")->click();
    test::Settle();

    if (c.message.isEmpty()) {
        EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join('|').toStdString();
        EXPECT_FALSE(range.form.isVisible());
        EXPECT_FALSE(range.form.isCancelled());
        EXPECT_EQ(range.form.startDate(), QDate(2024, 5, 1));
        EXPECT_EQ(range.form.endDate(), QDate(2024, 5, 1));
        return;
    }
    EXPECT_EQ(messages.texts(), QStringList{c.message});
    ASSERT_EQ(messages.messages().size(), 1);
    EXPECT_EQ(messages.messages().first().icon, QMessageBox::Warning);
    EXPECT_TRUE(range.form.isVisible()) << "the dialog stays open";
    EXPECT_FALSE(range.form.startDate().isValid()) << "the dates are set only by a good OK";
    EXPECT_EQ(range.form.focusWidget(), range.field(c.focus));
}

const QString badStart = QStringLiteral("You must enter a valid start date.");
const QString endFirst = QStringLiteral("The end date must be the same or later than the start date.");

INSTANTIATE_TEST_SUITE_P(
    Dates, CustomDateRangeOk,
    ::testing::Values(OkCase{"EqualDates", "05012024", "05012024", {}, nullptr},
                      OkCase{"EndBeforeStart", "05022024", "05012024", endFirst, "txtEndDate"},
                      OkCase{"InvalidEndSaysStart", "05012024", "13452024", badStart, "txtEndDate"},
                      OkCase{"HalfTypedEnd", "05012024", "050120", badStart, "txtEndDate"},
                      OkCase{"EmptyStart", "", "05012024", badStart, "txtStartDate"},
                      OkCase{"NoSuchDay", "02302024", "05012024", badStart, "txtStartDate"}),
    [](const auto &info) { return std::string(info.param.name); });

struct CalendarCase {
    const char *name;
    std::function<void(DropDownCalendar *)> act;
    QString expected; // empty: today's date
};

void PrintTo(const CalendarCase &c, std::ostream *os) { *os << c.name; }

class CustomDateRangeCalendar : public ::testing::TestWithParam<CalendarCase>
{
};

TEST_P(CustomDateRangeCalendar, PutsTheConfirmedDateInTheField)
{
    const CalendarCase &c = GetParam();
    RangeForm range;
    bool opened = false;
    test::WhenPopup(QStringLiteral("dtStartDate"), [&](QWidget *popup) {
        opened = true;
        auto *calendar = qobject_cast<DropDownCalendar *>(popup);
        // It drops down at the field's left edge, directly below it (give or take the
        // platform's window frame).
        QLineEdit *field = range.field("txtStartDate");
        const QPoint offset = popup->pos() - field->mapToGlobal(QPoint(0, field->height()));
        EXPECT_LE(offset.manhattanLength(), 4) << offset.x() << "," << offset.y();
        EXPECT_EQ(calendar->calendar()->selectedDate(), QDate(2024, 3, 1));
        if (c.name == std::string("Screenshot"))
            test::SaveScreenshot(popup, QStringLiteral("frmCustomDateRange-calendar"));
        c.act(calendar);
    });
    range.button("cmdStartDate")->click();
    EXPECT_TRUE(opened);
    const QString expected =
        c.expected.isEmpty() ? QDate::currentDate().toString(QStringLiteral("MM/dd/yyyy")) : c.expected;
    EXPECT_EQ(range.field("txtStartDate")->text(), expected);
    EXPECT_EQ(range.form.focusWidget(), range.field("txtStartDate"));
}

INSTANTIATE_TEST_SUITE_P(
    Calendar, CustomDateRangeCalendar,
    ::testing::Values(
        CalendarCase{"NoneGivesToday",
                     [](DropDownCalendar *popup) { popup->findChild<QPushButton *>("cmdNone")->click(); },
                     {}},
        CalendarCase{"TodayButton",
                     [](DropDownCalendar *popup) { popup->findChild<QPushButton *>("cmdToday")->click(); },
                     {}},
        CalendarCase{"PickedDay",
                     [](DropDownCalendar *popup) {
                         popup->calendar()->setSelectedDate(QDate(2024, 3, 15));
                         QTest::keyClick(popup->calendar()->focusWidget(), Qt::Key_Return);
                     },
                     "03/15/2024"},
        CalendarCase{"EscapeChangesNothing",
                     [](DropDownCalendar *popup) { QTest::keyClick(popup, Qt::Key_Escape); },
                     "03/01/2024"},
        CalendarCase{"Screenshot", [](DropDownCalendar *popup) { popup->hide(); }, "03/01/2024"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(CustomDateRange, AltDownInTheFieldDropsTheCalendarDown)
{
    RangeForm range;
    bool opened = false;
    test::WhenPopup(QStringLiteral("dtEndDate"), [&](QWidget *popup) {
        opened = true;
        popup->hide();
    });
    QTest::keyClick(range.field("txtEndDate"), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(opened);
}

struct CloseCase {
    const char *name;
    std::function<void(RangeForm &)> close;
    bool cancelled;
};

void PrintTo(const CloseCase &c, std::ostream *os) { *os << c.name; }

class CustomDateRangeClose : public ::testing::TestWithParam<CloseCase>
{
};

TEST_P(CustomDateRangeClose, LeavesCancelledAsTheWayOfClosingSays)
{
    RangeForm range;
    GetParam().close(range);
    test::Settle();
    EXPECT_FALSE(range.form.isVisible());
    EXPECT_EQ(range.form.isCancelled(), GetParam().cancelled);
    EXPECT_FALSE(range.form.startDate().isValid());
    EXPECT_FALSE(range.form.endDate().isValid());
}

INSTANTIATE_TEST_SUITE_P(
    Close, CustomDateRangeClose,
    ::testing::Values(CloseCase{"CloseBox", [](RangeForm &r) { r.form.close(); }, false},
                      CloseCase{"CancelButton", [](RangeForm &r) { r.button("cmdCancel")->click(); }, true},
                      CloseCase{"Escape",
                                [](RangeForm &r) { QTest::keyClick(r.field("txtStartDate"), Qt::Key_Escape); },
                                true}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
} // namespace bravcpl5
