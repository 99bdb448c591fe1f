#include "forms/DropDownCalendar.h"

#include <QCalendarWidget>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace bravcpl5 {

DropDownCalendar::DropDownCalendar(QWidget *parent)
    : QFrame(parent, Qt::Popup), m_calendar(new QCalendarWidget(this))
{
    setFrameShape(QFrame::StyledPanel);
    m_calendar->setObjectName(QStringLiteral("calendar"));
    m_calendar->setGridVisible(false);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);

    auto *none = new QPushButton(tr("None"), this);
    none->setObjectName(QStringLiteral("cmdNone"));
    auto *today = new QPushButton(tr("Today"), this);
    today->setObjectName(QStringLiteral("cmdToday"));
    for (QPushButton *button : {none, today})
        button->setAutoDefault(false);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(today);
    buttons->addStretch();
    buttons->addWidget(none);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_calendar);
    layout->addLayout(buttons);

    connect(m_calendar, &QCalendarWidget::clicked, this, &DropDownCalendar::confirm);
    connect(m_calendar, &QCalendarWidget::activated, this, &DropDownCalendar::confirm);
    connect(today, &QPushButton::clicked, this, [this]() { confirm(QDate::currentDate()); });
    connect(none, &QPushButton::clicked, this, [this]() { confirm(QDate()); });
}

std::optional<QDate> DropDownCalendar::dropDown(QWidget *field, const QDate &date)
{
    if (date.isValid()) {
        m_calendar->setSelectedDate(date);
        m_calendar->setCurrentPage(date.year(), date.month());
    }
    adjustSize();
    // The native window first, and then its own area (not a frame, which offscreen gives even
    // a pop-up) goes under the field: a window moved before its native window exists is
    // placed by a frame position the platform resolves only later.
    winId();
    // Left edge on the field's, top just under it; kept on the screen when it would not fit.
    QPoint place = field->mapToGlobal(QPoint(0, field->height()));
    if (const QScreen *screen = field->screen()) {
        const QRect available = screen->availableGeometry();
        if (place.y() + height() > available.bottom())
            place.setY(field->mapToGlobal(QPoint(0, 0)).y() - height());
        place.setX(qBound(available.left(), place.x(),
                          qMax(available.left(), available.right() - width())));
    }
    setGeometry(QRect(place, size()));

    m_result.reset();
    QEventLoop loop;
    m_loop = &loop;
    show();
    m_calendar->setFocus(Qt::PopupFocusReason);
    if (isVisible())
        loop.exec();
    m_loop = nullptr;
    return m_result;
}

void DropDownCalendar::confirm(const QDate &date)
{
    m_result = date;
    hide();
}

void DropDownCalendar::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    if (m_loop)
        m_loop->quit();
}

void DropDownCalendar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QFrame::keyPressEvent(event);
}

} // namespace bravcpl5
