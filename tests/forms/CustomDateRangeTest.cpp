// The custom date range dialog, driven by its controls: typed dates through the mask, the
// three refusals of OK and where they leave the focus, the drop-down calendar, and what
// Cancel and the close box leave in Cancelled.

#include "forms/DropDownCalendar.h"
#include "forms/frmCustomDateRange.h"
#include "support/DialogDriver.h"
#include "support/MessageRecorder.h"

#include <QApplication>
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
    QPushButton *button(const char *name)
    {
        return form.findChild<QPushButton *>(QLatin1String(name));
    }
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

// It opens on the given dates, not cancelled; Alt+Down in a field drops its calendar down.
TEST(CustomDateRange, ShowsTheGivenDatesAndAltDownDropsTheCalendar)
{
    RangeForm range;
    EXPECT_EQ(range.field("txtStartDate")->text(), "03/01/2024");
    EXPECT_EQ(range.field("txtEndDate")->text(), "03/31/2024");
    EXPECT_EQ(range.form.windowTitle(), "Custom Date Range");
    EXPECT_FALSE(range.form.isCancelled());
    test::SaveScreenshot(&range.form, QStringLiteral("frmCustomDateRange"));
    bool opened = false;
    test::WhenPopup(QStringLiteral("dtEndDate"), [&](QWidget *popup) {
        opened = true;
        popup->hide();
    });
    QTest::keyClick(range.field("txtEndDate"), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(opened);
}

// Window managers write the caption in bold beside the window's icon and its minimize,
// maximize and close buttons (each about as wide as the caption is high), and on X11 add the
// application's name to it; the dialog opens wide enough for all of that, at small and large
// fonts and with a long application name alike.
TEST(CustomDateRange, OpensWideEnoughForItsWholeCaption)
{
    const QFont font = QApplication::font();
    const QString application = QGuiApplication::applicationDisplayName();
    const std::tuple<const char *, QFont, QString> cases[] = {
        {"TestFont", font, application},
        {"SmallSans", QFont(QStringLiteral("Liberation Sans"), 8), application},
        {"LargeSerif", QFont(QStringLiteral("DejaVu Serif"), 16), application},
        {"LongApplicationName", font,
         QStringLiteral("Sunbridge Window Fashions Order Entry and Reports")},
    };
    for (const auto &[name, caseFont, caseApplication] : cases) {
        SCOPED_TRACE(name);
        QApplication::setFont(caseFont);
        QGuiApplication::setApplicationDisplayName(caseApplication);
        {
            RangeForm range;
            QFont bold = range.form.font();
            bold.setBold(true);
            const QFontMetrics caption(bold);
            const int wanted = caption.horizontalAdvance(range.form.windowTitle()
                                                         + QStringLiteral(" \u2014 ")
                                                         + caseApplication)
                               + 4 * caption.height();
            EXPECT_GE(range.form.width(), wanted);
            if (name == std::string("LargeSerif"))
                test::SaveScreenshot(&range.form, QStringLiteral("frmCustomDateRange-large-font"));
        }
        QApplication::setFont(font);
        QGuiApplication::setApplicationDisplayName(application);
    }
}

// Equal dates are accepted; each refusal warns and leaves the focus on the field to mend.
TEST(CustomDateRange, OkAcceptsOrRefusesWithTheFocusOnTheFieldToMend)
{
    const QString badStart = QStringLiteral("You must enter a valid start date.");
    const QString endFirst = QStringLiteral(
        "The end date must be the same or later than the start date.");
    const std::tuple<const char *, QString, QString, QString, const char *> cases[] = {
        // name, digits typed into start and end, the message (none: accepted), focus
        {"EqualDates", "05012024", "05012024", {}, nullptr},
        {"EndBeforeStart", "05022024", "05012024", endFirst, "txtEndDate"},
        {"InvalidEndSaysStart", "05012024", "13452024", badStart, "txtEndDate"},
        {"HalfTypedEnd", "05012024", "050120", badStart, "txtEndDate"},
        {"EmptyStart", "", "05012024", badStart, "txtStartDate"},
        {"NoSuchDay", "02302024", "05012024", badStart, "txtStartDate"}};
    for (const auto &[name, start, end, message, focus] : cases) {
        SCOPED_TRACE(name);
        MessageRecorder messages;
        RangeForm range;
        range.type("txtStartDate", start);
        range.type("txtEndDate", end);
        range.button("cmdOK")->click();
        test::Settle();
        if (message.isEmpty()) {
            EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join('|').toStdString();
            EXPECT_FALSE(range.form.isVisible());
            EXPECT_FALSE(range.form.isCancelled());
            EXPECT_EQ(range.form.startDate(), QDate(2024, 5, 1));
            EXPECT_EQ(range.form.endDate(), QDate(2024, 5, 1));
            continue;
        }
        ASSERT_EQ(messages.texts(), QStringList{message});
        EXPECT_EQ(messages.messages().first().icon, QMessageBox::Warning);
        EXPECT_TRUE(range.form.isVisible()) << "the dialog stays open";
        EXPECT_FALSE(range.form.startDate().isValid()) << "the dates are set only by a good OK";
        EXPECT_EQ(range.form.focusWidget(), range.field(focus));
    }
}

TEST(CustomDateRange, TheCalendarPutsTheConfirmedDateInTheField)
{
    const QString today = QDate::currentDate().toString(QStringLiteral("MM/dd/yyyy"));
    const std::tuple<const char *, std::function<void(DropDownCalendar *)>, QString> cases[] = {
        {"NoneGivesToday",
         [](DropDownCalendar *popup) { popup->findChild<QPushButton *>("cmdNone")->click(); },
         today},
        {"TodayButton",
         [](DropDownCalendar *popup) { popup->findChild<QPushButton *>("cmdToday")->click(); },
         today},
        {"PickedDay",
         [](DropDownCalendar *popup) {
             popup->calendar()->setSelectedDate(QDate(2024, 3, 15));
             QTest::keyClick(popup->calendar()->focusWidget(), Qt::Key_Return);
         },
         "03/15/2024"},
        {"EscapeChangesNothing",
         [](DropDownCalendar *popup) { QTest::keyClick(popup, Qt::Key_Escape); }, "03/01/2024"},
        {"Screenshot", [](DropDownCalendar *popup) { popup->hide(); }, "03/01/2024"}};
    for (const auto &testCase : cases) {
        // Named, not bound, so that the lambda below may use them.
        const auto &name = std::get<0>(testCase);
        const auto &act = std::get<1>(testCase);
        const auto &expected = std::get<2>(testCase);
        SCOPED_TRACE(name);
        RangeForm range;
        bool opened = false;
        test::WhenPopup(QStringLiteral("dtStartDate"), [&](QWidget *popup) {
            opened = true;
            // It drops down at the field's left edge, directly below it: its own area, not
            // the frame the offscreen platform gives every window, goes there.
            QLineEdit *field = range.field("txtStartDate");
            const QPoint offset = popup->pos() - field->mapToGlobal(QPoint(0, field->height()));
            EXPECT_EQ(offset, QPoint()) << offset.x() << "," << offset.y();
            auto *calendar = qobject_cast<DropDownCalendar *>(popup);
            EXPECT_EQ(calendar->calendar()->selectedDate(), QDate(2024, 3, 1));
            if (name == std::string("Screenshot"))
                test::SaveScreenshot(popup, QStringLiteral("frmCustomDateRange-calendar"));
            act(calendar);
        });
        range.button("cmdStartDate")->click();
        EXPECT_TRUE(opened);
        EXPECT_EQ(range.field("txtStartDate")->text(), expected);
        EXPECT_EQ(range.form.focusWidget(), range.field("txtStartDate"));
    }
}

// The close box leaves Cancelled False; Cancel and Esc set it. No way of closing sets dates.
TEST(CustomDateRange, ClosingLeavesCancelledAsTheWayOfClosingSays)
{
    const std::tuple<const char *, std::function<void(RangeForm &)>, bool> cases[] = {
        {"CloseBox", [](RangeForm &r) { r.form.close(); }, false},
        {"CancelButton", [](RangeForm &r) { r.button("cmdCancel")->click(); }, true},
        {"Escape", [](RangeForm &r) { QTest::keyClick(r.field("txtStartDate"), Qt::Key_Escape); },
         true}};
    for (const auto &[name, close, cancelled] : cases) {
        SCOPED_TRACE(name);
        RangeForm range;
        close(range);
        test::Settle();
        EXPECT_FALSE(range.form.isVisible());
        EXPECT_EQ(range.form.isCancelled(), cancelled);
        EXPECT_FALSE(range.form.startDate().isValid());
        EXPECT_FALSE(range.form.endDate().isValid());
    }
}

} // namespace
} // namespace bravcpl5
