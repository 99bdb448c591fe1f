#pragma once

// The label product picker of the page setup dialog: the label sheets of gLabels' template
// files, found by brand, part number or words of the description as the user types.
// Products that a page setup cannot hold are listed greyed, with the reason as their
// tooltip, so that a dealer looking for one learns why it is not offered. The caller reads
// the chosen product after the dialog closes; Cancelled starts True.

#include "forms/ModalForm.h"
#include "printing/LabelProducts.h"

#include <memory>

namespace Ui {
class frmLabelProducts;
}
class QModelIndex;

namespace bravcpl5 {

class LabelProductList;

class frmLabelProducts : public ModalForm
{
    Q_OBJECT

public:
    explicit frmLabelProducts(QWidget *parent = nullptr);
    ~frmLabelProducts() override;

    // Lists every product of `database`, which outlives the dialog.
    void Initialize(const LabelDatabase &database);

    // The product chosen by OK or a double click; null until then.
    const LabelProduct *chosen() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void txtSearch_Change();
    void lstProducts_DblClick(const QModelIndex &index);
    void cmdOK_Click();
    void cmdCancel_Click();
    // OK takes the current row when it is a product the page setup can hold.
    void updateOk();

    std::unique_ptr<Ui::frmLabelProducts> ui;
    LabelProductList *m_list; // the list's model, a child of the dialog
    const LabelDatabase *m_database = nullptr;
    qsizetype m_chosen = -1;
};

// The workstation's label products, read the first time they are asked for and kept for the
// process's lifetime.
const LabelDatabase &InstalledLabelProducts();

// Reads the label products from `folder` alone from now on ("" for the system's and the
// user's template folders), afresh on the next use.
void SetLabelTemplateFolder(const QString &folder);

} // namespace bravcpl5
