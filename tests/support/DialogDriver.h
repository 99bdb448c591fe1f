#pragma once

// Driving the library's modal dialogs from a test. A modal dialog blocks the call that
// opens it, so the test says beforehand what to do once the dialog is up; the action runs
// inside the dialog's own event loop.
//
//   WhenModal("frmGeneralReportFields", [](QWidget *dialog) { ... click cmdOK ... });
//   EXPECT_TRUE(library.ShowGeneralReportFields(file));

#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>
#include <utility>

class QAbstractItemView;

namespace bravcpl5::test {

// The child of `dialog` named `name`; a missing one fails the test.
template <typename T> T *child(QWidget *dialog, const char *name)
{
    T *found = dialog->findChild<T *>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

// Runs `action` once a modal window named `name` is the active modal widget and has
// finished its first activation. Fails the test (and closes whatever is modal) when it
// does not appear within `timeoutMs`.
void WhenModal(const QString &name, std::function<void(QWidget *)> action, int timeoutMs = 5000);

// The same for the open popup (a drop-down list or calendar) named `name`, or any popup
// when `name` is empty.
void WhenPopup(const QString &name, std::function<void(QWidget *)> action, int timeoutMs = 5000);

// Lets posted events, timers and deferred deletes run for `ms` milliseconds.
void Settle(int ms = 20);

// Edits cell (row, column) of a report grid: F2 opens its editor; text is typed (replacing
// the old text) and confirmed with Enter.
void TypeIntoCell(QAbstractItemView *grid, int row, int column, const QString &text);
// Opens the drop-down editor of cell (row, column) and returns the choices it offers,
// leaving the list open.
QStringList OpenChoices(QAbstractItemView *grid, int row, int column);
// In the open drop-down list, moves to the entry `choice` and presses Enter. False when there is no
// such entry.
bool PickChoice(const QString &choice);

// The ways of leaving a dialog without OK, each named: its "cmdCancel" button, the close
// box, and Esc pressed in its child named `escapeIn`.
QList<std::pair<const char *, std::function<void(QWidget *)>>> WaysToCancel(
    const QString &escapeIn);

// Saves a picture of `widget` as <name>.png in the test output folder (support/TestOutput.h);
// returns the file's path.
QString SaveScreenshot(QWidget *widget, const QString &name);

} // namespace bravcpl5::test
