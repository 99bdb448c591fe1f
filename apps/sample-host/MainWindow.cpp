#include "MainWindow.h"

#include "DiagnosticsWindow.h"
#include "ReportOutput.h"
#include "SampleHost.h"

#include "library/LateBinding.h"
#include "library/Messages.h"
#include "printing/PrinterCheck.h"
#include "printing/PrinterConfigurations.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QTreeWidget>

using namespace bravcpl5;

namespace {

enum Column { ReportColumn, DescriptionColumn, ConfigurationColumn, PrinterColumn };

QObject *store(const MainWindow &window)
{
    return late::object(window.library(), "PrinterConfigurations");
}

} // namespace

MainWindow::MainWindow(QObject *library, SampleHost *host, const QString &outputFolder)
    : m_library(library),
      m_host(host),
      m_outputFolder(outputFolder),
      m_reports(DealerReports(host->dataFolder())),
      m_list(new QTreeWidget),
      m_statusLine(new QLabel),
      m_diagnostics(new DiagnosticsWindow(library, this))
{
    setWindowTitle(QStringLiteral("Sunbridge Window Fashions - Reports"));
    m_list->setObjectName(QStringLiteral("reports"));
    m_list->setHeaderLabels({QStringLiteral("Report"), QStringLiteral("Description"),
                             QStringLiteral("Printer Configuration"), QStringLiteral("Printer")});
    m_list->setRootIsDecorated(false);
    m_list->setAlternatingRowColors(true);
    m_list->setUniformRowHeights(true);
    for (const DealerReport &report : m_reports)
        m_list->addTopLevelItem(new QTreeWidgetItem(QStringList{report.name, report.description}));
    // Every column is the user's to size; the printer's takes what is left.
    m_list->header()->setSectionResizeMode(QHeaderView::Interactive);
    m_list->header()->setStretchLastSection(true);
    setCentralWidget(m_list);
    m_statusLine->setObjectName(QStringLiteral("statusLine"));
    statusBar()->addWidget(m_statusLine, 1);
    resize(1040, 420);

    QMenu *file = menu(QStringLiteral("&File"));
    QAction *exit = file->addAction(QStringLiteral("E&xit"), qApp, &QApplication::quit);
    exit->setShortcut(QKeySequence::Quit);
    addReportCommands();
    QMenu *help = menu(QStringLiteral("&Help"));
    QAction *diagnostics = help->addAction(QStringLiteral("&Diagnostics"));
    connect(diagnostics, &QAction::triggered, m_diagnostics, &DiagnosticsWindow::showUpdated);
    help->addAction(QStringLiteral("&About..."), this, &MainWindow::showAbout);

    connect(m_list, &QTreeWidget::currentItemChanged, this, &MainWindow::updateActions);
    connect(m_list, &QTreeWidget::itemActivated, this, [this]() {
        if (const DealerReport *report = currentReport())
            PreviewReport({m_library, m_host, this}, *report);
    });
    refresh();
    selectReport(0);
    restorePlace();
}

QString MainWindow::placeFile(const QString &dataFolder)
{
    return QDir(dataFolder).filePath(QStringLiteral("window.ini"));
}

// Restored before the first show, as restoreGeometry() wants; a place on a screen that is
// gone comes back on one that is there.
void MainWindow::restorePlace()
{
    const QSettings place(placeFile(m_host->dataFolder()), QSettings::IniFormat);
    restoreGeometry(place.value(QStringLiteral("MainWindow/geometry")).toByteArray());
    m_columnsPlaced = m_list->header()->restoreState(
        place.value(QStringLiteral("MainWindow/columns")).toByteArray());
}

void MainWindow::savePlace() const
{
    QSettings place(placeFile(m_host->dataFolder()), QSettings::IniFormat);
    place.setValue(QStringLiteral("MainWindow/geometry"), saveGeometry());
    place.setValue(QStringLiteral("MainWindow/columns"), m_list->header()->saveState());
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    // Fitted once the texts are in and the fonts are known; the last column stretches.
    if (!m_columnsPlaced) {
        for (int c : {ReportColumn, DescriptionColumn, ConfigurationColumn}) {
            m_list->resizeColumnToContents(c);
            // A little air before the next column's text.
            m_list->setColumnWidth(c,
                                   m_list->columnWidth(c) + 2 * fontMetrics().averageCharWidth());
        }
        m_columnsPlaced = true;
    }
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    savePlace();
    QMainWindow::closeEvent(event);
}

void MainWindow::showAbout()
{
    ShowMessage(QStringLiteral("%1\n\nbravcpl5, the common printing library, version %2\nQt %3")
                    .arg(QApplication::applicationDisplayName(), QStringLiteral(BRAVCPL5_VERSION),
                         QString::fromLatin1(qVersion())),
                QMessageBox::Information, QMessageBox::Ok, this);
}

QMenu *MainWindow::menu(const QString &title)
{
    // Menus that share a title share the menu; Help stays last.
    QAction *helpMenu = nullptr;
    for (QAction *action : menuBar()->actions()) {
        if (action->menu() && action->text() == title)
            return action->menu();
        if (action->text() == QLatin1String("&Help"))
            helpMenu = action;
    }
    auto *created = new QMenu(title, menuBar());
    menuBar()->insertMenu(helpMenu, created);
    return created;
}

void MainWindow::addReportCommands()
{
    QMenu *reportMenu = menu(QStringLiteral("&Report"));
    QToolBar *toolBar = addToolBar(QStringLiteral("Report"));
    toolBar->setObjectName(QStringLiteral("reportToolBar"));
    toolBar->setMovable(false);
    toolBar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [&](const QString &text, QKeySequence shortcut, bool generalOnly,
                         std::function<void()> run) {
        QAction *action = reportMenu->addAction(text);
        action->setShortcut(shortcut);
        connect(action, &QAction::triggered, this, run);
        toolBar->addAction(action);
        (generalOnly ? m_generalReport : m_anyReport).append(action);
        return action;
    };
    const ReportOutputContext context{m_library, m_host, this};
    add(QStringLiteral("Pre&view"), QKeySequence(Qt::CTRL | Qt::Key_F2), false,
        [this, context]() { PreviewReport(context, *currentReport()); });
    add(QStringLiteral("&Print"), QKeySequence::Print, false, [this, context]() {
        const DealerReport &report = *currentReport();
        const bool printer = hasPrinter(report);
        if (!printer && m_anyPrinter)
            sayNoPrinter(report); // nothing is sent
        else if (!printer || confirmPrint())
            PrintReport(context, report); // with no printer at all, the library says so
    });
    add(QStringLiteral("Print to P&DF..."), {}, false,
        [this, context]() { PrintReportToPdf(context, *currentReport(), m_outputFolder); });
    reportMenu->addSeparator();
    toolBar->addSeparator();
    QAction *filters = add(QStringLiteral("&Filters..."), {}, true,
                           [this]() { showReportDialog("ShowGeneralReportFilters"); });
    QAction *fields = add(QStringLiteral("F&ields..."), {}, true,
                          [this]() { showReportDialog("ShowGeneralReportFields"); });
    QAction *layout = add(QStringLiteral("&Layout..."), {}, true, [this]() { editLayout(); });
    addTourAction(filters, QStringLiteral("report-filters"));
    addTourAction(fields, QStringLiteral("report-fields"));
    addTourAction(layout, QStringLiteral("report-layout"));
}

const DealerReport *MainWindow::currentReport() const
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    return row >= 0 && row < m_reports.size() ? &m_reports[row] : nullptr;
}

void MainWindow::selectReport(int index) { m_list->setCurrentItem(m_list->topLevelItem(index)); }

void MainWindow::updateActions()
{
    const DealerReport *report = currentReport();
    for (QAction *action : std::as_const(m_anyReport))
        action->setEnabled(report);
    for (QAction *action : std::as_const(m_generalReport))
        action->setEnabled(report && report->kind == DealerReport::Kind::General);
    updateStatus();
}

void MainWindow::updateStatus()
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    const QString findings = m_findings.value(row);
    m_statusLine->setText(
        findings.isEmpty()
            ? m_status
            : QStringLiteral("%1 cannot be printed as configured: %2")
                  .arg(m_reports[row].name, QString(findings).replace(u'\n', QLatin1String("; "))));
}

bool MainWindow::confirmPrint()
{
    const int row = m_list->indexOfTopLevelItem(m_list->currentItem());
    const QString findings = m_findings.value(row);
    return findings.isEmpty()
           || ShowMessage(QStringLiteral("The printer cannot print %1 as configured:\n%2\n\nPrint "
                                         "anyway?")
                              .arg(m_reports[row].name, findings),
                          QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No, this)
                  == QMessageBox::Yes;
}

bool MainWindow::hasPrinter(const DealerReport &report) const
{
    return !late::text(store(*this), "GetPrinterConfigurationToUse",
                       {PrinterConfigurationOf(m_library, report), false})
                .isEmpty();
}

void MainWindow::sayNoPrinter(const DealerReport &report)
{
    ShowMessage(QStringLiteral("The printer configuration '%1' of the report '%2' has no printer "
                               "on this computer. Assign one in Settings > Printer "
                               "Configurations.")
                    .arg(PrinterConfigurationOf(m_library, report), report.name),
                QMessageBox::Warning, QMessageBox::Ok, this);
}

// ShowGeneralReportFilters or ShowGeneralReportFields on the report's configuration file,
// by name, as an automation client calls them.
void MainWindow::showReportDialog(const char *member)
{
    const DealerReport *report = currentReport();
    const bool confirmed = late::value(m_library, member, {report->file}).toBool();
    log(QStringLiteral("%1(\"%2\") = %3")
            .arg(QLatin1String(member), report->file, confirmed ? "True" : "False"));
}

// The report's own layout when it has one, else the general layout.
void MainWindow::editLayout()
{
    QObject *reportLayout = late::object(m_library, "ReportLayout");
    const QString file = late::text(reportLayout, "GetLayoutFile", {currentReport()->file});
    const bool confirmed = late::value(reportLayout, "ShowGeneralReportLayout", {file}).toBool();
    log(QStringLiteral("ShowGeneralReportLayout(\"%1\") = %2")
            .arg(file, confirmed ? "True" : "False"));
    refresh();
}

void MainWindow::addTourStep(const QString &screenshotName, std::function<void()> run)
{
    m_tour.append({screenshotName, std::move(run)});
}

void MainWindow::addTourAction(QAction *action, const QString &screenshotName)
{
    addTourStep(screenshotName, [action]() { action->trigger(); });
}

void MainWindow::log(const QString &line) { m_diagnostics->log(line); }

void MainWindow::verifyPrinterConfigurations()
{
    const bool verified =
        late::value(store(*this), "VerifyPrinterConfigurations", {true, true}).toBool();
    log(QStringLiteral("VerifyPrinterConfigurations(True, True) = %1")
            .arg(verified ? "True" : "False"));
    refresh();
}

void MainWindow::refresh()
{
    QObject *configurations = store(*this);
    // Every configuration against its printer at once, each printer read once.
    QHash<QString, QString> findings; // by case-folded configuration name
    if (auto *checked = qobject_cast<PrinterConfigurations *>(configurations)) {
        for (const ConfigurationCheck &check : checked->checkConfigurations(CurrentPrinterInfo()))
            if (!check.findings.isEmpty())
                findings.insert(check.configuration.toCaseFolded(),
                                DescribeFindings(check.findings));
    }
    m_findings.clear();
    for (int row = 0; row < m_reports.size(); ++row) {
        const QString configuration = PrinterConfigurationOf(m_library, m_reports[row]);
        // Quietly: the list says what Print would find, without a message per row.
        const QString use = late::text(configurations, "GetPrinterConfigurationToUse",
                                       {configuration, false});
        const QString printer = late::text(configurations, "GetPrinterForConfiguration",
                                           {configuration, false});
        QTreeWidgetItem *item = m_list->topLevelItem(row);
        item->setText(ConfigurationColumn, configuration);
        item->setText(PrinterColumn, use.isEmpty() ? QStringLiteral("No printer")
                                     : use == QLatin1String("(Default)")
                                         ? QStringLiteral("%1 (default)").arg(printer)
                                         : printer);
        m_findings << findings.value(configuration.toCaseFolded());
        item->setIcon(PrinterColumn, m_findings.last().isEmpty()
                                         ? QIcon()
                                         : style()->standardIcon(QStyle::SP_MessageBoxWarning));
        item->setToolTip(PrinterColumn, m_findings.last());
    }

    QStringList without;
    int withDefault = 0;
    const QStringList names =
        late::value(configurations, "GetPrinterConfigurations", {true}).toStringList();
    for (const QString &name : names) {
        if (name.isEmpty()
            || !late::text(configurations, "GetPrinterForConfiguration", {name, true}).isEmpty())
            continue;
        if (late::text(configurations, "GetPrinterForConfiguration", {name, false}).isEmpty())
            without << name;
        else
            ++withDefault;
    }
    m_anyPrinter = without.size() < names.size() - names.count(QString());
    if (!without.isEmpty())
        m_status =
            QStringLiteral("%1 no printer (%2): Settings > Printer Configurations assigns "
                           "one.")
                .arg(without.size() == 1
                         ? QStringLiteral("1 printer configuration has")
                         : QStringLiteral("%1 printer configurations have").arg(without.size()),
                     without.join(QStringLiteral(", ")));
    else if (withDefault > 0)
        m_status =
            QStringLiteral(
                "Every printer configuration has a printer; %1 print to the default printer.")
                .arg(withDefault);
    else
        m_status = QStringLiteral("Every printer configuration has a printer of its own.");
    updateStatus();
}

void MainWindow::restartLibrary()
{
    QMetaObject::invokeMethod(m_library, "PreTerminate");
    QMetaObject::invokeMethod(m_library, "Initialize", Q_ARG(QObject *, m_host));
}
