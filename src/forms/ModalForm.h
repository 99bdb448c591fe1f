#pragma once

// What every dialog of the library has in common:
// - `Cancelled`, the result the opening member reads after the dialog has closed; each
//   dialog chooses its starting value, and so what closing by the caption's close box means;
// - Esc presses the dialog's `cmdCancel` button, while the close box only closes it;
// - a dialog that remembers its place restores it (size included) just before it is first
//   shown, while its native window does not exist yet, and saves it whenever it closes,
//   under its form name;
// - firstActivation() runs once, after the dialog has been shown and painted, so that
//   slow loading never delays its appearance.
// Dialogs are opened through ShowModalForm, which creates a fresh form per call.

#include "library/HostLink.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <type_traits>
#include <utility>

namespace bravcpl5 {

class ModalForm : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(bool Cancelled READ isCancelled)

public:
    bool isCancelled() const { return m_cancelled; }
    // The owner (the Library) that opened the dialog, and its host (null when either is missing).
    HostLink *owner() const;
    QObject *host() const;
    void setOwner(HostLink *owner);
    // True once firstActivation() has run.
    bool isActivated() const { return m_activated; }

protected:
    enum class Placement { Default, Remembered };
    ModalForm(QWidget *parent, bool cancelledAtStart, Placement placement);

    void setCancelled(bool cancelled) { m_cancelled = cancelled; }
    virtual void firstActivation() {}

    void setVisible(bool visible) override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void done(int result) override;

private:
    bool m_cancelled;
    bool m_activated = false;
    bool m_shown = false;
    Placement m_placement;
    QPointer<HostLink> m_owner;
};

// Creates a fresh `Form` (from `args`, then its parent) over the active dialog or window,
// lets `setUp` hand it its inputs and owner, runs it modally, lets `readBack` take its
// results, and returns the negation of its `Cancelled` flag. A `setUp` that returns false
// refuses: the form is never shown and the result is false.
template <typename Form, typename SetUp, typename ReadBack, typename... Args>
bool ShowModalForm(SetUp &&setUp, ReadBack &&readBack, Args &&...args)
{
    QWidget *over = QApplication::activeModalWidget();
    QPointer<Form> form = new Form(std::forward<Args>(args)...,
                                   over ? over : QApplication::activeWindow());
    if constexpr (std::is_same_v<std::invoke_result_t<SetUp, Form &>, bool>) {
        if (!setUp(*form)) {
            delete form.data();
            return false;
        }
    } else {
        setUp(*form);
    }
    form->exec();
    // The parent window may have taken the dialog with it while it was open.
    if (!form)
        return false;
    readBack(*form);
    const bool confirmed = !form->isCancelled();
    delete form.data();
    return confirmed;
}

template <typename Form, typename SetUp> bool ShowModalForm(SetUp &&setUp)
{
    return ShowModalForm<Form>(std::forward<SetUp>(setUp), [](Form &) {});
}

} // namespace bravcpl5
