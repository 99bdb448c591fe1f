#include "forms/frmPrinterDetails.h"

#include "ui_frmPrinterDetails.h"

#include "library/Units.h"
#include "printers/PrinterInfo.h"
#include "printers/SystemPrinters.h"

#include <QPushButton>
#include <algorithm>

namespace bravcpl5 {

namespace {

QString orNone(const QString &text) { return text.isEmpty() ? QStringLiteral("(none)") : text; }

QString inches(int twips) { return QString::number(twips / TwipsPerInch, 'g', 4); }

template <typename T> const T *byCode(const QList<T> &list, int code)
{
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const T &item) { return item.code == code; });
    return found == list.end() ? nullptr : &*found;
}

} // namespace

frmPrinterDetails::frmPrinterDetails(QWidget *parent)
    : ModalForm(parent, false, Placement::Default), ui(std::make_unique<Ui::frmPrinterDetails>())
{
    ui->setupUi(this);
    // Wide enough for a device address on a line or two.
    setMinimumWidth(fontMetrics().averageCharWidth() * 64);
    connect(ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
}

frmPrinterDetails::~frmPrinterDetails() = default;

void frmPrinterDetails::SetUp(const QString &printer)
{
    setWindowTitle(QStringLiteral("Printer Properties - %1").arg(printer));
    const PrinterDescription description = CurrentSystemPrinters().describePrinter(printer);
    const PrinterPaper paper = CurrentPrinterInfo().paper(printer);
    ui->lblName->setText(printer);
    ui->lblDescription->setText(orNone(description.description));
    ui->lblMakeAndModel->setText(orNone(description.makeAndModel));
    ui->lblLocation->setText(orNone(description.location));
    ui->lblDeviceUri->setText(orNone(description.deviceUri));
    ui->lblState->setText(describeState(paper.state));
    const PaperSizeInfo *size = byCode(paper.sizes, paper.currentSize);
    ui->lblPaper->setText(
        size ? QStringLiteral("%1 (%2 x %3 in)")
                   .arg(size->name, inches(size->widthTwips), inches(size->heightTwips))
             : QStringLiteral("(none)"));
    const PaperBinInfo *bin = byCode(paper.bins, paper.currentBin);
    ui->lblBin->setText(bin ? bin->name : QStringLiteral("(none)"));
}

QString frmPrinterDetails::describeState(const PrinterState &state)
{
    if (!state.known)
        return QStringLiteral("Unknown");
    QString text = state.stopped ? QStringLiteral("Stopped") : QStringLiteral("Ready");
    if (!state.acceptingJobs)
        text += QStringLiteral(", not accepting jobs");
    if (!state.reasons.isEmpty())
        text += QStringLiteral(" (%1)").arg(state.reasons.join(QStringLiteral(", ")));
    return text;
}

void ShowPrinterDetails(const QString &printer)
{
    ShowModalForm<frmPrinterDetails>([&](frmPrinterDetails &form) { form.SetUp(printer); });
}

} // namespace bravcpl5
