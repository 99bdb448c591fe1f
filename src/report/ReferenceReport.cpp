#include "report/ReferenceReport.h"

#include "report/PdfMediaBox.h"

#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

namespace bravcpl5 {

ReferenceReport::ReferenceReport(QObject *parent) : QObject(parent)
{
    m_printer.setObjectName(QStringLiteral("Printer"));
    m_printer.setParent(this);
    m_pageSettings.setObjectName(QStringLiteral("PageSettings"));
    m_pageSettings.setParent(this);
}

QString ReferenceReport::resolvePage()
{
    PrinterInfo &printers = CurrentPrinterInfo();
    // An empty device name means the default printer, as for any report.
    const QString device = m_printer.deviceName();
    const QString queue = FindPrinter(printers,
                                      device.isEmpty() ? printers.defaultPrinterName() : device);
    // A PDF or a preview for a named printer shows what that printer would get.
    m_lastPage = ResolveReportPage(m_pageSettings.values(), ReadCupsQueue(queue),
                                   printers.paperSizes(queue));
    return queue;
}

bool ReferenceReport::paint(QPrinter &printer, const PageDrawer &drawPage)
{
    resolvePage();
    return draw(printer, drawPage);
}

bool ReferenceReport::print(const PageDrawer &drawPage)
{
    m_lastJobId = 0;
    const QString queue = resolvePage();
    const bool toPdf = !m_outputFileName.isEmpty();
    if (queue.isEmpty() && !toPdf)
        return false;
    if (toPdf)
        return render(m_outputFileName, drawPage);

    // Qt's CUPS engine has no public way to pass a job option such as the input slot, so
    // the pages go to a PDF that is sent with libcups and exactly the options chosen here.
    // The PDF pages are already turned, so no orientation option is sent.
    QTemporaryDir folder;
    const QString pdf = QDir(folder.path()).filePath(QStringLiteral("report.pdf"));
    if (!folder.isValid() || !render(pdf, drawPage))
        return false;
    m_lastJobId = SubmitCupsJob(queue, pdf, m_documentName, m_lastPage.jobOptions);
    return m_lastJobId > 0;
}

bool ReferenceReport::render(const QString &pdfFile, const PageDrawer &drawPage) const
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdfFile);
    return draw(printer, drawPage)
           && SetExactMediaBox(pdfFile, m_lastPage.paperTwips() / TwipsPerPoint);
}

bool ReferenceReport::draw(QPrinter &printer, const PageDrawer &drawPage) const
{
    // Device units are twips, so pages draw in twips and fonts given in points come out
    // at their size (a scaled painter would scale them again).
    printer.setResolution(int(TwipsPerInch));
    printer.setDocName(m_documentName);
    printer.setCreator(QStringLiteral("bravcpl5"));
    // The margins are already within the printable area (QPrinter refuses them otherwise);
    // drawing uses the whole paper so that mirrored pages can move their margins.
    QPageLayout layout(m_lastPage.paper, m_lastPage.orientation, m_lastPage.margins / TwipsPerPoint,
                       QPageLayout::Point);
    layout.setMode(QPageLayout::FullPageMode);
    if (!printer.setPageLayout(layout))
        return false;

    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const QRectF paper(QPointF(0, 0), m_lastPage.paperTwips());
    for (int number = 1;; ++number) {
        painter.save();
        const bool more = drawPage
                          && drawPage(painter, {number, paper, m_lastPage.contentRect(number)});
        painter.restore();
        if (!more)
            break;
        printer.newPage();
    }
    return painter.end();
}

} // namespace bravcpl5
