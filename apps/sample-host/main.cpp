// The sample host: creates the library by its programmatic identifier, as any automation
// client would, hands it a host object over a sample settings tree, and offers the
// library's services from its menus. Without a display it runs offscreen, takes a
// screenshot of every window it opens, names the folder they are in, and exits.

#include "MainWindow.h"
#include "PrintingMenu.h"
#include "ReportMenu.h"
#include "ReportSettingsMenu.h"
#include "SampleHost.h"
#include "Tour.h"

#include "library/Factory.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <QTextStream>
#include <memory>

int main(int argc, char **argv)
{
    const bool headless = qEnvironmentVariableIsEmpty("DISPLAY")
                          && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
                          && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (headless)
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    // The sample files write dates the American way; a machine without a locale of its
    // own (the C locale of a bare container) reads them so too.
    if (QLocale::system().language() == QLocale::C)
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setApplicationName(QStringLiteral("bravcpl5-sample-host"));
    QApplication::setApplicationDisplayName(QStringLiteral("bravcpl5 Sample Host"));

    QCommandLineParser parser;
    parser.addHelpOption();
    QCommandLineOption dataOption(QStringLiteral("data"),
                                  QStringLiteral("Settings tree to use (default: the user's data folder)."),
                                  QStringLiteral("folder"));
    QCommandLineOption tourOption(QStringLiteral("tour"),
                                  QStringLiteral("Run every menu command unattended, save screenshots "
                                                 "and output into <folder>, then exit."),
                                  QStringLiteral("folder"));
    parser.addOption(dataOption);
    parser.addOption(tourOption);
    parser.process(app);

    const QString dataFolder =
        parser.isSet(dataOption)
            ? parser.value(dataOption)
            : QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    InstallSampleData(dataFolder);

    QString outputFolder = parser.value(tourOption);
    if (outputFolder.isEmpty())
        outputFolder = QDir(dataFolder).filePath(QStringLiteral("Output"));
    QDir().mkpath(outputFolder);

    SampleHost host(dataFolder);
    std::unique_ptr<QObject> library(bravcpl5_CreateObject("bravcpl5.Library"));
    QMetaObject::invokeMethod(library.get(), "Initialize", Q_ARG(QObject *, &host));

    MainWindow window(library.get(), &host, outputFolder);
    addPrintingMenu(window);
    addReportMenu(window);
    addReportSettingsMenu(window);
    window.show();

    int result = 0;
    if (headless || parser.isSet(tourOption)) {
        result = RunTour(window, outputFolder);
        QTextStream(stdout) << "Screenshots and output: " << QDir(outputFolder).absolutePath() << '\n';
    } else {
        result = QApplication::exec();
    }
    QMetaObject::invokeMethod(library.get(), "PreTerminate");
    return result;
}
