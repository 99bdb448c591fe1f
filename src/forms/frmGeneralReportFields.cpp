#include "forms/frmGeneralReportFields.h"

#include "ui_frmGeneralReportFields.h"

#include "forms/ReportGrid.h"
#include "library/Library.h"
#include "library/Messages.h"

namespace bravcpl5 {

namespace {
enum Column { FieldColumn, SizeColumn };
} // namespace

frmGeneralReportFields::frmGeneralReportFields(QWidget *parent)
    : ReportConfigurationForm(parent), ui(std::make_unique<Ui::frmGeneralReportFields>())
{
    ui->setupUi(this);
    CellEditor *editor = SetupReportGrid(ui->rptItems, {SizeColumn, EditColumnAsText(SizeColumn)});
    connect(editor, &CellEditor::edited, this, &frmGeneralReportFields::sizeEdited);
    // It opens tall enough to show twelve fields without scrolling (the sample price list
    // has twelve); a remembered size, or the user, may make it smaller.
    const int taller = GridHeightForRows(ui->rptItems, 12) - ui->rptItems->sizeHint().height();
    resize(width(), qMax(height(), sizeHint().height() + taller));
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmGeneralReportFields::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmGeneralReportFields::~frmGeneralReportFields() = default;

void frmGeneralReportFields::firstActivation() { LoadItemList(); }

void frmGeneralReportFields::LoadItemList()
{
    ui->rptItems->clear();
    m_fields = LoadReportFields(document());
    QList<QTreeWidgetItem *> rows;
    rows.reserve(m_fields.size());
    for (const OutputField &field : std::as_const(m_fields)) {
        auto *row = new QTreeWidgetItem({field.label, field.size});
        row->setFlags(row->flags() | Qt::ItemIsEditable);
        rows.append(row);
    }
    ShowGridRows(ui->rptItems, rows, SizeColumn);
}

void frmGeneralReportFields::sizeEdited(const QModelIndex &index, const QString &text)
{
    // A size that is not a number is refused: the cell keeps its value.
    QTreeWidgetItem *row = ui->rptItems->topLevelItem(index.row());
    if (!row || index.row() >= m_fields.size() || !IsAcceptableFieldSize(text))
        return;
    m_fields[index.row()].size = text;
    row->setText(SizeColumn, text);
}

void frmGeneralReportFields::cmdOK_Click()
{
    // A failed save is named to the user; the dialog closes as confirmed all the same.
    QString why;
    if (!SaveReportFields(document(), m_fields, configurationFile(), &why) && !why.isEmpty())
        ShowSaveFailure(configurationFile(), why, this);
    setCancelled(false);
    accept();
}

bool Library::ShowGeneralReportFields(const QString &ConfigurationFile)
{
    return ShowModalForm<frmGeneralReportFields>(
        [&](frmGeneralReportFields &form) { form.SetConfiguration(ConfigurationFile, this); });
}

} // namespace bravcpl5
