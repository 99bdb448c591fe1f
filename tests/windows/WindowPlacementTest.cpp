// Dialogs under a real window manager (a private Xvfb with openbox): the remembered place is
// the window's frame, so opening and closing a dialog again and again leaves both the dialog
// and its record where they were; and the calendar drops down directly under its field the
// first time as every time after. Positions are read back from the X server by xwininfo,
// not only from Qt.

#include "forms/DropDownCalendar.h"
#include "forms/frmCustomDateRange.h"
#include "library/Library.h"
#include "library/Registry.h"
#include "library/Units.h"
#include "support/DialogDriver.h"
#include "support/TestHost.h"
#include "support/TestOutput.h"
#include "support/XvfbSession.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

const QByteArray configuration = R"(<?xml version="1.0"?>
<Report>
  <Fields>
    <OrderNumber label="Order" width="1"/>
    <Vendor label="Vendor" width="2.5"/>
  </Fields>
  <Filters>
    <OrderDate label="Order date" type="daterange" value="Last Week"/>
    <Sidemark label="Sidemark" value="left"/>
  </Filters>
</Report>
)";

const QString positionsKey = QString::fromLatin1(WindowPositionsKey);

QString storedRecord(const QString &form)
{
    return GetRegValue(HKEY_CURRENT_USER_HANDLE, positionsKey, form, QString());
}

// The frame as the X server has it: the client area less the extents the manager set.
QRect x11Frame(QWidget *window)
{
    const test::X11WindowFacts facts = test::QueryX11Window(window->winId());
    return QRect(facts.x - facts.frameLeft, facts.y - facts.frameTop,
                 facts.width + facts.frameLeft + facts.frameRight,
                 facts.height + facts.frameTop + facts.frameBottom);
}

// Waits until the window manager has framed `window` and Qt has the same frame as the X
// server, so that what is measured is where the window settled, not where it was first asked
// to go, and what the test then does starts from a frame Qt knows.
void waitUntilFramed(QWidget *window)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 5000) {
        const test::X11WindowFacts facts = test::QueryX11Window(window->winId());
        if (facts.frameTop > 0 && window->windowHandle()->frameGeometry() == x11Frame(window))
            break;
        test::Settle(20);
    }
    EXPECT_GT(test::QueryX11Window(window->winId()).frameTop, 0)
        << "openbox gives every dialog a caption";
    test::Settle(100);
    EXPECT_EQ(window->windowHandle()->frameGeometry(), x11Frame(window))
        << "Qt and the X server agree on the frame";
}

// The record's four values, in twips, for a frame in pixels at the screen's logical dpi.
QString recordOf(const QRect &frame, int dpiX, int dpiY)
{
    const auto twips = [](int pixels, int dpi) {
        return QString::number(qRound(pixels * TwipsPerInch / dpi));
    };
    return QStringList{twips(frame.y(), dpiY), twips(frame.x(), dpiX), twips(frame.width(), dpiX),
                       twips(frame.height(), dpiY)}
        .join(QLatin1Char(','));
}

// The whole screen, frames and all, for a person to look at.
void saveScreen(const QString &name)
{
    QGuiApplication::primaryScreen()->grabWindow(0).save(
        test::testOutputPath(name + QStringLiteral(".png")));
}

struct RememberedDialog {
    const char *form;
    bool (Library::*show)(const QString &);
};

const RememberedDialog rememberedDialogs[] = {
    {"frmGeneralReportFields", &Library::ShowGeneralReportFields},
    {"frmGeneralReportFilters", &Library::ShowGeneralReportFilters},
};

struct RealWindows : ::testing::Test {
    void SetUp() override
    {
        SKIP_WITHOUT_X11_SESSION();
        ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb"));
        library.Initialize(&host);
        file = host.writeSystemFile(QStringLiteral("Orders.rpx"), configuration);
    }
    void TearDown() override { library.PreTerminate(); }

    // Opens `dialog` through the library, lets `act` look at it once it is framed, and
    // closes it with Cancel.
    void openAndClose(const RememberedDialog &dialog, const std::function<void(QWidget *)> &act)
    {
        bool opened = false;
        test::WhenModal(QLatin1String(dialog.form), [&](QWidget *window) {
            opened = true;
            waitUntilFramed(window);
            act(window);
            window->findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
        });
        (library.*dialog.show)(file);
        EXPECT_TRUE(opened);
    }

    test::TestHost host;
    Library library;
    QString file;
};

// The frame lands exactly where the record puts it, at exactly its size, and five rounds of
// opening and closing leave the record and the frame as they were.
TEST_F(RealWindows, ARememberedDialogStaysPutOverFiveOpenings)
{
    const QRect wanted(200, 150, 640, 420); // the frame, in pixels
    for (const RememberedDialog &dialog : rememberedDialogs) {
        SCOPED_TRACE(dialog.form);
        const QString form = QLatin1String(dialog.form);
        QString record;
        for (int round = 1; round <= 5; ++round) {
            SCOPED_TRACE(round);
            openAndClose(dialog, [&](QWidget *window) {
                if (record.isEmpty()) {
                    // First round: place the record for this screen's dpi, then reopen below.
                    record = recordOf(wanted, window->logicalDpiX(), window->logicalDpiY());
                    return;
                }
                EXPECT_EQ(x11Frame(window), wanted);
                EXPECT_EQ(window->windowHandle()->frameGeometry(), wanted);
                if (round == 2)
                    saveScreen(form + QStringLiteral("-framed"));
            });
            if (round == 1) {
                SetRegValue(HKEY_CURRENT_USER_HANDLE, positionsKey, form, record);
                continue;
            }
            EXPECT_EQ(storedRecord(form).toStdString(), record.toStdString());
        }
    }
}

// Where the frame is left (here moved and resized once the window manager has framed the
// dialog, and checked with the X server) is what the record keeps and where the next opening
// puts it, off the screen's edges too.
TEST_F(RealWindows, TheRecordIsWhereTheFrameWasLeft)
{
    const RememberedDialog &dialog = rememberedDialogs[0];
    const QString form = QLatin1String(dialog.form);
    const QRect cases[] = {QRect(0, 0, 500, 360), QRect(333, 211, 700, 480),
                           QRect(-40, -30, 520, 400)};
    for (const QRect &frame : cases) {
        SCOPED_TRACE(QStringLiteral("%1,%2 %3x%4")
                         .arg(frame.x())
                         .arg(frame.y())
                         .arg(frame.width())
                         .arg(frame.height())
                         .toStdString());
        QString expected;
        openAndClose(dialog, [&](QWidget *window) {
            window->setGeometry(frame - window->windowHandle()->frameMargins());
            (void)QTest::qWaitFor([&]() { return x11Frame(window) == frame; }, 3000);
            EXPECT_EQ(x11Frame(window), frame);
            expected = recordOf(frame, window->logicalDpiX(), window->logicalDpiY());
        });
        EXPECT_EQ(storedRecord(form).toStdString(), expected.toStdString());
        openAndClose(dialog, [&](QWidget *window) { EXPECT_EQ(x11Frame(window), frame); });
        EXPECT_EQ(storedRecord(form).toStdString(), expected.toStdString());
    }
}

// The calendar's top left corner is the field's bottom left one, on the first drop-down of a
// freshly opened dialog as on the second, for both date fields; the dialog runs modally, as
// the report filters dialog opens it.
TEST_F(RealWindows, TheCalendarDropsDownDirectlyUnderItsField)
{
    const std::tuple<const char *, const char *, const char *> fields[] = {
        {"cmdStartDate", "txtStartDate", "dtStartDate"}, {"cmdEndDate", "txtEndDate", "dtEndDate"}};
    for (const auto &[buttonBinding, fieldBinding, popupBinding] : fields) {
        // Plain names, which the lambdas below may take.
        const char *button = buttonBinding, *fieldName = fieldBinding, *popupName = popupBinding;
        SCOPED_TRACE(fieldName);
        frmCustomDateRange form;
        form.Initialize(QDate(2024, 3, 1), QDate(2024, 3, 31), nullptr);
        test::WhenModal(QStringLiteral("frmCustomDateRange"), [&](QWidget *) {
            // As a user does: the button is pressed once the dialog is on the screen, where
            // the window manager put it (Qt learns that place a moment after the dialog
            // appears, and a pop-up placed earlier would go by the old one).
            waitUntilFramed(&form);
            auto *field = form.findChild<QLineEdit *>(QLatin1String(fieldName));
            for (int drop = 1; drop <= 2; ++drop) {
                SCOPED_TRACE(drop);
                QPoint below;
                QRect placed, x11Placed;
                test::WhenPopup(QLatin1String(popupName), [&](QWidget *popup) {
                    EXPECT_TRUE(QTest::qWaitForWindowExposed(popup));
                    test::Settle(100);
                    below = field->mapToGlobal(QPoint(0, field->height()));
                    placed = popup->geometry();
                    const test::X11WindowFacts facts = test::QueryX11Window(popup->winId());
                    x11Placed = QRect(facts.x, facts.y, facts.width, facts.height);
                    if (drop == 1)
                        saveScreen(QStringLiteral("frmCustomDateRange-dropdown"));
                    popup->hide();
                });
                form.findChild<QPushButton *>(QLatin1String(button))->click();
                // The field as the X server has it: the dialog's client area plus the field's
                // offset.
                const test::X11WindowFacts dialog = test::QueryX11Window(form.winId());
                const QPoint x11Below = QPoint(dialog.x, dialog.y)
                                        + field->mapTo(&form, QPoint(0, field->height()));
                EXPECT_EQ(x11Placed.topLeft(), x11Below);
                EXPECT_EQ(placed.topLeft(), below);
                EXPECT_EQ(placed.size(), x11Placed.size());
            }
            form.findChild<QPushButton *>(QStringLiteral("cmdCancel"))->click();
        });
        form.exec();
    }
}

} // namespace
} // namespace bravcpl5
