#pragma once

// The small up/down arrows beside a numeric field (`ud...`). They hold no value of their
// own: stepUp() and stepDown(), as on a spin box, ask the dialog to step the field, and
// so do the Up and Down keys and the mouse wheel over the field the arrows are bound to.

#include <QAbstractSpinBox>
#include <functional>

class QLineEdit;

namespace bravcpl5 {

class UpDown : public QAbstractSpinBox
{
    Q_OBJECT

public:
    explicit UpDown(QWidget *parent = nullptr);

    // `step(+1)` for up, `step(-1)` for down; `field` gets the keys and the wheel.
    void bind(QLineEdit *field, std::function<void(int)> step);

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void(int)> m_step;
};

} // namespace bravcpl5
