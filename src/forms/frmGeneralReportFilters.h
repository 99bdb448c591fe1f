#pragma once

// The report filters dialog: one row per filter of a report's configuration file, each
// value edited in place with the editor its type calls for (a drop-down list built afresh
// each time it opens, or free text). OK writes every value back into the file. Cancelled
// starts True, so only OK reads as confirmed.

#include "filters/FilterDefinitions.h"
#include "forms/CellEditor.h"
#include "forms/ReportConfigurationForm.h"

#include <memory>

namespace Ui {
class frmGeneralReportFilters;
}
class QTreeWidgetItem;

namespace bravcpl5 {

class frmGeneralReportFilters : public ReportConfigurationForm
{
    Q_OBJECT

public:
    explicit frmGeneralReportFilters(QWidget *parent = nullptr);
    ~frmGeneralReportFilters() override;

protected:
    void firstActivation() override;

private:
    void LoadItemList();
    GridCell valueCell(const QModelIndex &index) const;
    void valueEdited(int row, const QString &text);
    bool editCustomRange(QDate &start, QDate &end);
    void showDescription(QTreeWidgetItem *item);
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmGeneralReportFilters> ui;
    QList<FilterRow> m_rows; // what the grid shows, row for row
};

} // namespace bravcpl5
