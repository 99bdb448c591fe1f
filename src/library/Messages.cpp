#include "library/Messages.h"

#include <QApplication>
#include <QDir>
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

void ShowSaveFailure(const QString &file, const QString &why, QWidget *parent)
{
    ShowMessage(QStringLiteral("The changes could not be saved to the file '%1': %2.")
                    .arg(QDir::toNativeSeparators(file), why),
                QMessageBox::Warning, QMessageBox::Ok, parent);
}

void SetMessageHandler(MessageHandler h) { handler() = std::move(h); }

} // namespace bravcpl5
