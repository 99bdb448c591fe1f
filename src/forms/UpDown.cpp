#include "forms/UpDown.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>

namespace bravcpl5 {

UpDown::UpDown(QWidget *parent) : QAbstractSpinBox(parent)
{
    // Only the arrows show; the field beside them holds the text.
    lineEdit()->hide();
    setFocusPolicy(Qt::NoFocus);
    setButtonSymbols(UpDownArrows);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void UpDown::bind(QLineEdit *field, std::function<void(int)> step)
{
    m_step = std::move(step);
    field->installEventFilter(this);
    setAccessibleName(field->accessibleName());
}

void UpDown::stepBy(int steps)
{
    if (m_step && steps != 0)
        m_step(steps);
}

QSize UpDown::sizeHint() const
{
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QRect up = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp,
                                             this);
    const int height = QAbstractSpinBox::sizeHint().height();
    return QSize(qMax(up.width(), 16) + 2, height);
}

bool UpDown::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->modifiers() == Qt::NoModifier
            && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
            stepBy(key->key() == Qt::Key_Up ? 1 : -1);
            return true;
        }
    } else if (event->type() == QEvent::Wheel) {
        const int delta = static_cast<QWheelEvent *>(event)->angleDelta().y();
        if (delta != 0) {
            stepBy(delta > 0 ? 1 : -1);
            return true;
        }
    }
    return QAbstractSpinBox::eventFilter(watched, event);
}

} // namespace bravcpl5
