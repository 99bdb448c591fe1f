#pragma once

// The printer configurations dialog: every configuration of the store with the printer it
// uses on this machine and its file. A configuration is renamed by editing its name and
// given a printer by choosing one in its row; the commands set its page up, open its
// printer's properties, copy it into the user folder and delete it. The dialog keeps its
// rows as values, read once it has been shown and again after every change to the files.
// Each row is checked against the printer it prints on: a row with findings is marked in
// its printer cell, and the line under the grid states the selected row's findings.

#include "forms/ModalForm.h"
#include "printers/CachedPrinterInfo.h"
#include "printing/ConfigurationCommands.h"
#include "printing/PrinterCheck.h"

#include <QPointer>
#include <memory>

namespace Ui {
class frmPrinterConfigurations;
}
class QAction;
class QTreeWidgetItem;

namespace bravcpl5 {

class Library;
class PrinterConfigurations;

class frmPrinterConfigurations : public ModalForm
{
    Q_OBJECT

public:
    explicit frmPrinterConfigurations(QWidget *parent = nullptr);
    ~frmPrinterConfigurations() override;

    void SetUp(Library *owner);

    const QList<ConfigurationRow> &rows() const { return m_rows; }

protected:
    void firstActivation() override;

private:
    void LoadList();
    void UpdateCommands();
    // Marks the row's printer cell by its check and, for the selected row, the line.
    void showCheck(int row);
    void showSelectedCheck();
    void runCommand(ConfigurationCommand command);
    void rptPrinters_AfterEdit(QTreeWidgetItem *item, int column);
    void renameConfiguration(int row, const QString &name);
    void assignPrinter(int row, const QString &printer);
    void cmdPageSetup_Click();
    void cmdCopy_Click();
    void deleteConfiguration();
    void showPrinterProperties();
    void lblShowPrinters_Click();

    // Tells the user why a command made no change.
    void tell(ConfigurationCommand command, const ConfigurationChange &change, const QString &name,
              const QString &requested = QString());
    // The selected row's index, or -1.
    int selectedRow() const;
    void selectConfiguration(const QString &name);
    // Puts the row's own text back into a cell an edit was refused for.
    void restoreCell(int row, int column);

    std::unique_ptr<Ui::frmPrinterConfigurations> ui;
    QList<QAction *> m_commands;
    QPointer<PrinterConfigurations> m_store;
    QList<ConfigurationRow> m_rows;
    QList<ConfigurationCheck> m_checks; // each row's, in the rows' order
    CachedPrinterInfo m_info;           // read once while the dialog is open, again by Refresh
    bool m_loading = false;
};

} // namespace bravcpl5
