#include "ReportMenu.h"

#include "MainWindow.h"
#include "SampleHost.h"
#include "SampleReport.h"

#include "library/LateBinding.h"

#include <QAction>
#include <QDir>
#include <QMenu>

namespace {

void printSampleReport(MainWindow &window)
{
        const QString file = QDir(window.outputFolder()).filePath(QStringLiteral("sample-report.pdf"));
        const SampleReportOutcome outcome = PrintSampleReport(window.library(), SampleProducts(window.host()->database()), file);
        if (!outcome.written) {
            window.log(QStringLiteral("Sample report: could not write %1").arg(file));
            return;
        }
        window.log(QStringLiteral("Sample report: %1 (%2 pages, printer configuration \"%3\")")
                       .arg(file).arg(outcome.pages).arg(outcome.printerConfiguration));
}

// Opens the layout dialog on `layoutFile` ("" for the general layout) by name, as a host
// would, then prints the sample report so that the change shows.
void editLayout(MainWindow &window, const QString &layoutFile)
{
    QObject *reportLayout = bravcpl5::late::object(window.library(), "ReportLayout");
    const bool confirmed = bravcpl5::late::value(reportLayout, "ShowGeneralReportLayout", {layoutFile}).toBool();
    window.log(QStringLiteral("ShowGeneralReportLayout(\"%1\") returned %2")
                   .arg(layoutFile, confirmed ? QStringLiteral("True") : QStringLiteral("False")));
    printSampleReport(window);
}

// Opens a report fonts dialog by name, then prints the sample report. The ReportLayout
// keeps the fonts it read when it was created, so a host that wants a change to show at
// once starts over with a fresh one (PreTerminate, then the service is created anew).
void editFonts(MainWindow &window, const char *member)
{
    QObject *reportLayout = bravcpl5::late::object(window.library(), "ReportLayout");
    const bool confirmed = bravcpl5::late::value(reportLayout, member).toBool();
    window.log(QStringLiteral("%1() returned %2")
                   .arg(QLatin1String(member), confirmed ? QStringLiteral("True") : QStringLiteral("False")));
    if (confirmed)
        window.restartLibrary();
    printSampleReport(window);
}

} // namespace

void addReportMenu(MainWindow &window)
{
    QMenu *menu = window.addSubsystemMenu(QStringLiteral("&Reports"));
    QAction *print = menu->addAction(QStringLiteral("Print the sample report..."));
    QObject::connect(print, &QAction::triggered, &window, [&window]() { printSampleReport(window); });
    window.addTourAction(print, QStringLiteral("sample-report"));

    QAction *general = menu->addAction(QStringLiteral("General Report &Layout..."));
    QObject::connect(general, &QAction::triggered, &window, [&window]() { editLayout(window, QString()); });
    window.addTourAction(general, QStringLiteral("general-report-layout"));
    QAction *own = menu->addAction(QStringLiteral("Report Layout of Order Summary..."));
    QObject::connect(own, &QAction::triggered, &window, [&window]() {
        QObject *reportLayout = bravcpl5::late::object(window.library(), "ReportLayout");
        const QString report = QDir(window.host()->dataFolder()).filePath(QStringLiteral("System/Reports/Order Summary.xml"));
        editLayout(window, bravcpl5::late::text(reportLayout, "GetLayoutFile", {report}));
    });
    window.addTourAction(own, QStringLiteral("report-layout"));
    menu->addSeparator();
    const struct {
        const char *text;
        const char *member;
        const char *screenshot;
    } fonts[] = {{"General Report &Fonts...", "ShowGeneralReportFonts", "general-report-fonts"},
                 {"&Process Report Fonts...", "ShowProcessReportFonts", "process-report-fonts"}};
    for (const auto &f : fonts) {
        QAction *action = menu->addAction(QString::fromLatin1(f.text));
        QObject::connect(action, &QAction::triggered, &window, [&window, member = f.member]() { editFonts(window, member); });
        window.addTourAction(action, QString::fromLatin1(f.screenshot));
    }
}
