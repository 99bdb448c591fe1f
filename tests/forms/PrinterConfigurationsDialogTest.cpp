// The printer configurations dialog through Library.ShowPrinterConfigurations, driven by
// control name over a temporary settings tree: the rows and their commands, renaming,
// copying, deleting and assigning printers, and what reaches the files and the registry.

#include "forms/CellEditor.h"
#include "forms/frmPrinterConfigurations.h"
#include "library/Xml.h"
#include "printers/PrinterInfo.h"
#include "printers/SystemPrinters.h"
#include "printing/PrinterConfigurations.h"
#include "support/DialogDriver.h"
#include "support/ListedPrinters.h"
#include "support/MessageRecorder.h"
#include "support/PaperPrinters.h"
#include "support/SmallFileSystem.h"
#include "support/StoreFixture.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QToolBar>
#include <QToolTip>
#include <QTreeWidget>

namespace bravcpl5::test {
namespace {

// Records what the dialog asked the system to open; `failure` is what it then reports, and
// with one the system has no properties view to open either.
struct RecordingSystemPrinters final : SystemPrinters {
    QStringList *opened;
    QString failure;
    QString openPrinters() override
    {
        opened->append(QStringLiteral("printers"));
        return failure;
    }
    bool openPrinterProperties(const QString &printer) override
    {
        opened->append(QStringLiteral("properties of ") + printer);
        return failure.isEmpty();
    }
};

QTreeWidget *grid(QWidget *dialog) { return child<QTreeWidget>(dialog, "rptPrinters"); }

// The rows as "name | printer | file name".
QStringList shown(QWidget *dialog)
{
    QStringList rows;
    QTreeWidget *list = grid(dialog);
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = list->topLevelItem(i);
        rows << item->text(0) + " | " + item->text(1) + " | " + QDir(item->text(2)).dirName();
    }
    return rows;
}

void select(QWidget *dialog, const QString &name)
{
    const QList<QTreeWidgetItem *> found = grid(dialog)->findItems(name, Qt::MatchExactly, 0);
    ASSERT_EQ(found.size(), 1) << name.toStdString();
    grid(dialog)->setCurrentItem(found.first(), 0);
}

QAction *command(QWidget *dialog, int id)
{
    for (QAction *action : child<QToolBar>(dialog, "CommandBarsFrame1")->actions()) {
        if (action->data().toInt() == id)
            return action;
    }
    ADD_FAILURE() << "no command " << id;
    return nullptr;
}

class PrinterConfigurationsDialog : public StoreFixture
{
protected:
    void SetUp() override
    {
        StoreFixture::SetUp();
        SetPrinterInfo(std::make_unique<ListedPrinters>(
            QStringList{"Office-Laser", "Label-Printer", "Plotter"},
            QStringLiteral("Office-Laser")));
        auto system = std::make_unique<RecordingSystemPrinters>();
        system->opened = &opened;
        systemPrinters = system.get();
        SetSystemPrinters(std::move(system));
        letter = host.writeSystemFile(QStringLiteral("Letter.pcx"),
                                      configurationXml("<TopMargin>1</TopMargin>", 1));
        invoice = host.writeUserFile(QStringLiteral("Invoice.pcx"),
                                     configurationXml("<TopMargin>.5</TopMargin>"));
        plain = host.writeUserFile(QStringLiteral("Plain.pcx"), configurationXml(""));
        store->SetPrinterForConfiguration(QStringLiteral("Letter"), QStringLiteral("Office-Laser"));
        store->SetPrinterForConfiguration(QStringLiteral("Invoice"),
                                          QStringLiteral("Label-Printer"));
        store->SetPrinterForConfiguration(QStringLiteral("(Default)"),
                                          QStringLiteral("Office-Laser"));
    }
    void TearDown() override
    {
        SetSystemPrinters(nullptr);
        SetPrinterInfo(nullptr);
        StoreFixture::TearDown();
    }

    void run(std::function<void(QWidget *)> action)
    {
        WhenModal(QStringLiteral("frmPrinterConfigurations"), [&](QWidget *dialog) {
            action(dialog);
            child<QPushButton>(dialog, "cmdClose")->click();
        });
        library.ShowPrinterConfigurations();
    }

    QString letter, invoice, plain;
    QStringList opened;
    RecordingSystemPrinters *systemPrinters = nullptr;
};

TEST_F(PrinterConfigurationsDialog, RowsShowEachConfigurationsOwnPrinterAndFileWithTheirCommands)
{
    run([&](QWidget *d) {
        EXPECT_EQ(d->windowTitle(), "Printer Configurations");
        EXPECT_EQ(shown(d),
                  QStringList({"Letter | Office-Laser | Letter.pcx",
                               "Invoice | Label-Printer | Invoice.pcx", "Plain |  | Plain.pcx"}));
        EXPECT_EQ(grid(d)->topLevelItem(2)->data(1, GridHintRole).toString(),
                  "uses the default printer");
        struct Case {
            const char *row;
            bool pageSetup, properties, copy, del;
        };
        for (const Case &c :
             {Case{"Letter", false, true, true, false}, Case{"Invoice", true, true, true, true},
              Case{"Plain", true, true, false, false}}) {
            select(d, QString::fromLatin1(c.row));
            EXPECT_EQ(command(d, 1004)->isEnabled(), c.pageSetup) << c.row;
            EXPECT_EQ(child<QPushButton>(d, "cmdPageSetup")->isEnabled(), c.pageSetup) << c.row;
            EXPECT_EQ(command(d, 1003)->isEnabled(), c.properties) << c.row;
            EXPECT_EQ(command(d, 1006)->isEnabled(), c.copy) << c.row;
            EXPECT_EQ(child<QPushButton>(d, "cmdCopy")->isEnabled(), c.copy) << c.row;
            EXPECT_EQ(command(d, 1005)->isEnabled(), c.del) << c.row;
        }
        SaveScreenshot(d, QStringLiteral("printer-configurations"));
    });
}

TEST_F(PrinterConfigurationsDialog, RenamingMovesTheFileAndItsPrinterOrRefusesAndTouchesNothing)
{
    MessageRecorder messages;
    const QString systemFolder = host.systemFolder() + QLatin1Char('/');
    run([&](QWidget *d) {
        // Refused names, one of each kind: the cell keeps its name and no file moves.
        const std::pair<const char *, QString> refused[] = {
            {"Invoice", "The printer configuration cannot be renamed becuase a printer "
                        "configuration with the name '"
                            + systemFolder + "Invoice.pcx' already exists."},
            {"../x", "The printer configuration cannot be renamed to '../x' because a name cannot "
                     "contain any of "
                     "these characters: \\ / : * ? \" < > |"},
            {"   ", "The printer configuration must have a name."},
            {"LPT1", "The printer configuration cannot be renamed to 'LPT1' because that name is "
                     "reserved by the "
                     "system."},
        };
        QFile::copy(invoice, systemFolder + "Invoice.pcx"); // an existing name beside Letter
        for (const auto &[name, message] : refused) {
            grid(d)->topLevelItem(0)->setText(0, QString::fromLatin1(name));
            EXPECT_EQ(grid(d)->topLevelItem(0)->text(0), "Letter") << name;
            EXPECT_EQ(messages.texts().value(messages.texts().size() - 1), message) << name;
            EXPECT_TRUE(QFile::exists(letter)) << name;
        }
        EXPECT_EQ(QDir(host.systemFolder()).entryList(QDir::Files),
                  QStringList({"Invoice.pcx", "Letter.pcx"}));
        EXPECT_EQ(QDir(host.root()).entryList({"x*"}), QStringList());

        // Typed into the in-place editor, as a user renames.
        select(d, QStringLiteral("Letter"));
        TypeIntoCell(grid(d), 0, 0, QStringLiteral("Invoices"));
        Settle();
        EXPECT_TRUE(shown(d).contains("Invoices | Office-Laser | Invoices.pcx"))
            << shown(d).join('\n').toStdString();
    });
    EXPECT_FALSE(QFile::exists(letter));
    EXPECT_TRUE(QFile::exists(systemFolder + "Invoices.pcx"));
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Invoices"), true), "Office-Laser");
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Letter"), true),
              "Office-Laser"); // left in place
}

TEST_F(PrinterConfigurationsDialog, CopyingASharedConfigurationMakesItTheUsersAndAUserOneGetsACopy)
{
    run([&](QWidget *d) {
        select(d, QStringLiteral("Letter"));
        child<QPushButton>(d, "cmdCopy")->click();
        const QString userLetter = host.userFolder() + QStringLiteral("/Letter.pcx");
        ASSERT_TRUE(QFile::exists(userLetter));
        const XmlDocumentPtr copy = LoadXmlFile(userLetter);
        ASSERT_TRUE(copy);
        EXPECT_EQ(NodeText(SelectSingleNode(*copy, QStringLiteral("//Identification/System"))),
                  "0");
        EXPECT_EQ(NodeText(SelectSingleNode(*copy, QStringLiteral("//PageSetup/TopMargin"))), "1");
        // The user's copy now wins lookups by name, and is the user's to set up and delete.
        EXPECT_EQ(grid(d)->topLevelItem(0)->text(2), userLetter);
        select(d, QStringLiteral("Letter"));
        EXPECT_TRUE(command(d, 1004)->isEnabled());
        EXPECT_TRUE(command(d, 1005)->isEnabled());

        select(d, QStringLiteral("Invoice"));
        command(d, 1006)->trigger();
        select(d, QStringLiteral("Invoice"));
        command(d, 1006)->trigger();
        EXPECT_TRUE(shown(d).contains("Invoice - Copy | Label-Printer | Invoice - Copy.pcx"));
        EXPECT_TRUE(
            shown(d).contains("Invoice - Copy (2) | Label-Printer | Invoice - Copy (2).pcx"));
    });
    QFile original(invoice);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    EXPECT_TRUE(
        original.readAll().contains("<TopMargin>.5</TopMargin>")); // the original is left alone
}

TEST_F(PrinterConfigurationsDialog, DeletingAsksFirstAndOnlyYesDeletes)
{
    for (const QMessageBox::StandardButton answer : {QMessageBox::No, QMessageBox::Yes}) {
        MessageRecorder messages({answer});
        run([&](QWidget *d) {
            select(d, QStringLiteral("Invoice"));
            command(d, 1005)->trigger();
        });
        EXPECT_EQ(
            messages.texts(),
            QStringList{"Are you sure you want to delete the printer configuration 'Invoice'?"});
        ASSERT_EQ(messages.messages().size(), 1);
        EXPECT_EQ(messages.messages()[0].icon, QMessageBox::Question);
        EXPECT_EQ(QFile::exists(invoice), answer == QMessageBox::No);
    }
}

TEST_F(PrinterConfigurationsDialog, ChoosingAPrinterAssignsIt)
{
    run([&](QWidget *d) {
        EXPECT_EQ(OpenChoices(grid(d), 2, 1),
                  QStringList({"Office-Laser", "Label-Printer", "Plotter"}));
        EXPECT_TRUE(PickChoice(QStringLiteral("Plotter")));
        Settle();
        select(d, QStringLiteral("Plain"));
        EXPECT_TRUE(command(d, 1006)->isEnabled()); // a printer entry now
        grid(d)->topLevelItem(0)->setText(1, QStringLiteral("Label-Printer"));
    });
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Plain"), true), "Plotter");
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Letter"), true), "Label-Printer");
}

TEST_F(PrinterConfigurationsDialog, PrinterPropertiesAndThePrintersFolderOpenTheSystemsOwn)
{
    MessageRecorder messages;
    run([&](QWidget *d) {
        select(d, QStringLiteral("Plain")); // no printer of its own: the default one
        command(d, 1003)->trigger();
        select(d, QStringLiteral("Invoice"));
        command(d, 1003)->trigger();
        child<QLabel>(d, "lblShowPrinters")->linkActivated(QStringLiteral("printers"));
        systemPrinters->failure = QStringLiteral("system-config-printer");
        child<QLabel>(d, "lblShowPrinters")->linkActivated(QStringLiteral("printers"));
    });
    EXPECT_EQ(opened, QStringList({"properties of Office-Laser", "properties of Label-Printer",
                                   "printers", "printers"}));
    EXPECT_EQ(
        messages.texts(),
        QStringList{"The printers of this computer could not be shown (system-config-printer)."});
}

TEST_F(PrinterConfigurationsDialog, VerifyingWithAFixAnsweredYesOpensTheDialog)
{
    MessageRecorder messages({QMessageBox::Yes});
    bool opened = false;
    WhenModal(QStringLiteral("frmPrinterConfigurations"), [&](QWidget *d) {
        opened = true;
        d->close();
    });
    EXPECT_FALSE(store->VerifyPrinterConfigurations(true, true)); // Plain has no printer
    EXPECT_TRUE(opened);
}

// On a full disk, and in a folder that takes no change, each command either happens whole or
// changes nothing, and says so: no printer shown that was not saved, no renamed file whose
// printer stayed behind, no half copy.
TEST_F(PrinterConfigurationsDialog, OnAFullDiskEveryCommandIsWholeOrNothingAndSaysSo)
{
    SmallFileSystem fs(256 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    host.testOptions().userFolder = fs.filePath(QStringLiteral("Reports"));
    const QString userInvoice = writeFile(fs.filePath(QStringLiteral("Reports/Invoice.pcx")),
                                          configurationXml("<TopMargin>.5</TopMargin>"));
    writeFile(fs.filePath(QStringLiteral("Reports/Plain.pcx")), configurationXml(""));
    SetRegistryFile(fs.filePath(QStringLiteral("registry.ini")));
    store->SetPrinterForConfiguration(QStringLiteral("Letter"), QStringLiteral("Office-Laser"));
    store->SetPrinterForConfiguration(QStringLiteral("Invoice"), QStringLiteral("Label-Printer"));
    fs.fill();
    const QByteArray registry = readFile(RegistryFile());
    const auto userFiles = [&]() { return QDir(host.userFolder()).entryList(QDir::Files); };
    const QStringList files = userFiles();

    MessageRecorder messages(
        {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Ok});
    frmPrinterConfigurations form;
    form.SetUp(&library);
    form.show();
    Settle();
    const auto item = [&](const QString &name) {
        return grid(&form)->findItems(name, Qt::MatchExactly, 0).value(0);
    };
    ASSERT_TRUE(item("Plain") && item("Invoice") && item("Letter"));

    item("Plain")->setText(1, QStringLiteral("Plotter"));
    select(&form, QStringLiteral("Letter"));
    child<QPushButton>(&form, "cmdCopy")->click();
    item("Invoice")->setText(0, QStringLiteral("Invoices"));
    ASSERT_TRUE(fs.lockFolderKeepingFileWritable(userInvoice));
    select(&form, QStringLiteral("Invoice"));
    command(&form, 1005)->trigger();

    EXPECT_EQ(messages.texts(),
              QStringList({"The printer 'Plotter' could not be assigned to the printer "
                           "configuration 'Plain'.",
                           "The printer configuration 'Letter' could not be copied.",
                           "The printer configuration 'Invoice' could not be renamed.",
                           "Are you sure you want to delete the printer configuration 'Invoice'?",
                           "The printer configuration could not be deleted."}));
    EXPECT_EQ(readFile(RegistryFile()), registry);
    EXPECT_EQ(userFiles(), files);
    EXPECT_EQ(form.rows(), store->configurations());
    EXPECT_TRUE(shown(&form).contains("Plain |  | Plain.pcx"))
        << shown(&form).join('\n').toStdString();
}

// The same store with printers that have paper: each configuration is checked against the
// printer it prints on, its own else the default one.
class CheckedPrinterConfigurationsDialog : public PrinterConfigurationsDialog
{
protected:
    void SetUp() override
    {
        PrinterConfigurationsDialog::SetUp();
        auto info = std::make_unique<PaperPrinters>();
        printers = info.get();
        printers->add(QStringLiteral("Office-Laser"), QuarterInchLaser());
        PrinterPaper label;
        label.sizes = {{QStringLiteral("Shipping Label 4 x 6 in"), 256, 5760, 8640}};
        label.bins = {{QStringLiteral("Roll"), 256}};
        printers->add(QStringLiteral("Label-Printer"), label);
        PrinterPaper jammed = QuarterInchLaser();
        jammed.state.stopped = true;
        jammed.state.reasons = QStringList{QStringLiteral("media-jam-error")};
        printers->add(QStringLiteral("Stopped-Laser"), jammed);
        printers->defaultName = QStringLiteral("Office-Laser");
        SetPrinterInfo(std::move(info));
        for (const Configuration &c : configurations) {
            host.writeUserFile(QString::fromLatin1(c.name) + ".pcx", configurationXml(c.pageSetup));
            store->SetPrinterForConfiguration(QString::fromLatin1(c.name),
                                              QString::fromLatin1(c.printer));
        }
    }

    QTreeWidgetItem *item(QWidget *dialog, const char *name)
    {
        return grid(dialog)->findItems(QString::fromLatin1(name), Qt::MatchExactly, 0).value(0);
    }
    QString line(QWidget *dialog) { return child<QLabel>(dialog, "lblFindings")->text(); }

    struct Configuration {
        const char *name, *printer;
        QByteArray pageSetup;
        QString findings; // the printer cell's tooltip and the line; "" for none
    };
    const QList<Configuration> configurations = {
        {"Legal", "Office-Laser", "<PaperSize>5</PaperSize>",
         "Legal (8.5 x 14 in) is not a paper size of Office-Laser"},
        {"Envelope", "Office-Laser", "<PaperSize>1</PaperSize><PaperSource>5</PaperSource>",
         "The Envelope bin (5) is not a paper source of Office-Laser"},
        {"Narrow", "Office-Laser",
         "<PaperSize>1</PaperSize><TopMargin>.1</TopMargin><LeftMargin>.2</LeftMargin>",
         "Office-Laser cannot print so near the edge: top 0.1 in (at least 0.25 in), left 0.2 in "
         "(at least 0.25 in)"},
        {"Jammed", "Stopped-Laser", "<PaperSize>1</PaperSize>",
         "Stopped-Laser is stopped\nStopped-Laser needs attention: media-jam-error"},
        {"Gone", "Old-Printer", "", "Old-Printer is not installed on this workstation"},
        {"Shipping", "Label-Printer",
         "<PaperSize>256</PaperSize><PaperWidth>4</PaperWidth><PaperHeight>6</PaperHeight>"
         "<TopMargin>.1</TopMargin><BottomMargin>.1</BottomMargin><LeftMargin>.1</LeftMargin>"
         "<RightMargin>.1</RightMargin>",
         ""},
        {"Quarter", "Office-Laser",
         "<PaperSize>1</PaperSize><TopMargin>.25</TopMargin><PaperSource>4</PaperSource>", ""},
    };
    PaperPrinters *printers = nullptr;
};

TEST_F(CheckedPrinterConfigurationsDialog,
       ARowWithFindingsIsMarkedInItsPrinterCellAndTheLineSaysWhy)
{
    frmPrinterConfigurations form;
    form.SetUp(&library);
    form.show();
    Settle();
    QList<Configuration> rows = configurations;
    rows += {{"Letter", "Office-Laser", {}, ""}, {"Plain", "", {}, ""}}; // the fixture's own
    for (const Configuration &c : std::as_const(rows)) {
        QTreeWidgetItem *row = item(&form, c.name);
        ASSERT_TRUE(row) << c.name;
        EXPECT_EQ(row->icon(1).isNull(), c.findings.isEmpty()) << c.name;
        EXPECT_EQ(row->toolTip(1), c.findings) << c.name;
        EXPECT_TRUE(row->icon(0).isNull() && row->toolTip(0).isEmpty()) << c.name;
        select(&form, QString::fromLatin1(c.name));
        const QString printer = *c.printer ? QString::fromLatin1(c.printer)
                                           : QStringLiteral("Office-Laser");
        EXPECT_EQ(line(&form), c.findings.isEmpty() ? QString::fromLatin1(c.name) + " prints on "
                                                          + printer + " as it is set up."
                                                    : c.findings)
            << c.name;
    }
    // Each printer was read once for all the rows.
    EXPECT_EQ(printers->reads, 3);

    select(&form, QStringLiteral("Narrow"));
    QToolTip::showText(grid(&form)->mapToGlobal(QPoint(0, 0)), item(&form, "Jammed")->toolTip(1),
                       grid(&form));
    SaveScreenshot(&form, QStringLiteral("printer-configurations-findings"));
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->inherits("QTipLabel") && window->isVisible())
            SaveScreenshot(window, QStringLiteral("printer-configurations-findings-tooltip"));
    }
    QToolTip::hideText();
}

TEST_F(CheckedPrinterConfigurationsDialog,
       AssigningAPrinterChecksTheRowAgainAtOnceAndRefreshRereads)
{
    MessageRecorder messages;
    frmPrinterConfigurations form;
    form.SetUp(&library);
    form.show();
    Settle();
    select(&form, QStringLiteral("Jammed"));
    struct Case {
        const char *row, *printer;
        bool marked;
    };
    for (const Case &c :
         {Case{"Jammed", "Office-Laser", false}, Case{"Letter", "Stopped-Laser", true},
          Case{"Legal", "Label-Printer", true}, Case{"Gone", "Office-Laser", false},
          Case{"Quarter", "Label-Printer", true}}) {
        item(&form, c.row)->setText(1, QString::fromLatin1(c.printer));
        EXPECT_EQ(store->GetPrinterForConfiguration(QString::fromLatin1(c.row), true), c.printer);
        EXPECT_EQ(!item(&form, c.row)->icon(1).isNull(), c.marked) << c.row;
        EXPECT_EQ(!item(&form, c.row)->toolTip(1).isEmpty(), c.marked) << c.row;
    }
    // The selected row's line follows its new printer too.
    select(&form, QStringLiteral("Jammed"));
    EXPECT_EQ(line(&form), "Jammed prints on Office-Laser as it is set up.");
    item(&form, "Jammed")->setText(1, QStringLiteral("Stopped-Laser"));
    EXPECT_EQ(line(&form),
              "Stopped-Laser is stopped\nStopped-Laser needs attention: media-jam-error");

    // The printer is read once while the dialog is open; Refresh reads it again.
    printers->printers[QStringLiteral("Stopped-Laser")].state = PrinterState{true, false, true, {}};
    select(&form, QStringLiteral("Narrow"));
    EXPECT_FALSE(item(&form, "Jammed")->icon(1).isNull());
    command(&form, 1002)->trigger();
    EXPECT_TRUE(item(&form, "Jammed")->icon(1).isNull());
    EXPECT_TRUE(item(&form, "Letter")->icon(1).isNull());
    EXPECT_TRUE(line(&form).startsWith("Office-Laser cannot print so near the edge"))
        << line(&form).toStdString();
    EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join('\n').toStdString();
}

} // namespace
} // namespace bravcpl5::test
