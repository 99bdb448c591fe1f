#pragma once

// A report object with the members that printer configurations set on a report (its
// printer's device name, its page settings and its print width), printing through
// QPrinter: to the named CUPS queue, or to a PDF file when OutputFileName is set. The
// pages are drawn by a callback, so any report can print with it.

#include "report/ReportPage.h"
#include "report/ReportPageSettings.h"
#include "report/ReportPrinter.h"

#include <QObject>
#include <functional>

class QPainter;
class QPrinter;

namespace bravcpl5 {

// One page to draw. The painter works in twips from the paper's top left corner.
struct ReportPageToDraw {
    int number = 1; // from 1
    QRectF paper;   // twips
    QRectF content; // inside the margins and gutter
};

class ReferenceReport : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *Printer READ printer CONSTANT)
    Q_PROPERTY(QObject *PageSettings READ pageSettings CONSTANT)
    Q_PROPERTY(float PrintWidth READ printWidth WRITE setPrintWidth)
    Q_PROPERTY(QString DocumentName READ documentName WRITE setDocumentName)
    // A PDF file to write instead of printing; empty prints to Printer.DeviceName (the
    // default printer when that is empty).
    Q_PROPERTY(QString OutputFileName READ outputFileName WRITE setOutputFileName)

public:
    explicit ReferenceReport(QObject *parent = nullptr);

    ReportPrinter *printer() { return &m_printer; }
    ReportPageSettings *pageSettings() { return &m_pageSettings; }
    float printWidth() const { return m_printWidth; }
    void setPrintWidth(float twips) { m_printWidth = twips; }
    QString documentName() const { return m_documentName; }
    void setDocumentName(const QString &name) { m_documentName = name; }
    QString outputFileName() const { return m_outputFileName; }
    void setOutputFileName(const QString &file) { m_outputFileName = file; }

    // Draws one page; returns true when another page follows.
    using PageDrawer = std::function<bool(QPainter &, const ReportPageToDraw &)>;
    // Resolves the page for the printer, draws the pages and prints them (or writes the
    // PDF). False when the printer is not installed or nothing could be printed.
    bool print(const PageDrawer &drawPage);
    // Resolves the page the same way and draws the pages on `printer` (a print preview's,
    // say), whose page layout and resolution it sets. False when nothing could be drawn.
    bool paint(QPrinter &printer, const PageDrawer &drawPage);

    // The page the last print used, with what was changed to suit the printer.
    const ResolvedReportPage &lastPage() const { return m_lastPage; }
    // The CUPS job of the last print; 0 for a PDF or a failure.
    int lastJobId() const { return m_lastJobId; }

private:
    // The queue the page was resolved for; "" for none.
    QString resolvePage();
    bool render(const QString &pdfFile, const PageDrawer &drawPage) const;
    bool draw(QPrinter &printer, const PageDrawer &drawPage) const;

    ReportPrinter m_printer;
    ReportPageSettings m_pageSettings;
    float m_printWidth = 0;
    QString m_documentName = QStringLiteral("Report");
    QString m_outputFileName;
    ResolvedReportPage m_lastPage;
    int m_lastJobId = 0;
};

} // namespace bravcpl5
