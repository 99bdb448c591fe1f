#pragma once

// The report fields dialog: the fields of a report's configuration file with their sizes,
// which the user may change. OK writes the sizes back into the file. Cancelled starts
// True, so Cancel, Esc and the close box all read as cancelled.

#include "filters/ReportFields.h"
#include "forms/ModalForm.h"
#include "library/Xml.h"

#include <memory>

namespace Ui {
class frmGeneralReportFields;
}

namespace bravcpl5 {

class frmGeneralReportFields : public ModalForm
{
    Q_OBJECT

public:
    explicit frmGeneralReportFields(QWidget *parent = nullptr);
    ~frmGeneralReportFields() override;

    // Keeps the file and owner, and loads the file when it can.
    void SetConfiguration(const QString &ConfigurationFile, Library *owner);

protected:
    void firstActivation() override;

private:
    void LoadItemList();
    QList<ReportField> items() const;
    void sizeEdited(const QModelIndex &index, const QString &text);
    void cmdOK_Click();

    std::unique_ptr<Ui::frmGeneralReportFields> ui;
    QString m_file;
    XmlDocumentPtr m_document;
};

} // namespace bravcpl5
