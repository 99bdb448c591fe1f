#pragma once

// A printer's details where the system has no properties view of its own to open (a print
// server without a web interface): its name, description, make and model, location and
// connection, its state with the reasons the print system gives, and the paper and paper
// source a job gets by default. Read once, when it is set up; nothing is changed here.

#include "forms/ModalForm.h"

#include <memory>

namespace Ui {
class frmPrinterDetails;
}

namespace bravcpl5 {

struct PrinterState;

class frmPrinterDetails : public ModalForm
{
    Q_OBJECT

public:
    explicit frmPrinterDetails(QWidget *parent = nullptr);
    ~frmPrinterDetails() override;

    void SetUp(const QString &printer);

    // "Ready", "Stopped, not accepting jobs (media-empty-error)", "Unknown".
    static QString describeState(const PrinterState &state);

private:
    std::unique_ptr<Ui::frmPrinterDetails> ui;
};

// Shows the details of `printer` over the active window.
void ShowPrinterDetails(const QString &printer);

} // namespace bravcpl5
