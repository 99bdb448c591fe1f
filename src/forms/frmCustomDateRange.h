#pragma once

// The custom date range dialog: the user types or picks a start and an end date. The
// caller reads Cancelled, StartDate and EndDate after it closes. Cancelled starts False,
// so closing by the close box reads as "not cancelled" with the dates unset; callers
// must cope with that.

#include "forms/ModalForm.h"

#include <QDate>
#include <memory>

namespace Ui {
class frmCustomDateRange;
}
class QLineEdit;

namespace bravcpl5 {

class DropDownCalendar;

class frmCustomDateRange : public ModalForm
{
    Q_OBJECT
    Q_PROPERTY(QDate StartDate READ startDate)
    Q_PROPERTY(QDate EndDate READ endDate)

public:
    explicit frmCustomDateRange(QWidget *parent = nullptr);
    ~frmCustomDateRange() override;

    // Keeps the owner and shows the two dates in the fields.
    void Initialize(const QDate &StartDate, const QDate &EndDate, HostLink *owner);

    // Set only by a successful OK.
    QDate startDate() const { return m_startDate; }
    QDate endDate() const { return m_endDate; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void pickDate(QLineEdit *field, DropDownCalendar *calendar);
    void cmdOK_Click();
    void cmdCancel_Click();
    void refuse(const QString &message, QLineEdit *field);

    std::unique_ptr<Ui::frmCustomDateRange> ui;
    QDate m_startDate;
    QDate m_endDate;
};

} // namespace bravcpl5
