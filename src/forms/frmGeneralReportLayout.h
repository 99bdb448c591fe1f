#pragma once

// The general report layout dialog: which header and footer items a general report
// prints, their texts, formats and alignment, and whether it prints through a printer
// configuration of its own, with a picture of the furniture as it will print. It edits a
// GeneralReportLayout value bound to its controls; the document is read on first
// activation and written by OK only. Cancelled starts False, so the close box reads as
// confirmed although nothing is written.

#include "forms/ModalForm.h"
#include "layout/GeneralReportLayout.h"

#include <QPointer>
#include <memory>

namespace Ui {
class frmGeneralReportLayout;
}
class QCheckBox;
class QComboBox;
class QLineEdit;

namespace bravcpl5 {

class ReportLayout;

class frmGeneralReportLayout : public ModalForm
{
    Q_OBJECT

public:
    explicit frmGeneralReportLayout(QWidget *parent = nullptr);
    ~frmGeneralReportLayout() override;

    // Keeps the layout service and the file to write: `LayoutFile`, or when it is empty
    // the general layout file that exists (user copy first), in general mode.
    void SetUp(const QString &LayoutFile, ReportLayout *layout);

protected:
    void firstActivation() override;
    void closeEvent(QCloseEvent *event) override;

private:
    // One item of the layout and its controls; null controls for what the item lacks.
    struct ItemControls {
        LayoutItem GeneralReportLayout::*item;
        QCheckBox *show;
        QLineEdit *label;
        QComboBox *format;
        QComboBox *alignment;
    };

    void FillPrinterConfigurations();
    void ReadDocument();
    void UpdateEnabledStates();
    void lblManagePrinterConfigurations_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    GeneralReportLayout fromControls() const;
    void toControls(const GeneralReportLayout &layout);
    void updatePreview();
    // The preview's page: the custom configuration's when one is used.
    void updatePage();

    std::unique_ptr<Ui::frmGeneralReportLayout> ui;
    std::vector<ItemControls> m_items;
    QPointer<ReportLayout> m_layout;
    QString m_layoutFile;
    bool m_generalMode = false;
    bool m_busy = false;
};

} // namespace bravcpl5
