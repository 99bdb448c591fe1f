#include "forms/frmCustomDateRange.h"

#include "ui_frmCustomDateRange.h"

#include "forms/CaptionWidth.h"
#include "forms/DateText.h"
#include "forms/DropDownCalendar.h"
#include "forms/Glyphs.h"
#include "library/Messages.h"

#include <QKeyEvent>
#include <QTimer>

namespace bravcpl5 {

frmCustomDateRange::frmCustomDateRange(QWidget *parent)
    : ModalForm(parent, false, Placement::Default), ui(std::make_unique<Ui::frmCustomDateRange>())
{
    ui->setupUi(this);
    const QString mask = datetext::inputMask();
    const struct {
        QLineEdit *field;
        QPushButton *button;
        DropDownCalendar *calendar;
    } dates[] = {{ui->txtStartDate, ui->cmdStartDate, ui->dtStartDate},
                 {ui->txtEndDate, ui->cmdEndDate, ui->dtEndDate}};
    for (const auto &date : dates) {
        date.field->setInputMask(mask);
        date.field->installEventFilter(this);
        date.button->setIcon(CalendarGlyph());
        connect(date.button, &QPushButton::clicked, this,
                [this, date]() { pickDate(date.field, date.calendar); });
    }
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmCustomDateRange::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmCustomDateRange::cmdCancel_Click);
    // Wide enough for its caption, whose window manager would cut the title short
    // otherwise; only the width may grow.
    setMinimumWidth(qMax(sizeHint().width(), CaptionWidth(this)));
    setMaximumHeight(sizeHint().height());
}

frmCustomDateRange::~frmCustomDateRange() = default;

void frmCustomDateRange::Initialize(const QDate &StartDate, const QDate &EndDate, HostLink *owner)
{
    setOwner(owner);
    ui->txtStartDate->setText(datetext::toText(StartDate));
    ui->txtEndDate->setText(datetext::toText(EndDate));
}

bool frmCustomDateRange::eventFilter(QObject *watched, QEvent *event)
{
    auto *field = qobject_cast<QLineEdit *>(watched);
    if (field && event->type() == QEvent::FocusIn) {
        // Entering a date field selects it, so that typing replaces the date; the click
        // that gave the focus would otherwise undo the selection at once.
        QTimer::singleShot(0, field, &QLineEdit::selectAll);
    } else if (field && event->type() == QEvent::KeyPress) {
        // Alt+Down or F4 drops the calendar down, as on a date combo box.
        const auto *key = static_cast<QKeyEvent *>(event);
        if ((key->key() == Qt::Key_Down && key->modifiers() == Qt::AltModifier)
            || (key->key() == Qt::Key_F4 && key->modifiers() == Qt::NoModifier)) {
            (field == ui->txtStartDate ? ui->cmdStartDate : ui->cmdEndDate)->click();
            return true;
        }
    }
    return ModalForm::eventFilter(watched, event);
}

void frmCustomDateRange::pickDate(QLineEdit *field, DropDownCalendar *calendar)
{
    const std::optional<QDate> picked = calendar->dropDown(field, datetext::fromField(field));
    if (picked)
        field->setText(datetext::toText(picked->isValid() ? *picked : QDate::currentDate()));
    field->setFocus(Qt::PopupFocusReason);
}

void frmCustomDateRange::refuse(const QString &message, QLineEdit *field)
{
    ShowMessage(message, QMessageBox::Warning, QMessageBox::Ok, this);
    field->setFocus(Qt::OtherFocusReason);
}

void frmCustomDateRange::cmdOK_Click()
{
    const QDate start = datetext::fromField(ui->txtStartDate);
    if (!start.isValid()) {
        refuse(tr("You must enter a valid start date."), ui->txtStartDate);
        return;
    }
    const QDate end = datetext::fromField(ui->txtEndDate);
    if (!end.isValid()) {
        // The same wording as for the start date, on purpose.
        refuse(tr("You must enter a valid start date."), ui->txtEndDate);
        return;
    }
    if (end < start) {
        refuse(tr("The end date must be the same or later than the start date."), ui->txtEndDate);
        return;
    }
    m_startDate = start;
    m_endDate = end;
    setCancelled(false);
    accept();
}

void frmCustomDateRange::cmdCancel_Click()
{
    setCancelled(true);
    reject();
}

} // namespace bravcpl5
