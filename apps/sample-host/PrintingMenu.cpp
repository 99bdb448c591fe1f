#include "PrintingMenu.h"

#include "MainWindow.h"
#include "TestPage.h"

#include "library/LateBinding.h"
#include "printing/PrinterInfo.h"
#include "report/ReferenceReport.h"

#include <QAction>
#include <QDir>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMenu>

using namespace bravcpl5;

namespace {

// The configuration to print with: the only one, the first when nobody can choose
// (offscreen, as in the tour), else the user's choice; "" when cancelled or none.
QString chooseConfiguration(MainWindow &window, const QString &title)
{
    QObject *store = late::object(window.library(), "PrinterConfigurations");
    QStringList names = late::value(store, "GetPrinterConfigurations", {true}).toStringList();
    names.removeAll(QString());
    if (names.size() <= 1 || QGuiApplication::platformName() == QLatin1String("offscreen"))
        return names.value(0);
    bool ok = false;
    const QString name = QInputDialog::getItem(&window, title, QStringLiteral("Printer configuration:"), names, 0,
                                               false, &ok);
    return ok ? name : QString();
}

void printTestPage(MainWindow &window, const QString &name)
{
    if (name.isEmpty()) {
        window.log(QStringLiteral("Test page: no printer configuration to print with"));
        return;
    }
    // Through the published names only, as the host's reports would.
    QObject *store = late::object(window.library(), "PrinterConfigurations");
    ReferenceReport report;
    report.setDocumentName(QStringLiteral("Test page - %1").arg(name));
    late::call(store, "SetupPageFromPrinterConfiguration", {name, QVariant::fromValue<QObject *>(&report), false});

    // A printer that is assigned and installed gets the page; otherwise it goes to a PDF.
    const QString printer = FindPrinter(CurrentPrinterInfo(), report.printer()->deviceName());
    if (printer.isEmpty())
        report.setOutputFileName(QDir(window.outputFolder()).filePath(QStringLiteral("test-page-%1.pdf").arg(name)));
    const TestPageInfo info{name, printer, report.pageSettings()->paperSize(), report.pageSettings()->paperSource(),
                            report.printWidth()};
    const bool printed = report.print([&](QPainter &painter, const ReportPageToDraw &page) {
        return DrawTestPage(painter, page, report.lastPage(), info);
    });
    if (!printed)
        window.log(QStringLiteral("Test page with \"%1\": printing failed").arg(name));
    else if (printer.isEmpty())
        window.log(QStringLiteral("Test page with \"%1\" written to %2").arg(name, report.outputFileName()));
    else
        window.log(QStringLiteral("Test page with \"%1\" sent to %2 as job %3").arg(name, printer).arg(report.lastJobId()));
    for (const QString &change : report.lastPage().adjustments)
        window.log(QStringLiteral("  changed for the printer: %1").arg(change));
}

// The page setup dialog on a configuration, then a test page with what it now holds.
void pageSetup(MainWindow &window)
{
    const QString name = chooseConfiguration(window, QStringLiteral("Page Setup"));
    if (name.isEmpty()) {
        window.log(QStringLiteral("Page setup: no printer configuration to set up"));
        return;
    }
    QObject *store = late::object(window.library(), "PrinterConfigurations");
    const QString printer = late::value(store, "GetPrinterForConfiguration", {name, true}).toString();
    const bool confirmed = late::value(store, "ShowPageSetup", {name, printer}).toBool();
    window.log(QStringLiteral("ShowPageSetup(\"%1\", \"%2\") = %3").arg(name, printer, confirmed ? "True" : "False"));
    if (confirmed)
        printTestPage(window, name);
}

} // namespace

void addPrintingMenu(MainWindow &window)
{
    QMenu *menu = window.addSubsystemMenu(QStringLiteral("&Printing"));
    QAction *configurations = menu->addAction(QStringLiteral("Printer &Configurations..."));
    QObject::connect(configurations, &QAction::triggered, &window, [&window]() {
        late::call(window.library(), "ShowPrinterConfigurations");
        window.log(QStringLiteral("ShowPrinterConfigurations()"));
    });
    window.addTourAction(configurations, QStringLiteral("printing-printer-configurations"));
    QAction *setup = menu->addAction(QStringLiteral("Page &Setup..."));
    QObject::connect(setup, &QAction::triggered, &window, [&window]() { pageSetup(window); });
    window.addTourAction(setup, QStringLiteral("printing-page-setup"));
    QAction *testPage = menu->addAction(QStringLiteral("Print a test page with a configuration..."));
    QObject::connect(testPage, &QAction::triggered, &window, [&window]() {
        printTestPage(window, chooseConfiguration(window, QStringLiteral("Print a Test Page")));
    });
    window.addTourAction(testPage, QStringLiteral("printing-test-page"));

    QMenu *library = window.addSubsystemMenu(QStringLiteral("&Library"));
    QAction *verify = library->addAction(QStringLiteral("&Verify printer configurations"));
    QObject::connect(verify, &QAction::triggered, &window, [&window]() {
        QObject *store = late::object(window.library(), "PrinterConfigurations");
        const bool verified = late::value(store, "VerifyPrinterConfigurations", {true, true}).toBool();
        window.log(QStringLiteral("VerifyPrinterConfigurations(True, True) = %1").arg(verified ? "True" : "False"));
    });
    window.addTourAction(verify, QStringLiteral("library-verify-printer-configurations"));
}
