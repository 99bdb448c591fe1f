#include "SettingsMenu.h"

#include "MainWindow.h"
#include "TestPage.h"

#include "library/LateBinding.h"
#include "printers/PrinterInfo.h"
#include "report/ReferenceReport.h"

#include <QAction>
#include <QDir>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>

using namespace bravcpl5;

namespace {

// The configuration to print with: the only one, the first when nobody can choose (in
// the tour), else the user's choice; "" when cancelled or none.
QString chooseConfiguration(MainWindow &window, const QString &title)
{
    QObject *store = late::object(window.library(), "PrinterConfigurations");
    QStringList names = late::value(store, "GetPrinterConfigurations", {true}).toStringList();
    names.removeAll(QString());
    if (names.size() <= 1 || window.unattended())
        return names.value(0);
    bool ok = false;
    const QString name = QInputDialog::getItem(
        &window, title, QStringLiteral("Printer configuration:"), names, 0, false, &ok);
    return ok ? name : QString();
}

void printTestPage(MainWindow &window, const QString &name)
{
    if (name.isEmpty())
        return;
    ReferenceReport report;
    SetUpTestPage(window.library(), name, report);

    // A printer that is assigned and installed gets the page, except in the tour, which
    // puts nothing on anyone's paper; otherwise it goes to a PDF.
    const QString installed = FindPrinter(CurrentPrinterInfo(), report.printer()->deviceName());
    const QString printer = window.unattended() ? QString() : installed;
    if (printer.isEmpty())
        report.setOutputFileName(
            QDir(window.outputFolder()).filePath(QStringLiteral("test-page-%1.pdf").arg(name)));
    const bool printed = PrintTestPage(report, name, installed);
    QString message;
    if (!printed)
        message = QStringLiteral("The test page with \"%1\" could not be printed.").arg(name);
    else if (installed.isEmpty())
        message = QStringLiteral(
                      "No printer is installed for \"%1\"; the test page was written to %2.")
                      .arg(name, QDir::toNativeSeparators(report.outputFileName()));
    else if (printer.isEmpty())
        message = QStringLiteral("The test page with \"%1\" for %2 was written to %3.")
                      .arg(name, installed, QDir::toNativeSeparators(report.outputFileName()));
    else
        message = QStringLiteral("The test page with \"%1\" was sent to %2.").arg(name, printer);
    for (const QString &change : report.lastPage().adjustments)
        message += u'\n' + QStringLiteral("Changed for the printer: %1").arg(change);
    window.log(message);
    QMessageBox::information(&window, QStringLiteral("Print a Test Page"), message);
}

// The page setup dialog on a configuration, then, if wanted, a test page with what it now holds.
void pageSetup(MainWindow &window)
{
    const QString name = chooseConfiguration(window, QStringLiteral("Page Setup"));
    if (name.isEmpty())
        return;
    QObject *store = late::object(window.library(), "PrinterConfigurations");
    const QString printer =
        late::value(store, "GetPrinterForConfiguration", {name, true}).toString();
    const bool confirmed = late::value(store, "ShowPageSetup", {name, printer}).toBool();
    window.log(QStringLiteral("ShowPageSetup(\"%1\", \"%2\") = %3")
                   .arg(name, printer, confirmed ? "True" : "False"));
    if (confirmed
        && QMessageBox::question(&window, QStringLiteral("Page Setup"),
                                 QStringLiteral("Print a test page with \"%1\" now?").arg(name))
               == QMessageBox::Yes)
        printTestPage(window, name);
}

// A report fonts dialog by name. The ReportLayout keeps the fonts it read when it was
// created, so after a change the host starts over with a fresh one.
void editFonts(MainWindow &window, const char *member)
{
    const bool confirmed =
        late::value(late::object(window.library(), "ReportLayout"), member).toBool();
    window.log(
        QStringLiteral("%1() = %2").arg(QLatin1String(member), confirmed ? "True" : "False"));
    if (confirmed)
        window.restartLibrary();
}

} // namespace

void addSettingsMenu(MainWindow &window)
{
    QMenu *menu = window.menu(QStringLiteral("&Settings"));
    const auto add = [&](const QString &text, const QString &screenshot,
                         std::function<void()> run) {
        QAction *action = menu->addAction(text);
        QObject::connect(action, &QAction::triggered, &window, [&window, run]() {
            run();
            window.refresh();
        });
        window.addTourAction(action, screenshot);
    };
    add(QStringLiteral("Printer &Configurations..."), QStringLiteral("printer-configurations"),
        [&window]() {
            late::call(window.library(), "ShowPrinterConfigurations");
            window.log(QStringLiteral("ShowPrinterConfigurations()"));
        });
    add(QStringLiteral("Page &Setup..."), QStringLiteral("page-setup"),
        [&window]() { pageSetup(window); });
    menu->addSeparator();
    add(QStringLiteral("General Report &Layout..."), QStringLiteral("general-report-layout"),
        [&window]() {
            QObject *reportLayout = late::object(window.library(), "ReportLayout");
            const bool confirmed = late::value(reportLayout, "ShowGeneralReportLayout").toBool();
            window.log(
                QStringLiteral("ShowGeneralReportLayout() = %1").arg(confirmed ? "True" : "False"));
        });
    add(QStringLiteral("General Report &Fonts..."), QStringLiteral("general-report-fonts"),
        [&window]() { editFonts(window, "ShowGeneralReportFonts"); });
    add(QStringLiteral("P&rocess Report Fonts..."), QStringLiteral("process-report-fonts"),
        [&window]() { editFonts(window, "ShowProcessReportFonts"); });
    menu->addSeparator();
    add(QStringLiteral("Print a &Test Page..."), QStringLiteral("test-page"), [&window]() {
        printTestPage(window, chooseConfiguration(window, QStringLiteral("Print a Test Page")));
    });
    add(QStringLiteral("&Verify Printer Configurations"),
        QStringLiteral("verify-printer-configurations"),
        [&window]() { window.verifyPrinterConfigurations(); });
}
