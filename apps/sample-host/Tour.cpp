#include "Tour.h"

#include "DiagnosticsWindow.h"
#include "MainWindow.h"
#include "ReportOutput.h"

#include "library/LateBinding.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QPixmap>
#include <QScreen>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>
#include <functional>

bool SaveDialog(QWidget *dialog, const QString &outputFolder, const QString &name)
{
    bool saved = SaveScreenshot(dialog, outputFolder, name);
    auto *tabs = dialog->findChild<QTabWidget *>();
    if (!tabs)
        return saved;
    // A disabled tab cannot be opened by a user, so it is never shown as if it were open.
    const int opened = tabs->currentIndex();
    for (int i = 0; i < tabs->count(); ++i) {
        if (i == opened || !tabs->isTabEnabled(i))
            continue;
        tabs->setCurrentIndex(i);
        QApplication::processEvents();
        const QString tab = tabs->tabText(i)
                                .remove(QLatin1Char('&'))
                                .toLower()
                                .replace(QLatin1Char(' '), QLatin1Char('-'));
        saved = SaveScreenshot(dialog, outputFolder, name + QLatin1Char('-') + tab) && saved;
    }
    tabs->setCurrentIndex(opened);
    return saved;
}

namespace {

// File names of the tour's outputs: "Open Orders" gives "open-orders".
QString slug(QString text) { return text.toLower().replace(QLatin1Char(' '), QLatin1Char('-')); }

// Runs `action` on the next modal widget that is named, or is of the class, `name`.
void whenModal(const char *name, std::function<void(QWidget *)> action)
{
    auto *timer = new QTimer;
    timer->setInterval(50);
    QObject::connect(timer, &QTimer::timeout, [timer, name, action]() {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal || (modal->objectName() != QLatin1String(name) && !modal->inherits(name)))
            return;
        timer->stop();
        timer->deleteLater();
        action(modal);
    });
    timer->start();
}

// The printer configurations dialog as a user works in it: its printer drop-down open
// (a pop-up of its own, so the screen is photographed), then a rename to a name that is
// taken, and the message that refuses it.
void printerConfigurationsAtWork(MainWindow &window, const QString &outputFolder, int &failures)
{
    whenModal("frmPrinterConfigurations", [&](QWidget *dialog) {
        auto *grid = dialog->findChild<QTreeWidget *>(QStringLiteral("rptPrinters"));
        if (!grid || grid->topLevelItemCount() < 2) {
            ++failures;
            dialog->close();
            return;
        }
        grid->setCurrentItem(grid->topLevelItem(0), 1);
        grid->editItem(grid->topLevelItem(0), 1);
        QTimer::singleShot(300, dialog, [&, dialog, grid]() {
            const QRect area(dialog->mapToGlobal(QPoint(0, 0)), dialog->size());
            if (!dialog->screen()
                     ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
                     .save(
                         QDir(outputFolder)
                             .filePath(QStringLiteral("printer-configurations-printer-list.png"))))
                ++failures;
            if (QWidget *popup = QApplication::activePopupWidget())
                popup->close();
            // Once the drop-down's editor has gone, as a user's next step would wait for it.
            QTimer::singleShot(100, dialog, [&, dialog, grid]() {
                whenModal("QMessageBox", [&, dialog](QWidget *box) {
                    if (!SaveScreenshot(box, outputFolder,
                                        QStringLiteral("printer-configurations-rename-refused")))
                        ++failures;
                    box->close();
                    QTimer::singleShot(0, dialog, &QWidget::close);
                });
                grid->topLevelItem(0)->setText(0, grid->topLevelItem(1)->text(0));
            });
        });
    });
    bravcpl5::late::call(window.library(), "ShowPrinterConfigurations");
}

} // namespace

bool SaveScreenshot(QWidget *widget, const QString &outputFolder, const QString &name)
{
    return widget->grab().save(QDir(outputFolder).filePath(name + QStringLiteral(".png")));
}

int RunTour(MainWindow &window, const QString &outputFolder)
{
    int failures = 0;
    window.setUnattended(true);
    // A modal dialog blocks its step until it closes, so it is photographed and closed
    // from a timer running inside its own event loop.
    const auto runStep = [&](const QString &screenshotName, const std::function<void()> &run) {
        QTimer watcher;
        watcher.setInterval(100);
        QObject::connect(&watcher, &QTimer::timeout, [&]() {
            QWidget *modal = QApplication::activeModalWidget();
            if (!modal)
                return;
            watcher.stop();
            QApplication::processEvents();
            if (!SaveDialog(modal, outputFolder, screenshotName))
                ++failures;
            if (auto *dialog = qobject_cast<QDialog *>(modal))
                dialog->reject();
            else
                modal->close();
        });
        watcher.start();
        run();
        watcher.stop();
        QApplication::processEvents();
    };

    // As a host does on start-up; a message it shows is photographed.
    runStep(QStringLiteral("verify-on-start-up"), [&]() { window.verifyPrinterConfigurations(); });
    QApplication::processEvents();
    if (!SaveScreenshot(&window, outputFolder, QStringLiteral("main-window")))
        ++failures;

    const ReportOutputContext context{window.library(), window.host(), &window};
    const QList<DealerReport> &reports = window.reports();
    for (int i = 0; i < reports.size(); ++i) {
        const QString name = slug(reports[i].name);
        if (!WriteReportPdf(context, reports[i],
                            QDir(outputFolder).filePath(name + QStringLiteral(".pdf"))))
            ++failures;
        if (name == QLatin1String("product-price-list")
            || reports[i].kind != DealerReport::Kind::General)
            runStep(QStringLiteral("preview-") + name,
                    [&]() { PreviewReport(context, reports[i]); });
    }

    // The report commands work on the first report, a general one.
    window.selectReport(0);
    for (const MainWindow::TourStep &step : window.tourSteps())
        runStep(step.screenshotName, step.run);

    printerConfigurationsAtWork(window, outputFolder, failures);

    window.diagnostics()->showUpdated();
    QApplication::processEvents();
    if (!SaveScreenshot(window.diagnostics(), outputFolder, QStringLiteral("diagnostics")))
        ++failures;
    window.diagnostics()->close();
    return failures == 0 ? 0 : 1;
}
