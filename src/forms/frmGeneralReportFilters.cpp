#include "forms/frmGeneralReportFilters.h"

#include "ui_frmGeneralReportFilters.h"

#include "forms/ReportGrid.h"
#include "forms/frmCustomDateRange.h"
#include "library/Library.h"
#include "library/Messages.h"

namespace bravcpl5 {

namespace {
enum Column { FilterColumn, ValueColumn, TypeColumn, AllowAllColumn };
constexpr int identifierRole = Qt::UserRole;
constexpr int descriptionRole = Qt::UserRole + 1;
} // namespace

frmGeneralReportFilters::frmGeneralReportFilters(QWidget *parent)
    : ReportConfigurationForm(parent), ui(std::make_unique<Ui::frmGeneralReportFilters>())
{
    ui->setupUi(this);
    ui->rptItems->setColumnHidden(TypeColumn, true);
    ui->rptItems->setColumnHidden(AllowAllColumn, true);
    CellEditor *editor = SetupReportGrid(
        ui->rptItems, {ValueColumn, [this](const QModelIndex &index) { return valueCell(index); }});
    // Queued: a custom date range opens its own dialog, which must not run inside the
    // closing cell editor.
    connect(
        editor, &CellEditor::edited, this,
        [this](const QModelIndex &index, const QString &text) { valueEdited(index.row(), text); },
        Qt::QueuedConnection);
    connect(ui->rptItems, &QTreeWidget::currentItemChanged, this,
            &frmGeneralReportFilters::showDescription);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmGeneralReportFilters::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmGeneralReportFilters::cmdCancel_Click);
    // Room for two lines of description, so the list does not jump between rows.
    ui->lblDescription->setMinimumHeight(ui->lblDescription->fontMetrics().lineSpacing() * 2);
}

frmGeneralReportFilters::~frmGeneralReportFilters() = default;

void frmGeneralReportFilters::firstActivation() { LoadItemList(); }

void frmGeneralReportFilters::LoadItemList()
{
    ui->rptItems->clear();
    m_rows = document() ? LoadFilterRows(host(), *document()) : QList<FilterRow>();
    QList<QTreeWidgetItem *> items;
    items.reserve(m_rows.size());
    for (const FilterRow &row : std::as_const(m_rows)) {
        auto *item = new QTreeWidgetItem(
            {row.caption, row.valueCaption, row.typeName, QString::number(row.allowAll)});
        item->setData(FilterColumn, identifierRole, row.identifier);
        item->setData(FilterColumn, descriptionRole, row.description);
        item->setToolTip(FilterColumn, row.description);
        item->setToolTip(ValueColumn, row.description);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        items.append(item);
    }
    ShowGridRows(ui->rptItems, items, ValueColumn);
}

GridCell frmGeneralReportFilters::valueCell(const QModelIndex &index) const
{
    if (index.column() != ValueColumn || index.row() >= m_rows.size())
        return GridCell::readOnly();
    const FilterRow &row = m_rows.at(index.row());
    if (!FilterTypeHasChoices(row.type))
        return GridCell::text();
    return GridCell::list([this, type = row.type, allowAll = row.allowAll]() {
        QStringList captions;
        const QList<FilterChoice> choices = FillFilterChoices(host(), type, allowAll);
        captions.reserve(choices.size());
        for (const FilterChoice &choice : choices)
            captions.append(choice.caption);
        return captions;
    });
}

void frmGeneralReportFilters::valueEdited(int index, const QString &text)
{
    QTreeWidgetItem *item = ui->rptItems->topLevelItem(index);
    if (!item || index >= m_rows.size() || text == m_rows.at(index).valueCaption)
        return;
    FilterRow &row = m_rows[index];
    ChangeFilterValue(row, text,
                      [this](QDate &start, QDate &end) { return editCustomRange(start, end); });
    item->setText(ValueColumn, row.valueCaption);
}

bool frmGeneralReportFilters::editCustomRange(QDate &start, QDate &end)
{
    QDate chosenStart, chosenEnd;
    const bool confirmed = ShowModalForm<frmCustomDateRange>(
        [&](frmCustomDateRange &form) { form.Initialize(start, end, owner()); },
        [&](frmCustomDateRange &form) {
            chosenStart = form.startDate();
            chosenEnd = form.endDate();
        });
    // Closed by its close box, the dialog reads as confirmed but has no dates.
    if (!confirmed || !chosenStart.isValid() || !chosenEnd.isValid())
        return false;
    start = chosenStart;
    end = chosenEnd;
    return true;
}

void frmGeneralReportFilters::showDescription(QTreeWidgetItem *item)
{
    ui->lblDescription->setText(item ? item->data(FilterColumn, descriptionRole).toString()
                                     : QString());
}

void frmGeneralReportFilters::cmdOK_Click()
{
    // Only a successful save confirms the dialog; a file that could not be loaded has
    // nothing to write, and one that could not be written is named to the user.
    QString why;
    if (!document() || SaveFilterValues(*document(), m_rows, configurationFile(), &why))
        setCancelled(false);
    else if (!why.isEmpty())
        ShowSaveFailure(configurationFile(), why, this);
    accept();
}

void frmGeneralReportFilters::cmdCancel_Click()
{
    setCancelled(true);
    reject();
}

bool Library::ShowGeneralReportFilters(const QString &ConfigurationFile)
{
    return ShowModalForm<frmGeneralReportFilters>(
        [&](frmGeneralReportFilters &form) { form.SetConfiguration(ConfigurationFile, this); });
}

} // namespace bravcpl5
