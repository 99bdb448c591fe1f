#include "forms/ModalForm.h"

#include "library/WindowPositions.h"

#include <QKeyEvent>
#include <QPushButton>

namespace bravcpl5 {

ModalForm::ModalForm(QWidget *parent, bool cancelledAtStart, Placement placement)
    : QDialog(parent), m_cancelled(cancelledAtStart), m_placement(placement)
{
    setSizeGripEnabled(true);
}

HostLink *ModalForm::owner() const { return m_owner.data(); }

QObject *ModalForm::host() const { return m_owner ? m_owner->sharedCodeLibrary() : nullptr; }

void ModalForm::setOwner(HostLink *owner) { m_owner = owner; }

void ModalForm::setVisible(bool visible)
{
    // The stored place is the frame's. Moved before its native window exists, the window
    // manager puts the frame there; moved later, before the frame is known, the client area
    // would land there instead, a caption's height lower on every opening. The form name
    // (set by the .ui) is the key of the stored place.
    if (visible && !m_shown && m_placement == Placement::Remembered)
        RestoreWindowPosition(objectName(), this, true);
    QDialog::setVisible(visible);
}

void ModalForm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_shown || event->spontaneous())
        return;
    m_shown = true;
    QMetaObject::invokeMethod(
        this,
        [this]() {
            QCoreApplication::processEvents();
            if (m_activated)
                return;
            m_activated = true;
            firstActivation();
        },
        Qt::QueuedConnection);
}

void ModalForm::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        if (auto *cancel = findChild<QPushButton *>(QStringLiteral("cmdCancel"))) {
            cancel->click();
            return;
        }
    }
    QDialog::keyPressEvent(event);
}

void ModalForm::done(int result)
{
    if (m_placement == Placement::Remembered && m_shown)
        SaveWindowPosition(objectName(), this);
    QDialog::done(result);
}

} // namespace bravcpl5
