#include "forms/frmPrinterConfigurations.h"

#include "ui_frmPrinterConfigurations.h"

#include "forms/ReportGrid.h"
#include "forms/frmPrinterDetails.h"
#include "library/Library.h"
#include "library/Messages.h"
#include "printers/PrinterInfo.h"
#include "printers/SystemPrinters.h"
#include "printing/PrinterConfigurations.h"

#include <QAction>
#include <QHash>
#include <QStyle>
#include <utility>

namespace bravcpl5 {

namespace {

enum Column { NameColumn, PrinterColumn, FileColumn };

QTreeWidgetItem *rowItem(const ConfigurationRow &row, const QString &defaultHint,
                         const QIcon &shared)
{
    auto *item = new QTreeWidgetItem({row.name, row.printer, row.file});
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    if (row.printer.isEmpty())
        item->setData(PrinterColumn, GridHintRole, defaultHint);
    // Shared configurations are marked, their texts left as they are.
    if (row.system) {
        item->setIcon(FileColumn, shared);
        item->setToolTip(FileColumn,
                         QStringLiteral("Shared by everyone who uses this computer's settings"));
    }
    return item;
}

// Each row's check, found by name: the store checks in its own listing order.
QList<ConfigurationCheck> checksOfRows(const QList<ConfigurationRow> &rows,
                                       const QList<ConfigurationCheck> &checks)
{
    QHash<QString, ConfigurationCheck> byName;
    for (const ConfigurationCheck &check : checks)
        byName.insert(check.configuration.toCaseFolded(), check);
    QList<ConfigurationCheck> ordered;
    for (const ConfigurationRow &row : rows)
        ordered.append(byName.value(row.name.toCaseFolded(), {row.name, row.printer, {}}));
    return ordered;
}

} // namespace

frmPrinterConfigurations::frmPrinterConfigurations(QWidget *parent)
    : ModalForm(parent, false, Placement::Remembered),
      ui(std::make_unique<Ui::frmPrinterConfigurations>()),
      m_info(CurrentPrinterInfo())
{
    ui->setupUi(this);

    for (ConfigurationCommand command : PrinterBarCommands()) {
        auto *action = new QAction(CommandCaption(command), this);
        action->setData(int(command));
        connect(action, &QAction::triggered, this, [this, command]() { runCommand(command); });
        m_commands.append(action);
    }
    ui->CommandBarsFrame1->addActions(m_commands);
    ui->rptPrinters->addActions(m_commands);

    CellEditor *editor = SetupReportGrid(
        ui->rptPrinters, {NameColumn, [this](const QModelIndex &index) {
                              switch (index.column()) {
                              case NameColumn:
                                  return GridCell::text();
                              case PrinterColumn:
                                  // This machine's printers as the dialog read them.
                                  return GridCell::list([this]() { return m_info.printerNames(); });
                              default:
                                  return GridCell::readOnly();
                              }
                          }});
    // Applied once the editor has closed: a rename reloads the whole list.
    connect(
        editor, &CellEditor::edited, this,
        [this](const QModelIndex &index, const QString &text) {
            if (QTreeWidgetItem *item = ui->rptPrinters->topLevelItem(index.row()))
                item->setText(index.column(), text);
        },
        Qt::QueuedConnection);
    connect(ui->rptPrinters, &QTreeWidget::itemChanged, this,
            &frmPrinterConfigurations::rptPrinters_AfterEdit);
    connect(ui->rptPrinters, &QTreeWidget::itemSelectionChanged, this,
            &frmPrinterConfigurations::UpdateCommands);
    connect(ui->rptPrinters, &QTreeWidget::itemSelectionChanged, this,
            &frmPrinterConfigurations::showSelectedCheck);
    connect(ui->cmdPageSetup, &QPushButton::clicked, this,
            &frmPrinterConfigurations::cmdPageSetup_Click);
    connect(ui->cmdCopy, &QPushButton::clicked, this, &frmPrinterConfigurations::cmdCopy_Click);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->lblShowPrinters, &QLabel::linkActivated, this,
            &frmPrinterConfigurations::lblShowPrinters_Click);
    UpdateCommands();
}

frmPrinterConfigurations::~frmPrinterConfigurations() = default;

void frmPrinterConfigurations::SetUp(Library *owner)
{
    setOwner(owner);
    m_store = owner ? owner->printerConfigurations() : nullptr;
}

void frmPrinterConfigurations::firstActivation() { LoadList(); }

void frmPrinterConfigurations::LoadList()
{
    const int selected = selectedRow();
    const QString current = selected >= 0 ? m_rows[selected].name : QString();
    m_rows = m_store ? m_store->configurations() : QList<ConfigurationRow>();
    m_checks = checksOfRows(m_rows, m_store ? m_store->checkConfigurations(m_info)
                                            : QList<ConfigurationCheck>());
    const QString fallback = m_store ? m_store->GetPrinterForConfiguration(
                                 QString::fromLatin1(DefaultPrinterValueName), true)
                                     : QString();
    // An empty printer cell prints with the default printer, when there is one.
    const QString hint = fallback.isEmpty() ? QString()
                                            : QStringLiteral("uses the default printer");
    const QIcon shared = style()->standardIcon(QStyle::SP_DriveNetIcon);
    QList<QTreeWidgetItem *> items;
    for (const ConfigurationRow &row : std::as_const(m_rows))
        items.append(rowItem(row, hint, shared));
    m_loading = true;
    ShowGridRows(ui->rptPrinters, items, NameColumn);
    for (int row = 0; row < m_rows.size(); ++row)
        showCheck(row);
    ui->rptPrinters->resizeColumnToContents(PrinterColumn);
    m_loading = false;
    if (!current.isEmpty())
        selectConfiguration(current);
    UpdateCommands();
    showSelectedCheck();
}

void frmPrinterConfigurations::showCheck(int row)
{
    QTreeWidgetItem *item = ui->rptPrinters->topLevelItem(row);
    if (!item)
        return;
    const QList<PrinterFinding> &findings = m_checks[row].findings;
    const bool loading = std::exchange(m_loading, true);
    item->setIcon(PrinterColumn, findings.isEmpty()
                                     ? QIcon()
                                     : style()->standardIcon(QStyle::SP_MessageBoxWarning));
    item->setToolTip(PrinterColumn, findings.isEmpty() ? QString() : DescribeFindings(findings));
    m_loading = loading;
    if (row == selectedRow())
        showSelectedCheck();
}

void frmPrinterConfigurations::showSelectedCheck()
{
    const int row = selectedRow();
    if (row < 0 || row >= m_checks.size()) {
        ui->lblFindings->clear();
        return;
    }
    const ConfigurationCheck &check = m_checks[row];
    if (!check.findings.isEmpty())
        ui->lblFindings->setText(DescribeFindings(check.findings));
    else
        ui->lblFindings->setText(QStringLiteral("%1 prints on %2 as it is set up.")
                                     .arg(check.configuration, check.printer));
}

void frmPrinterConfigurations::UpdateCommands()
{
    const int row = selectedRow();
    const ConfigurationRow *selected = row >= 0 ? &m_rows[row] : nullptr;
    for (QAction *action : std::as_const(m_commands))
        action->setEnabled(
            IsCommandEnabled(ConfigurationCommand(action->data().toInt()), selected));
    ui->cmdPageSetup->setEnabled(IsCommandEnabled(ConfigurationCommand::PageSetup, selected));
    ui->cmdCopy->setEnabled(IsCommandEnabled(ConfigurationCommand::Copy, selected));
}

void frmPrinterConfigurations::runCommand(ConfigurationCommand command)
{
    switch (command) {
    case ConfigurationCommand::Rename: // an edit of the name cell, not a toolbar command
        break;
    case ConfigurationCommand::Refresh:
        m_info.refresh();
        LoadList();
        break;
    case ConfigurationCommand::PrinterProperties:
        showPrinterProperties();
        break;
    case ConfigurationCommand::PageSetup:
        cmdPageSetup_Click();
        break;
    case ConfigurationCommand::Delete:
        deleteConfiguration();
        break;
    case ConfigurationCommand::Copy:
        cmdCopy_Click();
        break;
    }
}

void frmPrinterConfigurations::rptPrinters_AfterEdit(QTreeWidgetItem *item, int column)
{
    if (m_loading)
        return;
    const int row = ui->rptPrinters->indexOfTopLevelItem(item);
    if (row < 0 || row >= m_rows.size())
        return;
    if (column == NameColumn)
        renameConfiguration(row, item->text(NameColumn));
    else if (column == PrinterColumn)
        assignPrinter(row, item->text(PrinterColumn));
}

void frmPrinterConfigurations::renameConfiguration(int row, const QString &name)
{
    const ConfigurationRow old = m_rows[row];
    if (!m_store || name == old.name)
        return;
    const ConfigurationChange change = m_store->renameConfiguration(old.name, name);
    if (!change.done()) {
        restoreCell(row, NameColumn);
        tell(ConfigurationCommand::Rename, change, old.name, name);
        return;
    }
    LoadList();
    selectConfiguration(change.name);
}

void frmPrinterConfigurations::assignPrinter(int row, const QString &printer)
{
    if (!m_store || printer == m_rows[row].printer)
        return;
    if (!m_store->assignPrinter(m_rows[row].name, printer)) {
        restoreCell(row, PrinterColumn);
        ShowMessage(QStringLiteral("The printer '%1' could not be assigned to the printer "
                                   "configuration '%2'.")
                        .arg(printer, m_rows[row].name),
                    QMessageBox::Warning, QMessageBox::Ok, this);
        return;
    }
    m_rows[row].printer = printer;
    if (QTreeWidgetItem *item = ui->rptPrinters->topLevelItem(row))
        item->setData(PrinterColumn, GridHintRole, QVariant());
    // The row's check follows its new printer at once.
    const QList<ConfigurationCheck> checks = m_store->checkConfigurations(m_info, true,
                                                                          m_rows[row].name);
    m_checks[row] = checksOfRows({m_rows[row]}, checks).value(0);
    showCheck(row);
    UpdateCommands();
}

void frmPrinterConfigurations::cmdPageSetup_Click()
{
    const int row = selectedRow();
    if (row < 0 || !m_store || !IsCommandEnabled(ConfigurationCommand::PageSetup, &m_rows[row]))
        return;
    m_store->ShowPageSetup(m_rows[row].name, m_rows[row].printer);
}

void frmPrinterConfigurations::cmdCopy_Click()
{
    const int row = selectedRow();
    if (row < 0 || !m_store || !IsCommandEnabled(ConfigurationCommand::Copy, &m_rows[row]))
        return;
    const ConfigurationChange change = m_store->copyConfiguration(m_rows[row].name);
    if (!change.done())
        tell(ConfigurationCommand::Copy, change, m_rows[row].name);
    LoadList();
    if (change.done())
        selectConfiguration(change.name);
}

void frmPrinterConfigurations::deleteConfiguration()
{
    const int row = selectedRow();
    if (row < 0 || !m_store || !IsCommandEnabled(ConfigurationCommand::Delete, &m_rows[row]))
        return;
    const QString name = m_rows[row].name;
    if (ShowMessage(DeleteQuestion(name), QMessageBox::Question, QMessageBox::Yes | QMessageBox::No,
                    this)
        != QMessageBox::Yes)
        return;
    const ConfigurationChange change = m_store->deleteConfiguration(name);
    if (!change.done())
        tell(ConfigurationCommand::Delete, change, name);
    LoadList();
}

void frmPrinterConfigurations::tell(ConfigurationCommand command, const ConfigurationChange &change,
                                    const QString &name, const QString &requested)
{
    ShowMessage(ChangeMessage(command, change, name, requested), QMessageBox::Warning,
                QMessageBox::Ok, this);
}

void frmPrinterConfigurations::showPrinterProperties()
{
    const int row = selectedRow();
    if (row < 0 || !m_store)
        return;
    // The printer the configuration prints with: its own, else the default one.
    QString printer = m_store->GetPrinterForConfiguration(m_rows[row].name);
    if (printer.isEmpty())
        printer = CurrentPrinterInfo().defaultPrinterName();
    // The system's own view where it has one, else what the print system says here.
    if (!CurrentSystemPrinters().openPrinterProperties(printer))
        ShowPrinterDetails(printer);
}

void frmPrinterConfigurations::lblShowPrinters_Click()
{
    const QString failed = CurrentSystemPrinters().openPrinters();
    if (!failed.isEmpty())
        ShowMessage(
            QStringLiteral("The printers of this computer could not be shown (%1).").arg(failed),
            QMessageBox::Warning, QMessageBox::Ok, this);
}

int frmPrinterConfigurations::selectedRow() const
{
    const QList<QTreeWidgetItem *> selected = ui->rptPrinters->selectedItems();
    return selected.isEmpty() ? -1 : ui->rptPrinters->indexOfTopLevelItem(selected.first());
}

void frmPrinterConfigurations::selectConfiguration(const QString &name)
{
    for (int row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].name.compare(name, Qt::CaseInsensitive) == 0) {
            ui->rptPrinters->setCurrentItem(ui->rptPrinters->topLevelItem(row), NameColumn);
            return;
        }
    }
}

void frmPrinterConfigurations::restoreCell(int row, int column)
{
    QTreeWidgetItem *item = ui->rptPrinters->topLevelItem(row);
    if (!item)
        return;
    m_loading = true;
    item->setText(column, column == NameColumn ? m_rows[row].name : m_rows[row].printer);
    m_loading = false;
}

void Library::ShowPrinterConfigurations()
{
    ShowModalForm<frmPrinterConfigurations>(
        [&](frmPrinterConfigurations &form) { form.SetUp(this); });
}

} // namespace bravcpl5
