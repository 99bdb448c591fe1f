#pragma once

// For developers: what the library's objects hold (the host, the services and their
// owner, the folders, the registry file, the published documents) and the calls the
// sample host made with their answers.

#include <QDialog>

class QPlainTextEdit;

class DiagnosticsWindow : public QDialog
{
    Q_OBJECT

public:
    DiagnosticsWindow(QObject *library, QWidget *parent);

    void log(const QString &line);
    // Shows the window with the state read afresh.
    void showUpdated();

private:
    QString state() const;

    QObject *m_library;
    QPlainTextEdit *m_state;
    QPlainTextEdit *m_log;
};
