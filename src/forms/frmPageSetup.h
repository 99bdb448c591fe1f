#pragma once

// The page setup dialog of one printer configuration: margins and orientation, paper size
// and source, and the label sheet's layout, with a picture of the page on each tab. It
// edits a PageSetup value bound to its controls; the file is read when the dialog opens
// and written by OK only. Cancelled starts True, so the close box reads as cancelled.
// The dialog keeps its own current printer, and that printer's sizes and bins, for its
// lifetime.

#include "forms/ModalForm.h"
#include "printing/CachedPrinterInfo.h"
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

private:
    void FillPaperSizes();
    void FillPaperSources();
    void cboPaperSize_Click();
    void UpdateOrientationPictures();
    void UpdatePaperFields();
    void DrawPreviews();
    void cmdOK_Click();
    void cmdCancel_Click();

    PageSetup fromControls() const;
    void toControls(const PageSetup &fields);
    PageSetupChoices choices() const;
    QString configurationFile() const;

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
    bool m_loading = false;
};

} // namespace bravcpl5
