// Printer Properties where the print server has no web interface: the sandbox's cupsd,
// reached through a socket of its own, so the printer configurations dialog shows the
// printer's details itself, as the print server gives them.

#include "forms/frmPrinterConfigurations.h"
#include "printers/SystemPrinters.h"
#include "support/DialogDriver.h"
#include "support/SandboxCups.h"
#include "support/StoreFixture.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QToolBar>
#include <QTreeWidget>

namespace bravcpl5::test {
namespace {

class PrinterDetailsDialog : public StoreFixture
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_CUPSD();
        if (!qEnvironmentVariable("CUPS_SERVER").startsWith(u'/'))
            GTEST_SKIP() << "the sandbox's cupsd is reached through a socket of its own";
        StoreFixture::SetUp();
        host.writeSystemFile(QStringLiteral("Letter.pcx"), configurationXml("", 1));
    }
};

// The details of each queue, as "caption: text" lines.
QStringList details(QWidget *dialog)
{
    QStringList lines;
    for (const char *name : {"lblName", "lblDescription", "lblMakeAndModel", "lblLocation",
                             "lblDeviceUri", "lblState", "lblPaper", "lblBin"})
        lines << QLatin1String(name) + QStringLiteral(": ") + child<QLabel>(dialog, name)->text();
    return lines;
}

TEST_F(PrinterDetailsDialog, ShowsWhatThePrintServerSaysOfThePrinter)
{
    const QString output = QFileInfo(qEnvironmentVariable("CUPS_SERVER")).path()
                           + QStringLiteral("/output/");
    // Every queue is the sandbox's test laser on Letter from its lower tray, printing into a
    // file named for it.
    const struct {
        const char *queue, *description, *state;
    } cases[] = {
        {"Office-Laser", "Office Laser", "Ready"},
        {"Stopped-Laser", "Stopped-Laser", "Stopped"},
        {"Rejecting-Laser", "Rejecting-Laser", "Ready, not accepting jobs"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.queue);
        const QString queue = QLatin1String(c.queue);
        const QStringList expected{"lblName: " + queue,
                                   QStringLiteral("lblDescription: ") + c.description,
                                   "lblMakeAndModel: Test Office Laser",
                                   "lblLocation: Sandbox",
                                   "lblDeviceUri: file://" + output + queue.toLower(),
                                   QStringLiteral("lblState: ") + c.state,
                                   "lblPaper: Letter (8.5 x 11 in)",
                                   "lblBin: Lower Tray"};
        store->SetPrinterForConfiguration(QStringLiteral("Letter"), queue);
        QStringList shown;
        WhenModal(QStringLiteral("frmPrinterConfigurations"), [&](QWidget *dialog) {
            auto *grid = child<QTreeWidget>(dialog, "rptPrinters");
            grid->setCurrentItem(
                grid->findItems(QStringLiteral("Letter"), Qt::MatchExactly).value(0));
            WhenModal(QStringLiteral("frmPrinterDetails"), [&](QWidget *details) {
                shown = bravcpl5::test::details(details);
                SaveScreenshot(details, QStringLiteral("printer-details-") + queue);
                child<QPushButton>(details, "cmdClose")->click();
            });
            for (QAction *command : child<QToolBar>(dialog, "CommandBarsFrame1")->actions())
                if (command->data().toInt() == 1003) // Printer Properties
                    command->trigger();
            child<QPushButton>(dialog, "cmdClose")->click();
        });
        library.ShowPrinterConfigurations();
        EXPECT_EQ(shown.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
    }
}

} // namespace
} // namespace bravcpl5::test
