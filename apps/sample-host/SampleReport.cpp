#include "SampleReport.h"

#include "SampleProducts.h"

#include "layout/FurnitureFormats.h"
#include "layout/GeneralReportLayout.h"
#include "layout/ReportFurniture.h"
#include "report/ReportField.h"
#include "report/ReportLabel.h"
#include "library/LateBinding.h"
#include "library/Units.h"
#include "library/ValueRules.h"
#include "library/Xml.h"
#include "report/ReferenceReport.h"

#include <QDateTime>
#include <QLocale>
#include <QPainter>
#include <memory>
#include <optional>
#include <vector>

namespace {

using namespace bravcpl5;

constexpr qint16 generalReport = 1;

// The font types of a general report.
enum FontType : qint16 {
    CompanyName = 1, Title, Subtitle, FieldHeading, DataField, PrintDate, PrintTime, ExtraLine,
    PageNumber, GroupHeaderHeading, GroupHeaderDataField, GroupFooterHeading, GroupFooterDataField,
};

// Picker codes the report uses (the host's pickers pass the same).
constexpr qint16 notBold = 1, bold = 2;
constexpr qint16 alignLeft = 0, alignRight = 1;
constexpr qint16 presetBottom = 2, presetDoubleBottom = 3, presetTopBottom = 4, presetThickTop = 13;
constexpr qint32 gray25 = 0xC0C0C0, paleGray = 0xF0F0F0, darkRed = 0x000080;

// Room between the text and the lines of a row with borders above and below.
constexpr double ruledRowPadding = TwipsPerInch / 24;

// One line of a band: its controls side by side, as high as its tallest font.
struct Row {
    double height = 0;
    std::vector<ReportControl *> controls;
    bool keepWithNext = false;
};

// Makes the report's controls and formats them through the library, late-bound as a
// host does.
class ControlMaker
{
public:
    explicit ControlMaker(QObject *reportLayout) : m_layout(reportLayout) {}

    ReportLabel *label(Row &row, const QString &caption, qint16 fontType, double left, double width,
                       qint16 alignment = alignLeft)
    {
        auto *control = new ReportLabel(&m_controls);
        control->setProperty("Caption", caption);
        place(row, control, fontType, left, width, alignment);
        return control;
    }

    ReportField *field(Row &row, const QString &dataField, const QString &text, qint16 fontType, double left,
                       double width, qint16 alignment = alignLeft)
    {
        auto *control = new ReportField(&m_controls);
        control->setProperty("DataField", dataField);
        control->setProperty("Text", text);
        place(row, control, fontType, left, width, alignment);
        return control;
    }

    void format(QObject *control, const char *member, const QVariant &code)
    {
        late::call(m_layout, member, {QVariant::fromValue(control), code});
    }

private:
    void place(Row &row, ReportControl *control, qint16 fontType, double left, double width, qint16 alignment)
    {
        format(control, "ApplyAlignmentToControl", alignment);
        late::call(m_layout, "ApplyFontSettingsToControl", {QVariant::fromValue<QObject *>(control), generalReport, fontType});
        control->setTwipsRect(QRectF(left, 0, width, 0));
        row.height = qMax(row.height, late::value(m_layout, "GetFontHeight", {generalReport, fontType}).toDouble());
        row.controls.push_back(control);
    }

    QObject *m_layout;
    QObject m_controls; // owns every control of the report
};

double heightOf(const std::vector<Row> &rows)
{
    double height = 0;
    for (const Row &row : rows)
        height += row.height;
    return height;
}

Row spacer(double twips)
{
    Row row;
    row.height = twips;
    return row;
}

QString money(double value) { return QLocale(QLocale::English, QLocale::UnitedStates).toString(value, 'f', 2); }

struct Columns {
    double product, manufacturer, vendor, price, width;
    explicit Columns(double w)
        : product(0), manufacturer(w * 0.34), vendor(w * 0.56), price(w * 0.84), width(w) {}
};

class SampleReport
{
public:
    SampleReport(QObject *reportLayout, const GeneralReportLayout &layout,
                 const QList<SampleProduct> &products, double width)
        : m_make(reportLayout), m_layout(layout), m_products(products), m_columns(width)
    {
        buildHeader(QDateTime::currentDateTime());
        buildColumnHeadings();
        buildBody();
        buildFooter();
    }

    // Splits the body into pages of `contentHeight` twips: the header on the first page
    // (or all), the column headings on every page, the footer on the first page (or all).
    void paginate(double contentHeight)
    {
        m_contentHeight = contentHeight;
        m_pages.assign(1, {});
        double used = 0;
        for (std::size_t i = 0; i < m_body.size(); ++i) {
            double needed = m_body[i].height;
            if (m_body[i].keepWithNext && i + 1 < m_body.size())
                needed += m_body[i + 1].height;
            if (used + needed > available(m_pages.size() - 1) && !m_pages.back().empty()) {
                m_pages.emplace_back();
                used = 0;
            }
            m_pages.back().push_back(i);
            used += m_body[i].height;
        }
    }

    int pageCount() const { return int(m_pages.size()); }

    void drawPage(QPainter &painter, int index)
    {
        double y = 0;
        if (headerOn(index))
            y = drawRows(painter, m_header, y);
        y = drawRows(painter, m_columnHeadings, y);
        for (std::size_t i : m_pages[std::size_t(index)])
            y = drawRow(painter, m_body[i], y);
        if (footerOn(index)) {
            if (m_pageNumber)
                m_pageNumber->setProperty("Caption", FormatPageNumber(m_layout.pageNumber.format, index + 1, pageCount()));
            drawRows(painter, m_footer, m_contentHeight - heightOf(m_footer));
        }
    }

private:
    bool headerOn(std::size_t page) const { return page == 0 || m_layout.headerOnAllPages; }
    bool footerOn(std::size_t page) const { return page == 0 || m_layout.footerOnAllPages; }

    double available(std::size_t page) const
    {
        return m_contentHeight - (headerOn(page) ? heightOf(m_header) : 0) - heightOf(m_columnHeadings)
               - (footerOn(page) ? heightOf(m_footer) : 0);
    }

    static double drawRow(QPainter &painter, const Row &row, double y)
    {
        for (const ReportControl *control : row.controls) {
            const QRectF at = control->twipsRect();
            control->draw(painter, QRectF(at.left(), y, at.width(), row.height));
        }
        return y + row.height;
    }

    static double drawRows(QPainter &painter, const std::vector<Row> &rows, double y)
    {
        for (const Row &row : rows)
            y = drawRow(painter, row, y);
        return y;
    }

    // Full-width furniture lines, as the layout document sets them.
    void furniture(const QList<FurnitureLine> &lines, std::vector<Row> &rows)
    {
        for (const FurnitureLine &line : lines) {
            Row row;
            ReportLabel *control = m_make.label(row, line.text, line.fontType, 0, m_columns.width, line.alignment);
            if (line.notBold)
                m_make.format(control, "ApplyTextFormatSettingsToControl", notBold);
            if (line.fontType == furnitureFont::pageNumber)
                m_pageNumber = control;
            rows.push_back(row);
        }
    }

    void buildHeader(const QDateTime &now)
    {
        furniture(HeaderFurniture(m_layout,
                                  {QStringLiteral("Product List"), QStringLiteral("All Products by Product Type"),
                                   QStringLiteral("Every product on file with its manufacturer, vendor and list price.")},
                                  now),
                  m_header);
        if (!m_header.empty())
            m_header.push_back(spacer(TwipsPerInch / 6));
    }

    void buildColumnHeadings()
    {
        Row row;
        const Columns &c = m_columns;
        for (ReportControl *heading :
             {static_cast<ReportControl *>(m_make.label(row, QStringLiteral("Product"), FieldHeading, c.product, c.manufacturer - c.product)),
              static_cast<ReportControl *>(m_make.label(row, QStringLiteral("Manufacturer"), FieldHeading, c.manufacturer, c.vendor - c.manufacturer)),
              static_cast<ReportControl *>(m_make.label(row, QStringLiteral("Vendor"), FieldHeading, c.vendor, c.price - c.vendor)),
              static_cast<ReportControl *>(m_make.label(row, QStringLiteral("List Price"), FieldHeading, c.price, c.width - c.price, alignRight))}) {
            m_make.format(heading, "ApplyBackColorSettingsToControl", gray25);
            m_make.format(heading, "ApplyBorderToControl", presetBottom);
        }
        m_columnHeadings.push_back(row);
        m_columnHeadings.push_back(spacer(TwipsPerInch / 24));
    }

    void buildBody()
    {
        const Columns &c = m_columns;
        const QList<SampleProduct> &products = m_products;
        double total = 0;
        for (qsizetype first = 0; first < products.size();) {
            const QString type = products[first].productType;
            Row header;
            header.keepWithNext = true;
            for (ReportControl *control :
                 {static_cast<ReportControl *>(m_make.label(header, QStringLiteral("Product Type:"), GroupHeaderHeading, 0, c.manufacturer)),
                  static_cast<ReportControl *>(m_make.field(header, QStringLiteral("ProductType"), type, GroupHeaderDataField, c.manufacturer, c.width - c.manufacturer))})
                m_make.format(control, "ApplyBackColorSettingsToControl", paleGray);
            m_body.push_back(header);

            double sum = 0;
            qsizetype next = first;
            for (; next < products.size() && products[next].productType == type; ++next) {
                const SampleProduct &p = products[next];
                Row row;
                m_make.field(row, QStringLiteral("Product"), p.product, DataField, c.product, c.manufacturer - c.product);
                m_make.field(row, QStringLiteral("Manufacturer"), p.manufacturer, DataField, c.manufacturer, c.vendor - c.manufacturer);
                m_make.field(row, QStringLiteral("VendorName"), p.vendor, DataField, c.vendor, c.price - c.vendor);
                ReportField *price = m_make.field(row, QStringLiteral("ListPrice"), money(p.listPrice), DataField, c.price,
                                                  c.width - c.price, alignRight);
                if (p.listPrice >= 1000)
                    m_make.format(price, "ApplyTextColorSettingsToControl", darkRed);
                m_body.push_back(row);
                sum += p.listPrice;
            }

            Row footer;
            m_make.label(footer, QStringLiteral("%1 products").arg(next - first), GroupFooterHeading, c.product, c.vendor);
            m_make.label(footer, QStringLiteral("Group total"), GroupFooterHeading, c.vendor, c.price - c.vendor, alignRight);
            ReportField *groupSum = m_make.field(footer, QStringLiteral("Sum(ListPrice)"), money(sum), GroupFooterDataField,
                                                 c.price, c.width - c.price, alignRight);
            m_make.format(groupSum, "ApplyBorderToControl", presetTopBottom);
            footer.height += ruledRowPadding;
            m_body.push_back(footer);
            m_body.push_back(spacer(TwipsPerInch / 8));
            total += sum;
            first = next;
        }

        Row grand;
        m_make.label(grand, QStringLiteral("%1 products in all").arg(products.size()), GroupFooterHeading, c.product, c.vendor);
        m_make.label(grand, QStringLiteral("Total"), GroupFooterHeading, c.vendor, c.price - c.vendor, alignRight);
        ReportField *grandSum = m_make.field(grand, QStringLiteral("Sum(ListPrice)"), money(total), GroupFooterDataField,
                                             c.price, c.width - c.price, alignRight);
        // Presets accumulate: a thick line above, a double line below.
        m_make.format(grandSum, "ApplyBorderToControl", presetThickTop);
        m_make.format(grandSum, "ApplyBorderToControl", presetDoubleBottom);
        m_make.format(grandSum, "ApplyTextFormatSettingsToControl", bold);
        grand.height += 2 * ruledRowPadding;
        m_body.push_back(grand);
    }

    void buildFooter()
    {
        const QList<FurnitureLine> lines = FooterFurniture(m_layout, 1, 1);
        if (!lines.isEmpty())
            m_footer.push_back(spacer(TwipsPerInch / 12));
        furniture(lines, m_footer);
    }

    ControlMaker m_make;
    const GeneralReportLayout &m_layout;
    const QList<SampleProduct> &m_products;
    Columns m_columns;
    std::vector<Row> m_header, m_columnHeadings, m_body, m_footer;
    ReportLabel *m_pageNumber = nullptr;
    double m_contentHeight = 0;
    std::vector<std::vector<std::size_t>> m_pages;
};

} // namespace

SampleReportOutcome PrintSampleReport(QObject *library, const QList<SampleProduct> &products,
                                      const QString &pdfFile)
{
    SampleReportOutcome outcome;
    QObject *reportLayout = late::object(library, "ReportLayout");
    if (!reportLayout)
        return outcome;

    // The host reads the layout document itself; without one it keeps its built-in furniture.
    GeneralReportLayout layout;
    if (const XmlDocumentPtr document = LoadXmlText(late::text(reportLayout, "LoadGeneralReportLayout")))
        layout.read(*document);
    if (layout.useOwnPrinterConfiguration)
        outcome.printerConfiguration = layout.printerConfiguration;

    // The page comes from the printer configuration, applied to the report object by the
    // library as for any report the host prints.
    ReferenceReport printed;
    printed.setDocumentName(QStringLiteral("Product List"));
    printed.setOutputFileName(pdfFile);
    if (!outcome.printerConfiguration.isEmpty()) {
        late::call(late::object(library, "PrinterConfigurations"), "SetupPageFromPrinterConfiguration",
                   {outcome.printerConfiguration, QVariant::fromValue<QObject *>(&printed), false});
    }

    // Every page has the same content area, so the report is laid out on the first one.
    std::optional<SampleReport> report;
    outcome.written = printed.print([&](QPainter &painter, const ReportPageToDraw &page) {
        if (!report) {
            report.emplace(reportLayout, layout, products, page.content.width());
            report->paginate(page.content.height());
        }
        painter.save();
        painter.translate(page.content.topLeft());
        report->drawPage(painter, page.number - 1);
        painter.restore();
        return page.number < report->pageCount();
    });
    outcome.pages = report ? report->pageCount() : 0;
    return outcome;
}
