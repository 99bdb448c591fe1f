#pragma once

// The sample host's main window, a dealer's back office: the reports in a list with the
// printer configuration and the printer each prints with, commands to preview, print or
// export the selected one and to edit its filters, fields and layout, the workstation's
// settings dialogs, and a status line saying whether every configuration has a printer.
// The window keeps its size, place and column widths in the sample host's data folder.
// A report whose printer cannot print its configuration as stored (paper, bin, margins,
// labels, or the printer not ready) is marked in the list, named in the status line when
// selected, and printed only when the dealer says so.
// What the library's objects hold is for developers, in Help > Diagnostics.

#include "DealerReports.h"

#include <QList>
#include <QMainWindow>
#include <functional>

class DiagnosticsWindow;
class QAction;
class QLabel;
class QTreeWidget;
class SampleHost;

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow(QObject *library, SampleHost *host, const QString &outputFolder);

    QObject *library() const { return m_library; }
    SampleHost *host() const { return m_host; }
    // Where printed PDFs and screenshots go.
    QString outputFolder() const { return m_outputFolder; }
    const QList<DealerReport> &reports() const { return m_reports; }
    void selectReport(int index);

    // A step of the unattended tour: what it runs, and the name its dialog (if any) is
    // photographed under before it is closed.
    struct TourStep {
        QString screenshotName;
        std::function<void()> run;
    };
    void addTourStep(const QString &screenshotName, std::function<void()> run);
    void addTourAction(QAction *action, const QString &screenshotName);
    const QList<TourStep> &tourSteps() const { return m_tour; }
    // Set by the tour: nobody is there to choose, and nothing is sent to a printer, since a
    // tour must not print on someone's paper.
    void setUnattended(bool unattended) { m_unattended = unattended; }
    bool unattended() const { return m_unattended; }

    QMenu *menu(const QString &title);
    DiagnosticsWindow *diagnostics() const { return m_diagnostics; }
    void log(const QString &line);

    // Asks the library to verify the printer configurations, offering fixes, as a host
    // does on start-up; then brings the list and the status line up to date.
    void verifyPrinterConfigurations();
    // Reads the configurations and printers of the list and the status line again.
    void refresh();
    // Lets go of the library's services and hands it the host again, so that the services
    // are created afresh (with the fonts as they are now) on their next use.
    void restartLibrary();

    // Where the window's size, place and column widths are kept.
    static QString placeFile(const QString &dataFolder);

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    const DealerReport *currentReport() const;
    void updateActions();
    void updateStatus();
    // Whether to print the current report: at once when its printer can print it, else when
    // the dealer, told why not, still wants to.
    bool confirmPrint();
    // Whether the report's configuration prints on a printer, its own or the default one.
    bool hasPrinter(const DealerReport &report) const;
    // Names the configuration that needs a printer, for a computer where others have one.
    void sayNoPrinter(const DealerReport &report);
    void showAbout();
    void restorePlace();
    void savePlace() const;
    void addReportCommands();
    void showReportDialog(const char *member);
    void editLayout();

    QObject *m_library;
    SampleHost *m_host;
    QString m_outputFolder;
    QList<DealerReport> m_reports;
    QStringList m_findings;    // by row: what the printer cannot print, "" for nothing
    QString m_status;          // the status line when no report with findings is selected
    bool m_anyPrinter = false; // some configuration has a printer, its own or the default
    QTreeWidget *m_list;
    // The status line: a widget of the status bar, which a menu's passing status tips only
    // hide for a moment, where showMessage() text is wiped by them.
    QLabel *m_statusLine;
    bool m_columnsPlaced = false; // restored, or fitted to their contents
    DiagnosticsWindow *m_diagnostics;
    QList<QAction *> m_anyReport, m_generalReport;
    QList<TourStep> m_tour;
    bool m_unattended = false;
};
