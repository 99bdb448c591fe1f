#include "MainWindow.h"

#include "SampleHost.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QVariant>

namespace {
QObject *objectProperty(QObject *object, const char *name)
{
    return object ? object->property(name).value<QObject *>() : nullptr;
}
} // namespace

MainWindow::MainWindow(QObject *library, SampleHost *host, const QString &outputFolder)
    : m_library(library), m_host(host), m_outputFolder(outputFolder), m_log(new QPlainTextEdit)
{
    setWindowTitle(QStringLiteral("bravcpl5 Sample Host"));
    m_log->setReadOnly(true);
    setCentralWidget(m_log);
    resize(760, 480);

    QMenu *file = menuBar()->addMenu(QStringLiteral("&File"));
    file->addAction(QStringLiteral("E&xit"), qApp, &QApplication::quit);

    QMenu *libraryMenu = addSubsystemMenu(QStringLiteral("&Library"));
    QAction *status = libraryMenu->addAction(QStringLiteral("Show library &status"));
    connect(status, &QAction::triggered, this, &MainWindow::showStatus);
    showStatus();
}

QMenu *MainWindow::addSubsystemMenu(const QString &title)
{
    // Subsystems that share a menu title share the menu.
    for (QAction *action : menuBar()->actions()) {
        if (action->menu() && action->text() == title)
            return action->menu();
    }
    return menuBar()->addMenu(title);
}

void MainWindow::addTourAction(QAction *action, const QString &screenshotName)
{
    m_tour.append({action, screenshotName});
}

void MainWindow::log(const QString &line) { m_log->appendPlainText(line); }

void MainWindow::showStatus()
{
    // Everything here goes through the published names, as an automation client would.
    QObject *host = objectProperty(m_library, "SharedCodeLibrary");
    QObject *printerConfigurations = objectProperty(m_library, "PrinterConfigurations");
    QObject *reportLayout = objectProperty(m_library, "ReportLayout");
    QObject *options = objectProperty(host, "Options");
    QString system, user;
    if (options) {
        QMetaObject::invokeMethod(options, "SystemFileLocation", Q_RETURN_ARG(QString, system),
                                  Q_ARG(QString, QStringLiteral("Reports")));
        QMetaObject::invokeMethod(options, "UserFileLocation", Q_RETURN_ARG(QString, user),
                                  Q_ARG(QString, QStringLiteral("Reports")));
    }
    log(QStringLiteral("Library: host %1").arg(host ? QStringLiteral("set") : QStringLiteral("not set")));
    log(QStringLiteral("PrinterConfigurations: %1, Owner is the Library: %2")
            .arg(printerConfigurations ? QStringLiteral("created") : QStringLiteral("missing"))
            .arg(objectProperty(printerConfigurations, "Owner") == m_library ? QStringLiteral("yes")
                                                                            : QStringLiteral("no")));
    log(QStringLiteral("ReportLayout: %1, Owner is the Library: %2")
            .arg(reportLayout ? QStringLiteral("created") : QStringLiteral("missing"))
            .arg(objectProperty(reportLayout, "Owner") == m_library ? QStringLiteral("yes")
                                                                    : QStringLiteral("no")));
    log(QStringLiteral("System reports folder: %1").arg(system));
    log(QStringLiteral("User reports folder: %1").arg(user));
}

void MainWindow::restartLibrary()
{
    QMetaObject::invokeMethod(m_library, "PreTerminate");
    QMetaObject::invokeMethod(m_library, "Initialize", Q_ARG(QObject *, m_host));
}
