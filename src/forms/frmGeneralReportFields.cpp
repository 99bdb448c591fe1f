#include "forms/frmGeneralReportFields.h"

#include "ui_frmGeneralReportFields.h"

#include "forms/ReportGrid.h"

namespace bravcpl5 {

namespace {
enum Column { FieldColumn, SizeColumn };
constexpr int keyRole = Qt::UserRole;
} // namespace

frmGeneralReportFields::frmGeneralReportFields(QWidget *parent)
    : ReportConfigurationForm(parent), ui(std::make_unique<Ui::frmGeneralReportFields>())
{
    ui->setupUi(this);
    CellEditor *editor = SetupReportGrid(ui->rptItems, SizeColumn);
    connect(editor, &CellEditor::edited, this, &frmGeneralReportFields::sizeEdited);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmGeneralReportFields::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmGeneralReportFields::~frmGeneralReportFields() = default;

void frmGeneralReportFields::firstActivation() { LoadItemList(); }

void frmGeneralReportFields::LoadItemList()
{
    ui->rptItems->clear();
    QList<QTreeWidgetItem *> rows;
    for (const OutputField &field : LoadReportFields(document())) {
        auto *row = new QTreeWidgetItem({field.label, field.size});
        row->setData(FieldColumn, keyRole, field.key);
        row->setFlags(row->flags() | Qt::ItemIsEditable);
        rows.append(row);
    }
    ShowGridRows(ui->rptItems, rows, SizeColumn);
}

QList<OutputField> frmGeneralReportFields::items() const
{
    QList<OutputField> fields;
    for (int i = 0; i < ui->rptItems->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = ui->rptItems->topLevelItem(i);
        fields.append({row->data(FieldColumn, keyRole).toString(), row->text(FieldColumn),
                       row->text(SizeColumn)});
    }
    return fields;
}

void frmGeneralReportFields::sizeEdited(const QModelIndex &index, const QString &text)
{
    // A size that is not a number is refused: the cell keeps its value.
    if (QTreeWidgetItem *row = ui->rptItems->topLevelItem(index.row());
        row && IsAcceptableFieldSize(text))
        row->setText(SizeColumn, text);
}

void frmGeneralReportFields::cmdOK_Click()
{
    SaveReportFields(document(), items(), configurationFile());
    setCancelled(false);
    accept();
}

} // namespace bravcpl5
