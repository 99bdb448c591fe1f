#include "Tour.h"

#include "MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QPixmap>
#include <QTabWidget>
#include <QTimer>

namespace {

bool save(QWidget *widget, const QString &outputFolder, const QString &name)
{
    return widget->grab().save(QDir(outputFolder).filePath(name + QStringLiteral(".png")));
}

// A dialog as it opened, then each further tab of its tab control as <name>-<tab>.
bool saveDialog(QWidget *dialog, const QString &outputFolder, const QString &name)
{
    bool saved = save(dialog, outputFolder, name);
    if (auto *tabs = dialog->findChild<QTabWidget *>()) {
        for (int i = 1; i < tabs->count(); ++i) {
            tabs->setCurrentIndex(i);
            QApplication::processEvents();
            const QString tab = tabs->tabText(i).remove(QLatin1Char('&')).toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
            saved = save(dialog, outputFolder, name + QLatin1Char('-') + tab) && saved;
        }
    }
    return saved;
}

} // namespace

int RunTour(MainWindow &window, const QString &outputFolder)
{
    QApplication::processEvents();
    int failures = save(&window, outputFolder, QStringLiteral("main-window")) ? 0 : 1;

    for (const MainWindow::TourStep &step : window.tourSteps()) {
        // A modal dialog blocks trigger() until it closes, so it is photographed and
        // closed from a timer running inside its own event loop.
        QTimer watcher;
        watcher.setInterval(100);
        QObject::connect(&watcher, &QTimer::timeout, [&]() {
            QWidget *modal = QApplication::activeModalWidget();
            if (!modal)
                return;
            watcher.stop();
            if (!saveDialog(modal, outputFolder, step.screenshotName))
                ++failures;
            if (auto *dialog = qobject_cast<QDialog *>(modal))
                dialog->reject();
            else
                modal->close();
        });
        watcher.start();
        step.action->trigger();
        watcher.stop();
        QApplication::processEvents();
    }
    save(&window, outputFolder, QStringLiteral("main-window-log"));
    return failures == 0 ? 0 : 1;
}
