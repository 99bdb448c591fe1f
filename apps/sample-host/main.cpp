// The sample host: creates the library by its programmatic identifier, as any automation
// client would, hands it a host object over a sample settings tree, and offers the
// library's services from its menus. Without a display it runs offscreen, takes a
// screenshot of every window it opens, names the folder they are in, and exits.

#include "MainWindow.h"
#include "SampleHost.h"
#include "SettingsMenu.h"
#include "Tour.h"

#include "library/Factory.h"
#include "library/LateBinding.h"
#include "library/RegistryFile.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QTextStream>
#include <QTimer>
#include <cstdio>
#include <memory>

namespace {

// Messages that platform plugins print in a normal run, and that say nothing to a user
// of the sample host: the offscreen plugin's missing window features.
QtMessageHandler standardHandler = nullptr;

void quietPlatformNoise(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg && message.startsWith(QLatin1String("This plugin does not support")))
        return;
    if (standardHandler)
        standardHandler(type, context, message);
    else
        fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

// Qt warns on standard error when the runtime folder is not set, as for root in a
// container; the same private folder it would fall back to is named here instead.
void ensureRuntimeFolder()
{
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString folder = QDir::temp().filePath(
        QStringLiteral("runtime-%1")
            .arg(qEnvironmentVariable("USER", QStringLiteral("sample-host"))));
    if (QDir().mkpath(folder)
        && QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                             | QFileDevice::ExeOwner))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder));
}

// As a host's installer does: the workstation's default printer becomes the printer of
// "(Default)", which every configuration without a printer of its own prints with. The
// other assignments are left to the dealer (Settings > Printer Configurations).
void assignDefaultPrinter(QObject *library)
{
    const QString printer = QPrinterInfo::defaultPrinterName();
    if (!printer.isEmpty())
        bravcpl5::late::call(bravcpl5::late::object(library, "PrinterConfigurations"),
                             "SetPrinterForConfiguration", {QStringLiteral("(Default)"), printer});
}

// Makes `folder` and tries a file in it; false, with the reason, when either fails. Its
// permissions would not tell: root passes them, and a read-only mount does not show there.
bool canWriteInto(const QString &folder, QString &reason)
{
    if (!QDir().mkpath(folder)) {
        reason = QStringLiteral("the folder cannot be created");
        return false;
    }
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".write-test-XXXXXX")));
    if (!probe.open()) {
        reason = probe.errorString();
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const bool headless = qEnvironmentVariableIsEmpty("DISPLAY")
                          && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
                          && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (headless)
        qputenv("QT_QPA_PLATFORM", "offscreen");

    ensureRuntimeFolder();
    standardHandler = qInstallMessageHandler(quietPlatformNoise);
    QApplication app(argc, argv);
    // The sample files write dates the American way; a machine without a locale of its
    // own (the C locale of a bare container) reads them so too.
    if (QLocale::system().language() == QLocale::C)
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication::setApplicationName(QStringLiteral("bravcpl5-sample-host"));
    QApplication::setApplicationDisplayName(QStringLiteral("bravcpl5 Sample Host"));

    QCommandLineParser parser;
    parser.addHelpOption();
    QCommandLineOption dataOption(
        QStringLiteral("data"),
        QStringLiteral("Settings tree to use (default: the user's data folder)."),
        QStringLiteral("folder"));
    QCommandLineOption tourOption(
        QStringLiteral("tour"),
        QStringLiteral("Run every menu command unattended, save screenshots "
                       "and output into <folder>, then exit."),
        QStringLiteral("folder"));
    parser.addOption(dataOption);
    parser.addOption(tourOption);
    parser.process(app);

    const QString dataFolder = parser.isSet(dataOption) ? parser.value(dataOption)
                                                        : QStandardPaths::writableLocation(
                                                            QStandardPaths::AppLocalDataLocation);
    InstallSampleData(dataFolder);
    // The sample tree keeps its printer assignments and window places beside it, so trying
    // the sample host leaves the user's own registry file alone.
    const QString registryFile = QDir(dataFolder).filePath(QStringLiteral("registry.ini"));
    const bool firstRun = !QFileInfo::exists(registryFile);
    bravcpl5::SetRegistryFile(registryFile);

    QString outputFolder = parser.value(tourOption);
    if (outputFolder.isEmpty())
        outputFolder = QDir(dataFolder).filePath(QStringLiteral("Output"));
    const bool touring = headless || parser.isSet(tourOption);
    QString cannotWrite;
    const bool writable = canWriteInto(outputFolder, cannotWrite);
    if (touring && !writable) {
        QTextStream(stderr) << "The tour cannot write into "
                            << QDir::toNativeSeparators(QDir(outputFolder).absolutePath()) << ": "
                            << cannotWrite << '\n';
        return 1;
    }

    SampleHost host(dataFolder);
    std::unique_ptr<QObject> library(bravcpl5_CreateObject("bravcpl5.Library"));
    QMetaObject::invokeMethod(library.get(), "Initialize", Q_ARG(QObject *, &host));
    if (firstRun)
        assignDefaultPrinter(library.get());

    MainWindow window(library.get(), &host, outputFolder);
    addSettingsMenu(window);
    window.show();

    int result = 0;
    if (touring) {
        result = RunTour(window, outputFolder);
        const QString folder = QDir::toNativeSeparators(QDir(outputFolder).absolutePath());
        if (result == 0)
            QTextStream(stdout) << "Screenshots and output: " << folder << '\n';
        else
            QTextStream(stderr) << "The tour could not make every screenshot and report in "
                                << folder << '\n';
    } else {
        QTimer::singleShot(0, &window, &MainWindow::verifyPrinterConfigurations);
        result = QApplication::exec();
    }
    QMetaObject::invokeMethod(library.get(), "PreTerminate");
    return result;
}
