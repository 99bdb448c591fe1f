#include "DealerReports.h"

#include "GeneralReport.h"
#include "LabelSheet.h"
#include "QuoteReport.h"
#include "ReportFilters.h"

#include "layout/GeneralReportLayout.h"
#include "library/LateBinding.h"
#include "library/Xml.h"

#include <QDir>
#include <QPainter>
#include <memory>

using namespace bravcpl5;

namespace {

constexpr auto letter = "Letter";
constexpr auto labels = "Product Labels";

// Draws a banded report laid out on the first page's content area.
ReferenceReport::PageDrawer bandedDrawer(
    std::function<std::unique_ptr<BandedReport>(double width)> build, int *pageCount)
{
    auto report = std::make_shared<std::unique_ptr<BandedReport>>();
    return [=](QPainter &painter, const ReportPageToDraw &page) {
        if (!*report) {
            *report = build(page.content.width());
            if (!*report)
                return false;
            (*report)->paginate(page.content.height());
            if (pageCount)
                *pageCount = (*report)->pageCount();
        }
        painter.translate(page.content.topLeft());
        (*report)->drawPage(painter, page.number - 1);
        return page.number < (*report)->pageCount();
    };
}

ReferenceReport::PageDrawer labelDrawer(QObject *library, const HostDatabase *database,
                                        bool outlines, int *pageCount)
{
    QObject *store = late::object(library, "PrinterConfigurations");
    const LabelGeometry geometry = ReadLabelGeometry(
        late::text(store, "GetPrinterConfigurationFileFromName", {QString::fromLatin1(labels)}));
    const QList<Record> records = SourceRecords(database, QStringLiteral("Products"));
    auto next = std::make_shared<int>(0);
    return [=](QPainter &painter, const ReportPageToDraw &page) {
        if (page.number == 1)
            *next = 0;
        const QList<QRectF> places = LabelPlaces(geometry, page.paper.size());
        if (places.isEmpty())
            return false;
        if (pageCount)
            *pageCount = int((records.size() + places.size() - 1) / places.size());
        *next += DrawLabels(painter, places, records, *next, outlines);
        return *next < records.size();
    };
}

} // namespace

QList<DealerReport> DealerReports(const QString &dataFolder)
{
    QList<DealerReport> reports;
    const QDir folder(QDir(dataFolder).filePath(QStringLiteral("System/Reports")));
    for (const QString &name :
         folder.entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name | QDir::IgnoreCase)) {
        const QString file = folder.filePath(name);
        const GeneralReportTexts texts = ReadGeneralReportTexts(file);
        reports.append({DealerReport::Kind::General,
                        texts.title.isEmpty() ? QFileInfo(name).completeBaseName() : texts.title,
                        texts.description, file});
    }
    reports.append(
        {DealerReport::Kind::Quote,
         QStringLiteral("Customer Quote"),
         QStringLiteral(
             "A quote for blinds and shutters, with options, totals and signature lines."),
         {}});
    reports.append({DealerReport::Kind::Labels,
                    QStringLiteral("Product Labels"),
                    QStringLiteral("Shelf labels for every product, on sheets of labels."),
                    {}});
    return reports;
}

QString PrinterConfigurationOf(QObject *library, const DealerReport &report)
{
    switch (report.kind) {
    case DealerReport::Kind::Quote:
        return QString::fromLatin1(letter);
    case DealerReport::Kind::Labels:
        return QString::fromLatin1(labels);
    case DealerReport::Kind::General:
        break;
    }
    GeneralReportLayout layout;
    QObject *reportLayout = late::object(library, "ReportLayout");
    if (const XmlDocumentPtr document = LoadXmlText(
            late::text(reportLayout, "LoadGeneralReportLayout", {report.file})))
        layout.read(*document);
    return layout.useOwnPrinterConfiguration && !layout.printerConfiguration.isEmpty()
               ? layout.printerConfiguration
               : QString::fromLatin1(letter);
}

ReferenceReport::PageDrawer PageDrawerFor(QObject *library, const HostDatabase *database,
                                          const DealerReport &report, bool outlines, int *pageCount)
{
    switch (report.kind) {
    case DealerReport::Kind::Quote:
        return bandedDrawer(
            [=, company = SampleCompany(database), quote = SampleQuote(database)](double width) {
                return BuildQuoteReport(library, company, quote, width);
            },
            pageCount);
    case DealerReport::Kind::Labels:
        return labelDrawer(library, database, outlines, pageCount);
    case DealerReport::Kind::General:
        break;
    }
    const QList<Record> records = GeneralReportRecords(late::object(library, "SharedCodeLibrary"),
                                                       database, report.file, QDate::currentDate());
    return bandedDrawer(
        [=, file = report.file](double width) {
            return BuildGeneralReport(library, file, records, width);
        },
        pageCount);
}
