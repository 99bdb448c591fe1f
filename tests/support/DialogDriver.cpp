#include "support/DialogDriver.h"

#include "support/TestOutput.h"

#include "forms/ModalForm.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace bravcpl5::test {

namespace {

bool ready(QWidget *widget, const QString &name)
{
    if (!widget || !widget->isVisible() || (!name.isEmpty() && widget->objectName() != name))
        return false;
    const auto *form = qobject_cast<ModalForm *>(widget);
    return !form || form->isActivated();
}

void whenReady(std::function<QWidget *()> find, const QString &name,
               std::function<void(QWidget *)> action, int timeoutMs)
{
    auto *timer = new QTimer(qApp);
    auto *clock = new QElapsedTimer;
    clock->start();
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, timer, [=]() {
        QWidget *widget = find();
        if (ready(widget, name)) {
            timer->stop();
            delete clock;
            timer->deleteLater();
            action(widget);
        } else if (clock->elapsed() > timeoutMs) {
            timer->stop();
            delete clock;
            timer->deleteLater();
            ADD_FAILURE() << "no window named " << name.toStdString() << " appeared";
            if (QWidget *stuck = find())
                stuck->close();
        }
    });
    timer->start();
}

QListView *openList()
{
    QWidget *popup = QApplication::activePopupWidget();
    return popup ? popup->findChild<QListView *>() : nullptr;
}

} // namespace

void WhenModal(const QString &name, std::function<void(QWidget *)> action, int timeoutMs)
{
    whenReady([]() { return QApplication::activeModalWidget(); }, name, std::move(action),
              timeoutMs);
}

void WhenPopup(const QString &name, std::function<void(QWidget *)> action, int timeoutMs)
{
    whenReady([]() { return QApplication::activePopupWidget(); }, name, std::move(action),
              timeoutMs);
}

void Settle(int ms)
{
    QElapsedTimer clock;
    clock.start();
    do {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    } while (clock.elapsed() < ms);
}

void TypeIntoCell(QAbstractItemView *grid, int row, int column, const QString &text)
{
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(row, column));
    QTest::keyClick(grid, Qt::Key_F2);
    Settle();
    auto *editor = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr) << "no text editor opened in row " << row;
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
}

QStringList OpenChoices(QAbstractItemView *grid, int row, int column)
{
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(row, column));
    QTest::keyClick(grid, Qt::Key_F2);
    Settle();
    QStringList choices;
    if (QListView *list = openList()) {
        for (int i = 0; i < list->model()->rowCount(); ++i)
            choices.append(list->model()->index(i, 0).data().toString());
    }
    return choices;
}

bool PickChoice(const QString &choice)
{
    QListView *list = openList();
    if (!list)
        return false;
    const QModelIndexList found = list->model()->match(
        list->model()->index(0, 0), Qt::DisplayRole, choice, 1,
        Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (found.isEmpty())
        return false;
    // As a keyboard user does: move to the entry, then Enter.
    list->setCurrentIndex(found.first());
    QTest::keyClick(list, Qt::Key_Return);
    Settle();
    return true;
}

QList<std::pair<const char *, std::function<void(QWidget *)>>> WaysToCancel(const QString &escapeIn)
{
    return {
        {"Cancel",
         [](QWidget *d) { d->findChild<QAbstractButton *>(QStringLiteral("cmdCancel"))->click(); }},
        {"CloseBox", [](QWidget *d) { d->close(); }},
        {"Escape", [escapeIn](QWidget *d) {
             QTest::keyClick(d->findChild<QWidget *>(escapeIn), Qt::Key_Escape);
         }}};
}

QString SaveScreenshot(QWidget *widget, const QString &name)
{
    const QString path = testOutputPath(name + QStringLiteral(".png"));
    widget->grab().save(path);
    return path;
}

} // namespace bravcpl5::test
