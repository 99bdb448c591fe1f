#pragma once

// A month calendar that drops down below a date field, with a "None" and a "Today" button.
// Picking a day (click, or Enter on it) or pressing "Today" confirms that date; "None"
// confirms without a date; Esc or a click elsewhere dismisses it.

#include <QDate>
#include <QFrame>
#include <optional>

class QCalendarWidget;
class QEventLoop;

namespace bravcpl5 {

class DropDownCalendar : public QFrame
{
    Q_OBJECT

public:
    explicit DropDownCalendar(QWidget *parent = nullptr);

    // Shows the calendar under `field`, on `date` when it is valid, and waits for the user.
    // nullopt when dismissed; an invalid date when confirmed with "None".
    std::optional<QDate> dropDown(QWidget *field, const QDate &date);

    QCalendarWidget *calendar() const { return m_calendar; }

protected:
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void confirm(const QDate &date);

    QCalendarWidget *m_calendar;
    QEventLoop *m_loop = nullptr;
    std::optional<QDate> m_result;
};

} // namespace bravcpl5
