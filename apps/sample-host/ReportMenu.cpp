#include "ReportMenu.h"

#include "MainWindow.h"
#include "SampleHost.h"
#include "SampleReport.h"

#include <QAction>
#include <QDir>
#include <QMenu>

void addReportMenu(MainWindow &window)
{
    QMenu *menu = window.addSubsystemMenu(QStringLiteral("&Reports"));
    QAction *print = menu->addAction(QStringLiteral("Print the sample report..."));
    QObject::connect(print, &QAction::triggered, &window, [&window]() {
        const QString file = QDir(window.outputFolder()).filePath(QStringLiteral("sample-report.pdf"));
        const SampleReportOutcome outcome = PrintSampleReport(window.library(), SampleProducts(window.host()->database()), file);
        if (!outcome.written) {
            window.log(QStringLiteral("Sample report: could not write %1").arg(file));
            return;
        }
        window.log(QStringLiteral("Sample report: %1 (%2 pages, printer configuration \"%3\")")
                       .arg(file).arg(outcome.pages).arg(outcome.printerConfiguration));
    });
    window.addTourAction(print, QStringLiteral("sample-report"));
}
