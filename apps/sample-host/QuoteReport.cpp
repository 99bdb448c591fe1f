#include "QuoteReport.h"

#include "library/LateBinding.h"
#include "library/Units.h"
#include "library/ValueRules.h"
#include "report/ReportField.h"
#include "report/ReportLabel.h"

#include <QDate>
#include <QLocale>
#include <cmath>

using namespace bravcpl5;

namespace {

// The process report font types.
enum FontType : qint16 {
    CompanyName = 1,
    PrintDate = 6,
    PrintTime = 7,
    CompanyAddress = 14,
    ReportHeading,
    IdentificationFields,
    AddressHeading,
    Address,
    OrderInformationHeadings,
    OrderInformation,
    LineItemHeadings,
    LineItemValues,
    LineItemOptions,
    TotalHeading,
    Totals,
    CommentsHeading,
    Comments,
    NotesHeading,
    SignatureHeading,
    Signatures,
    OtherHeadings,
    OtherAddressFields,
    CompanyTagLine1,
    CompanyTagLine2,
    LineItemTotals,
    PaymentsHeading,
    Payments,
    YouSaved,
};

constexpr qint16 presetBottom = 2, presetDoubleBottom = 3, presetTopBottom = 4, presetThickTop = 13;
constexpr qint32 gray25 = 0xC0C0C0;

QString money(double value) { return QLocale().toString(value, 'f', 2); }
QString inches(double value) { return QLocale().toString(value, 'g', 4) + u'"'; }

class QuoteBuilder
{
public:
    QuoteBuilder(BandedReport &report, double width)
        : m_report(report), m_make(report.make), m_width(width)
    {}

    // Label and value pairs side by side in equal columns.
    void pairs(Band &band, const QList<QPair<QString, QString>> &items, qint16 headingFont,
               qint16 valueFont)
    {
        const double column = m_width / items.size();
        BandRow headings, values;
        for (int i = 0; i < items.size(); ++i) {
            m_make.label(headings, items[i].first, headingFont, i * column, column);
            m_make.field(values, items[i].first, items[i].second, valueFont, i * column, column);
        }
        band.push_back(headings);
        band.push_back(values);
    }

    void header(const Company &company, const Quote &quote)
    {
        Band &band = m_report.header;
        const double half = m_width / 2;
        BandRow top;
        m_make.label(top, company.name, CompanyName, 0, half * 1.3);
        m_make.label(top, QStringLiteral("QUOTE"), ReportHeading, half, half, alignRight);
        band.push_back(top);
        line(band, QStringLiteral("Blinds, Shades and Shutters, Measured and Installed"),
             CompanyTagLine1);
        line(band, QStringLiteral("Serving the Treasure Valley since 1998"), CompanyTagLine2);
        for (const QString &text : {company.address, company.cityLine, company.phone}) {
            BandRow row;
            m_make.label(row, text, CompanyAddress, 0, half);
            band.push_back(row);
        }
        // The quote's number and date sit at the right of the company block.
        const double idTop = band.size() - 3;
        const QStringList ids = {
            QStringLiteral("Quote No. %1").arg(quote.number),
            QStringLiteral("Date %1").arg(values::toShortDate(QDate(2024, 3, 18))),
            QStringLiteral("Valid for 30 days")};
        for (int i = 0; i < 3; ++i)
            m_make.label(band[std::size_t(idTop) + std::size_t(i)], ids[i], IdentificationFields,
                         half, half, alignRight);
        band.push_back(Spacer(TwipsPerInch / 6));

        BandRow headings;
        m_make.format(
            m_make.label(headings, QStringLiteral("Quote For"), AddressHeading, 0, half * 0.95),
            "ApplyBorderToControl", presetBottom);
        m_make.format(m_make.label(headings, QStringLiteral("Job Site"), OtherHeadings, half, half),
                      "ApplyBorderToControl", presetBottom);
        band.push_back(headings);
        const QStringList customer = {quote.customer, quote.address, quote.cityLine, quote.phone};
        const QStringList site = {quote.sidemark, quote.address, quote.cityLine, QString()};
        for (int i = 0; i < customer.size(); ++i) {
            BandRow row;
            m_make.field(row, QStringLiteral("BillTo%1").arg(i), customer[i], Address, 0,
                         half * 0.95);
            m_make.field(row, QStringLiteral("ShipTo%1").arg(i), site[i], OtherAddressFields, half,
                         half);
            band.push_back(row);
        }
        band.push_back(Spacer(TwipsPerInch / 8));
        pairs(band,
              {{QStringLiteral("Salesperson"), quote.salesperson},
               {QStringLiteral("Sidemark"), quote.sidemark},
               {QStringLiteral("Terms"), QStringLiteral("Half down, rest when installed")}},
              OrderInformationHeadings, OrderInformation);
        band.push_back(Spacer(TwipsPerInch / 6));
    }

    void lineItems(const Quote &quote)
    {
        const double w = m_width;
        // The edges of the seven columns.
        m_columns = {0, w * 0.06, w * 0.56, w * 0.64, w * 0.73, w * 0.82, w * 0.91, w};
        const QStringList titles = {QStringLiteral("#"),      QStringLiteral("Product and Options"),
                                    QStringLiteral("Qty"),    QStringLiteral("Width"),
                                    QStringLiteral("Height"), QStringLiteral("Each"),
                                    QStringLiteral("Amount")};
        BandRow headings;
        for (int c = 0; c < titles.size(); ++c) {
            ReportLabel *heading = m_make.label(headings, titles[c], LineItemHeadings, m_columns[c],
                                                m_columns[c + 1] - m_columns[c],
                                                c >= 2 ? alignRight : alignLeft);
            m_make.format(heading, "ApplyBackColorSettingsToControl", gray25);
            m_make.format(heading, "ApplyBorderToControl", presetBottom);
        }
        m_report.columnHeadings.push_back(headings);
        m_report.columnHeadings.push_back(Spacer(TwipsPerInch / 24));

        for (int i = 0; i < quote.lines.size(); ++i) {
            const QuoteLine &item = quote.lines[i];
            BandRow row;
            row.keepWithNext = true;
            const QStringList cells = {QString::number(i + 1),
                                       item.product,
                                       QString::number(item.quantity),
                                       inches(item.width),
                                       inches(item.height),
                                       money(item.unitPrice),
                                       money(item.unitPrice * item.quantity)};
            for (int c = 0; c < cells.size(); ++c)
                m_make.field(row, QStringLiteral("Line%1").arg(c), cells[c],
                             c == 6 ? LineItemTotals : LineItemValues, m_columns[c],
                             m_columns[c + 1] - m_columns[c], c >= 2 ? alignRight : alignLeft);
            m_report.body.push_back(row);
            BandRow options;
            m_make.field(options, QStringLiteral("Options"), item.options, LineItemOptions,
                         m_columns[1], m_columns[6] - m_columns[1]);
            options.height += TwipsPerInch / 16;
            m_report.body.push_back(options);
        }
    }

    void totals(const Quote &quote)
    {
        const QuoteTotals t = TotalsOf(quote);
        Band &band = m_report.body;
        band.push_back(Spacer(TwipsPerInch / 12));
        const double labelLeft = m_width * 0.62, valueLeft = m_width * 0.82,
                     valueWidth = m_width * 0.18;
        const struct {
            QString caption;
            double amount;
            qint16 font;
        } rows[] = {
            {QStringLiteral("Subtotal"), t.subtotal, Totals},
            {QStringLiteral("Discount (%1%)").arg(quote.discountRate * 100), -t.discount, Totals},
            {QStringLiteral("Sales tax (%1%)").arg(quote.taxRate * 100), t.tax, Totals},
            {QStringLiteral("Total"), t.total, Totals}};
        for (const auto &r : rows) {
            BandRow row;
            m_make.label(row, r.caption, TotalHeading, labelLeft, valueLeft - labelLeft,
                         alignRight);
            ReportField *amount = m_make.field(row, r.caption, money(r.amount), r.font, valueLeft,
                                               valueWidth, alignRight);
            if (&r == &rows[3]) {
                // Presets accumulate: a line above, then a double line below.
                m_make.format(amount, "ApplyBorderToControl", presetTopBottom);
                m_make.format(amount, "ApplyBorderToControl", presetDoubleBottom);
                row.height += TwipsPerInch / 24;
            }
            band.push_back(row);
        }
        BandRow saved;
        m_make.label(saved, QStringLiteral("You save %1 on this quote.").arg(money(t.discount)),
                     YouSaved, labelLeft, m_width - labelLeft, alignRight);
        band.push_back(saved);
        band.push_back(Spacer(TwipsPerInch / 8));

        section(QStringLiteral("Payments"), PaymentsHeading,
                {QStringLiteral("Deposit due when ordered: %1").arg(money(t.deposit)),
                 QStringLiteral("Balance due at installation: %1").arg(money(t.total - t.deposit))},
                Payments);
        section(QStringLiteral("Comments"), CommentsHeading,
                {QStringLiteral("Measurements are final after the check measure; motorized shades "
                                "include one remote.")},
                Comments);
        section(QStringLiteral("Notes"), NotesHeading,
                {QStringLiteral("Custom products are made to order and cannot be returned.")},
                Comments);

        BandRow heading;
        m_make.label(heading, QStringLiteral("Accepted"), SignatureHeading, 0, m_width);
        heading.keepWithNext = true;
        band.push_back(heading);
        band.push_back(Spacer(TwipsPerInch / 3));
        BandRow lines;
        for (const auto &[caption, left, width] :
             {std::tuple{QStringLiteral("Customer signature"), 0.0, 0.45},
              std::tuple{QStringLiteral("Date"), 0.5, 0.2},
              std::tuple{QStringLiteral("Sunbridge representative"), 0.75, 0.25}})
            m_make.format(m_make.label(lines, caption, Signatures, m_width * left, m_width * width),
                          "ApplyBorderToControl", presetThickTop);
        band.push_back(lines);
    }

    void footer()
    {
        BandRow row;
        m_make.label(row, values::toShortDate(QDate::currentDate()), PrintDate, 0, m_width / 3);
        m_make.label(row, QTime::currentTime().toString(QStringLiteral("h:mm AP")), PrintTime,
                     m_width / 3, m_width / 3, alignCenter);
        ReportLabel *page = m_make.label(row, QString(), OtherHeadings, m_width * 2 / 3,
                                         m_width / 3, alignRight);
        m_report.footer = {Spacer(TwipsPerInch / 12), row};
        m_report.footerOnAllPages = true;
        m_report.beforeFooter = [page](int number, int count) {
            page->setProperty("Caption", QStringLiteral("Page %1 of %2").arg(number).arg(count));
        };
    }

private:
    void line(Band &band, const QString &text, qint16 font)
    {
        BandRow row;
        m_make.label(row, text, font, 0, m_width / 2);
        band.push_back(row);
    }

    void section(const QString &title, qint16 headingFont, const QStringList &lines, qint16 font)
    {
        BandRow heading;
        heading.keepWithNext = true;
        m_make.label(heading, title, headingFont, 0, m_width);
        m_report.body.push_back(heading);
        for (const QString &text : lines) {
            BandRow row;
            m_make.field(row, title, text, font, 0, m_width);
            m_report.body.push_back(row);
        }
        m_report.body.push_back(Spacer(TwipsPerInch / 12));
    }

    BandedReport &m_report;
    ControlMaker &m_make;
    double m_width;
    QList<double> m_columns;
};

} // namespace

QuoteTotals TotalsOf(const Quote &quote)
{
    // In whole cents, each amount rounded as it is printed, so the printed amounts add up.
    qint64 subtotal = 0;
    for (const QuoteLine &line : quote.lines)
        subtotal += std::llround(line.unitPrice * 100) * line.quantity;
    const qint64 discount = std::llround(double(subtotal) * quote.discountRate);
    const qint64 tax = std::llround(double(subtotal - discount) * quote.taxRate);
    const qint64 total = subtotal - discount + tax;
    const qint64 deposit = (total + 1) / 2;
    return {subtotal / 100.0, discount / 100.0, tax / 100.0, total / 100.0, deposit / 100.0};
}

std::unique_ptr<BandedReport> BuildQuoteReport(QObject *library, const Company &company,
                                               const Quote &quote, double width)
{
    QObject *reportLayout = late::object(library, "ReportLayout");
    if (!reportLayout)
        return nullptr;
    auto report = std::make_unique<BandedReport>(reportLayout, processReportType);
    QuoteBuilder build(*report, width);
    build.header(company, quote);
    build.lineItems(quote);
    build.totals(quote);
    build.footer();
    return report;
}
