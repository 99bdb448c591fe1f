#pragma once

// The page setup dialog of one printer configuration: margins and orientation, paper size
// and source, and the label sheet's layout, with a picture of the page on each tab. It
// holds one PageSetup value: read through the store when the dialog opens, shown in the
// controls (set from the value under a guard), changed field by field by the control the
// user changed, drawn by the previews, and saved through the store by OK only. Cancelled
// starts True, so the close box reads as cancelled. The dialog keeps its own current
// printer, and that printer's sizes and bins, for its lifetime. A line under the previews
// says what of the value that printer cannot print; OK saves it all the same, since a
// configuration may be meant for another workstation's printer. The label sheet's tab opens
// disabled; choosing a label product from the paper tab fills the paper and the label sheet
// and turns the tab on for the rest of the opening, its picture then drawing the labels.

#include "forms/ModalForm.h"
#include "printers/CachedPrinterInfo.h"
#include "printing/PageSetup.h"
#include "printing/PageSetupFields.h"

#include <QPointer>
#include <memory>
#include <vector>

namespace Ui {
class frmPageSetup;
}
class QLineEdit;

namespace bravcpl5 {

class PrinterConfigurations;
struct LabelProduct;

class frmPageSetup : public ModalForm
{
    Q_OBJECT

public:
    explicit frmPageSetup(QWidget *parent = nullptr);
    ~frmPageSetup() override;

    // Fills the dialog for `configuration` on `printerName` (or the default printer).
    // False, after telling the user why, when there is no printer to set the page up for.
    bool Open(const QString &configuration, const QString &printerName,
              PrinterConfigurations *store);

    // The printer whose sizes and bins the dialog offers.
    QString currentPrinter() const { return m_printer; }
    // The page setup as OK would save it.
    const PageSetup &value() const { return m_value; }

private:
    void FillPaperSizes(PageSetupChoices &choices);
    void FillPaperSources(PageSetupChoices &choices);
    void cboPaperSize_Click();
    void UpdateOrientationPictures();
    void UpdatePaperFields();
    void DrawPreviews();
    void UpdatePrinterWarning();
    void cmdLabelProduct_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    // Sets every control from the value, under the guard.
    void toControls();
    // A chosen standard paper shows its own size in the value's width and height.
    void takePaperSize();
    // Fills the paper and the label sheet from a label product and shows the sheet.
    void takeLabelProduct(const LabelProduct &product);
    // Runs a change of the value from a control, unless the controls are being set.
    template <typename Change> void fromControl(Change change);

    // A numeric field with its spinner's rule.
    struct NumericField {
        const FieldLimits *limits;
        QLineEdit *text;
    };

    std::unique_ptr<Ui::frmPageSetup> ui;
    std::vector<NumericField> m_fields;
    CachedPrinterInfo m_info; // read once while the dialog is open
    QPointer<PrinterConfigurations> m_store;
    QString m_configuration;
    QString m_printer;
    QList<PaperSizeInfo> m_paperSizes;
    PageSetup m_value;
    bool m_settingControls = false;
    // Set once a label product has turned the label tab on: its picture shows the labels.
    bool m_labelProductChosen = false;
};

} // namespace bravcpl5
