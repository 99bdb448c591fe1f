#pragma once

// Every message the library shows a user goes through ShowMessage, with the
// application's name as the title. Tests (and hosts that show messages their own way)
// install a handler that receives the message and returns the answer instead.

#include <QMessageBox>
#include <QString>
#include <functional>

class QWidget;

namespace bravcpl5 {

struct Message {
    QString text;
    QMessageBox::Icon icon = QMessageBox::Warning;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
};

using MessageHandler = std::function<QMessageBox::StandardButton(const Message &)>;

QMessageBox::StandardButton ShowMessage(const QString &text,
                                        QMessageBox::Icon icon = QMessageBox::Warning,
                                        QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                        QWidget *parent = nullptr);

// Tells the user that `file` could not be saved, and why (the system's words). A dialog's OK
// still closes as it always did; it just never does so in silence.
void ShowSaveFailure(const QString &file, const QString &why, QWidget *parent = nullptr);

// Replaces how messages are shown; an empty handler restores the message box.
void SetMessageHandler(MessageHandler handler);

} // namespace bravcpl5
