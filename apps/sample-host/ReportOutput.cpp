#include "ReportOutput.h"

#include "SampleHost.h"

#include "library/LateBinding.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QUrl>

using namespace bravcpl5;

namespace {

// Sets up `printed` from the report's configuration. Printing needs a printer: false (and
// the library has said why) when neither the configuration nor the default has one. A
// preview or a PDF shows the configuration's page whatever the printer.
bool setUp(const ReportOutputContext &context, const DealerReport &report, ReferenceReport &printed,
           bool toPrinter)
{
    QObject *store = late::object(context.library, "PrinterConfigurations");
    const QString configuration = PrinterConfigurationOf(context.library, report);
    if (toPrinter
        && late::text(store, "GetPrinterConfigurationToUse", {configuration, true}).isEmpty())
        return false;
    printed.setDocumentName(report.name);
    late::call(store, "SetupPageFromPrinterConfiguration",
               {configuration, QVariant::fromValue<QObject *>(&printed), false});
    return true;
}

} // namespace

void PreviewReport(const ReportOutputContext &context, const DealerReport &report)
{
    ReferenceReport printed;
    setUp(context, report, printed, false);
    const ReferenceReport::PageDrawer draw = PageDrawerFor(context.library,
                                                           context.host->database(), report, true);
    // A PDF printer: the preview's own Print button then writes a file rather than
    // sending a second job past the library's choice of printer.
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    QPrintPreviewDialog preview(&printer, context.parent);
    preview.setObjectName(QStringLiteral("reportPreview"));
    preview.setWindowTitle(QStringLiteral("Print Preview - %1").arg(report.name));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&](QPrinter *target) { printed.paint(*target, draw); });
    preview.resize(900, 760);
    preview.exec();
}

bool PrintReport(const ReportOutputContext &context, const DealerReport &report)
{
    ReferenceReport printed;
    if (!setUp(context, report, printed, true))
        return false;
    int pages = 0;
    const ReferenceReport::PageDrawer draw = PageDrawerFor(
        context.library, context.host->database(), report, false, &pages);
    QProgressDialog progress(QStringLiteral("Printing %1...").arg(report.name),
                             QStringLiteral("Cancel"), 0, 0, context.parent);
    progress.setWindowTitle(QStringLiteral("Printing"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(500);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool sent = printed.print([&](QPainter &painter, const ReportPageToDraw &page) {
        const bool more = draw(painter, page);
        progress.setMaximum(pages);
        progress.setValue(page.number);
        return more && !progress.wasCanceled();
    });
    QApplication::restoreOverrideCursor();
    progress.reset();

    const QString printer = printed.printer()->deviceName();
    if (!sent) {
        QMessageBox::warning(context.parent, QStringLiteral("Print"),
                             QStringLiteral("%1 could not be printed on %2.")
                                 .arg(report.name, printer.isEmpty()
                                                       ? QStringLiteral("the default printer")
                                                       : printer));
        return false;
    }
    QString message = QStringLiteral("%1 was sent to %2 (%3).")
                          .arg(report.name,
                               printer.isEmpty() ? QStringLiteral("the default printer") : printer,
                               pages == 1 ? QStringLiteral("1 page")
                                          : QStringLiteral("%1 pages").arg(pages));
    for (const QString &change : printed.lastPage().adjustments)
        message += u'\n' + QStringLiteral("Changed for the printer: %1").arg(change);
    QMessageBox::information(context.parent, QStringLiteral("Print"), message);
    return true;
}

bool WriteReportPdf(const ReportOutputContext &context, const DealerReport &report,
                    const QString &file, bool outlines)
{
    ReferenceReport printed;
    setUp(context, report, printed, false);
    printed.setOutputFileName(file);
    return printed.print(
        PageDrawerFor(context.library, context.host->database(), report, outlines));
}

void PrintReportToPdf(const ReportOutputContext &context, const DealerReport &report,
                      const QString &folder)
{
    const QString file = QFileDialog::getSaveFileName(
        context.parent, QStringLiteral("Print to PDF"),
        QDir(folder).filePath(report.name + QStringLiteral(".pdf")),
        QStringLiteral("PDF files (*.pdf)"));
    if (file.isEmpty())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool written = WriteReportPdf(context, report, file);
    QApplication::restoreOverrideCursor();
    if (!written) {
        QMessageBox::warning(
            context.parent, QStringLiteral("Print to PDF"),
            QStringLiteral("%1 could not be written.").arg(QDir::toNativeSeparators(file)));
        return;
    }
    if (QMessageBox::question(
            context.parent, QStringLiteral("Print to PDF"),
            QStringLiteral("%1 was written. Open it now?").arg(QDir::toNativeSeparators(file)))
        == QMessageBox::Yes)
        QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}
