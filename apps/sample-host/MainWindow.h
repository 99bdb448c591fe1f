#pragma once

#include <QList>
#include <QMainWindow>
#include <QPointer>

class QAction;
class QPlainTextEdit;
class SampleHost;

// The sample host's window: menus that call the library's published members, and a log
// of what they returned. Each subsystem adds its own menu (see the add...Menu functions).
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(QObject *library, SampleHost *host, const QString &outputFolder);

    QObject *library() const { return m_library; }
    SampleHost *host() const { return m_host; }
    // Where printed PDFs and screenshots go.
    QString outputFolder() const { return m_outputFolder; }

    QMenu *addSubsystemMenu(const QString &title);
    // An action the unattended tour runs (its dialog, if any, is photographed and closed).
    void addTourAction(QAction *action, const QString &screenshotName);
    struct TourStep {
        QAction *action;
        QString screenshotName;
    };
    const QList<TourStep> &tourSteps() const { return m_tour; }

    void log(const QString &line);
    // Lets go of the library's services and hands it the host again, so that the services
    // are created afresh (with the fonts as they are now) on their next use.
    void restartLibrary();

private:
    void showStatus();

    QObject *m_library;
    SampleHost *m_host;
    QString m_outputFolder;
    QPlainTextEdit *m_log;
    QList<TourStep> m_tour;
};
