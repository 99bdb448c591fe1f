#pragma once

// The report fields dialog: the fields of a report's configuration file with their sizes,
// which the user may change. OK writes the sizes back into the file. Cancelled starts
// True, so Cancel, Esc and the close box all read as cancelled.

#include "filters/ReportFields.h"
#include "forms/ReportConfigurationForm.h"

#include <memory>

namespace Ui {
class frmGeneralReportFields;
}

namespace bravcpl5 {

class frmGeneralReportFields : public ReportConfigurationForm
{
    Q_OBJECT

public:
    explicit frmGeneralReportFields(QWidget *parent = nullptr);
    ~frmGeneralReportFields() override;

protected:
    void firstActivation() override;

private:
    void LoadItemList();
    void sizeEdited(const QModelIndex &index, const QString &text);
    void cmdOK_Click();

    std::unique_ptr<Ui::frmGeneralReportFields> ui;
    QList<OutputField> m_fields; // what the grid shows, row for row
};

} // namespace bravcpl5
