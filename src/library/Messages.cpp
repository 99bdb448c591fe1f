#include "library/Messages.h"

#include <QApplication>
#include <QWidget>

namespace bravcpl5 {

namespace {
MessageHandler &handler()
{
    static MessageHandler h;
    return h;
}
} // namespace

QMessageBox::StandardButton ShowMessage(const QString &text, QMessageBox::Icon icon,
                                        QMessageBox::StandardButtons buttons, QWidget *parent)
{
    if (handler())
        return handler()(Message{text, icon, buttons});
    QMessageBox box(icon, QApplication::applicationDisplayName(), text, buttons,
                    parent ? parent : QApplication::activeWindow());
    return QMessageBox::StandardButton(box.exec());
}

void SetMessageHandler(MessageHandler h) { handler() = std::move(h); }

} // namespace bravcpl5
