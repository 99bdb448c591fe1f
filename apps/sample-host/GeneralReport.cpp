#include "GeneralReport.h"

#include "ColumnText.h"
#include "ReportFilters.h"

#include "layout/FurnitureFormats.h"
#include "layout/GeneralReportLayout.h"
#include "layout/ReportFurniture.h"
#include "library/LateBinding.h"
#include "library/Units.h"
#include "library/ValueRules.h"
#include "library/Xml.h"
#include "report/ReportField.h"
#include "report/ReportLabel.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>

using namespace bravcpl5;

namespace {

// The general report font types of the body.
enum FontType : qint16 {
    FieldHeading = 4,
    DataField = 5,
    GroupHeaderHeading = 10,
    GroupHeaderDataField,
    GroupFooterHeading,
    GroupFooterDataField,
};

// Codes of the library's pickers that the body uses.
constexpr qint16 bold = 2;
constexpr qint16 presetBottom = 2, presetDoubleBottom = 3, presetTopBottom = 4, presetThickTop = 13;
constexpr qint32 gray25 = 0xC0C0C0, paleGray = 0xF0F0F0;

// The most lines a column heading wraps onto.
constexpr int maxHeadingLines = 3;

// Room between the text and the lines of a row with borders above and below.
constexpr double ruledRowPadding = TwipsPerInch / 24;

struct Column {
    QString key, label;
    double left = 0, width = 0;
    bool money = false, number = false;
    bool whole = false; // numbers, dates and figures, which are never cut short
};

QString money(double value) { return QLocale().toString(value, 'f', 2); }

QString cellText(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Double:
        return money(value.toDouble());
    case QMetaType::QDate:
        return values::toShortDate(value.toDate());
    case QMetaType::Int:
        return QLocale().toString(value.toInt());
    default:
        return value.toString();
    }
}

// The columns the file lists, each as wide as its size asks.
QList<Column> readColumns(const pugi::xml_document &document, const QList<Record> &records)
{
    QList<Column> columns;
    for (pugi::xml_node field :
         SelectSingleNode(document, QStringLiteral("//Fields")).node().children()) {
        if (field.type() != pugi::node_element)
            continue;
        const QString key = QString::fromUtf8(field.name());
        QString size = GetXmlAttribute(field, QStringLiteral("size"), QString());
        if (size.isEmpty())
            size = GetXmlAttribute(field, QStringLiteral("width"), QStringLiteral("2"));
        const double inches = values::leadingNumber(size, QLocale());
        if (inches <= 0)
            continue;
        Column column{key, GetXmlAttribute(field, QStringLiteral("label"), key), 0,
                      inches * TwipsPerInch};
        const QVariant sample = records.isEmpty() ? QVariant() : records.first().value(key);
        column.money = sample.typeId() == QMetaType::Double;
        column.number = column.money || sample.typeId() == QMetaType::Int;
        // Phone numbers and the like are figures too.
        static const QRegularExpression figures(QStringLiteral("^[\\d\\s()+\\-./,:%]*$"));
        column.whole = column.number || sample.typeId() == QMetaType::QDate
                       || std::all_of(records.begin(), records.end(), [&](const Record &record) {
                              return figures.match(cellText(record.value(key))).hasMatch();
                          });
        columns.append(column);
    }
    return columns;
}

// "1 line", "12 lines".
QString lineCount(qsizetype count)
{
    return count == 1 ? QStringLiteral("1 line")
                      : QStringLiteral("%1 lines").arg(QLocale().toString(count));
}

// The narrowest a column may be: its heading's longest word, and for numbers and dates the
// longest of them (amounts with their total), with the room beside the text and a point to
// spare for the printer's rounding.
double leastWidth(const Column &column, const QList<Record> &records, const QFontMetricsF &heading,
                  const QFontMetricsF &cells, const QFontMetricsF &totals)
{
    double longest = 0;
    for (const QString &word : column.label.split(u' ', Qt::SkipEmptyParts))
        longest = qMax(longest, heading.horizontalAdvance(word));
    if (column.whole) {
        double sum = 0;
        for (const Record &record : records) {
            const QVariant value = record.value(column.key);
            longest = qMax(longest, cells.horizontalAdvance(cellText(value)));
            sum += std::abs(value.toDouble());
        }
        if (column.money)
            longest = qMax(longest, totals.horizontalAdvance(money(sum)));
    }
    return longest + 2 * ReportControl::TextPaddingTwips + TwipsPerPoint;
}

// The subtitle says in words what the report's records were selected with.
QString filtersSummary(QObject *library, const pugi::xml_document &document)
{
    return ReadReportFilters(late::object(library, "SharedCodeLibrary"), document,
                             QDate::currentDate())
        .summary();
}

class GeneralReportBuilder
{
public:
    GeneralReportBuilder(BandedReport &report, const QList<Column> &columns, double width)
        : m_report(report), m_make(report.make), m_columns(columns), m_width(width)
    {}

    void furniture(const QList<FurnitureLine> &lines, Band &band)
    {
        for (const FurnitureLine &line : lines) {
            BandRow row;
            ReportLabel *control = m_make.label(row, line.text, line.fontType, 0, m_width,
                                                line.alignment);
            if (line.notBold)
                m_make.format(control, "ApplyTextFormatSettingsToControl", 1);
            if (line.fontType == furnitureFont::pageNumber)
                m_pageNumber = control;
            band.push_back(row);
        }
    }

    ReportLabel *pageNumber() const { return m_pageNumber; }

    // The column headings, with the columns fitted to the width: scaled down together when
    // they are wider, though never narrower than their heading's longest word, nor than
    // the longest of their numbers and dates, as a number cut short would mislead. A heading
    // too wide for its column wraps at its words; the row grows to the most lines and every
    // heading sits on the row's bottom line. Comes before the body, which takes its columns.
    void headings(const QList<Record> &records)
    {
        const auto fontOf = [&](qint16 fontType) {
            BandRow probe;
            return m_make.field(probe, {}, {}, fontType, 0, 0)->font()->toQFont();
        };
        const QFontMetricsF cells = PrintedMetrics(fontOf(DataField));
        // The grand total is bold (see totals()), and no subtotal is longer than the sum of
        // all the amounts.
        QFont totalFont = fontOf(GroupFooterDataField);
        totalFont.setBold(true);
        const QFontMetricsF totals = PrintedMetrics(totalFont);
        BandRow row;
        QList<QFontMetricsF> metrics;
        QList<double> wanted, least;
        for (const Column &c : m_columns) {
            ReportLabel *heading = m_make.label(row, c.label, FieldHeading, 0, 0,
                                                c.number ? alignRight : alignLeft);
            m_make.format(heading, "ApplyBackColorSettingsToControl", gray25);
            m_make.format(heading, "ApplyBorderToControl", presetBottom);
            metrics.append(PrintedMetrics(heading->font()->toQFont()));
            wanted.append(c.width);
            least.append(leastWidth(c, records, metrics.last(), cells, totals));
        }
        const QList<double> widths = FitWidths(wanted, least, m_width);
        QList<QStringList> lines;
        qsizetype most = 1;
        double left = 0;
        for (qsizetype i = 0; i < m_columns.size(); ++i) {
            m_columns[i].left = left;
            m_columns[i].width = widths[i];
            left += widths[i];
            row.controls[std::size_t(i)]->setTwipsRect(QRectF(m_columns[i].left, 0, widths[i], 0));
            lines.append(WrapWords(m_columns[i].label, metrics[i],
                                   widths[i] - 2 * ReportControl::TextPaddingTwips,
                                   maxHeadingLines));
            most = qMax(most, lines.last().size());
        }
        for (qsizetype i = 0; i < lines.size(); ++i)
            row.controls[std::size_t(i)]->setProperty(
                "Caption", QString(most - lines[i].size(), u'\n') + lines[i].join(u'\n'));
        row.height *= double(most);
        m_report.columnHeadings.push_back(row);
        m_report.columnHeadings.push_back(Spacer(TwipsPerInch / 24));
    }

    void body(QList<Record> records, const QString &groupBy)
    {
        if (!groupBy.isEmpty()) {
            std::stable_sort(records.begin(), records.end(), [&](const Record &a, const Record &b) {
                return cellText(a.value(groupBy))
                           .compare(cellText(b.value(groupBy)), Qt::CaseInsensitive)
                       < 0;
            });
        }
        QList<double> total(m_columns.size(), 0.0);
        for (qsizetype first = 0; first < records.size();) {
            const QVariant group = groupBy.isEmpty() ? QVariant() : records[first].value(groupBy);
            qsizetype next = first;
            while (next < records.size()
                   && (groupBy.isEmpty() || records[next].value(groupBy) == group))
                ++next;
            if (!groupBy.isEmpty())
                groupHeader(groupBy, cellText(group));
            QList<double> sums(m_columns.size(), 0.0);
            for (qsizetype i = first; i < next; ++i) {
                BandRow row;
                for (qsizetype c = 0; c < m_columns.size(); ++c) {
                    const Column &column = m_columns[c];
                    const QVariant value = records[i].value(column.key);
                    m_make.field(row, column.key, cellText(value), DataField, column.left,
                                 column.width, column.number ? alignRight : alignLeft);
                    if (column.money)
                        sums[c] += value.toDouble();
                }
                m_report.body.push_back(row);
            }
            if (!groupBy.isEmpty()) {
                totals(lineCount(next - first), sums, presetTopBottom);
                m_report.body.push_back(Spacer(TwipsPerInch / 8));
            }
            for (qsizetype c = 0; c < m_columns.size(); ++c)
                total[c] += sums[c];
            first = next;
        }
        totals(lineCount(records.size()) + QStringLiteral(" in all"), total, presetThickTop);
    }

private:
    void groupHeader(const QString &groupBy, const QString &value)
    {
        BandRow header;
        header.keepWithNext = true;
        const double split = qMin(m_width / 4, 2 * TwipsPerInch);
        for (ReportControl *control :
             {static_cast<ReportControl *>(
                  m_make.label(header, groupLabel(groupBy) + u':', GroupHeaderHeading, 0, split)),
              static_cast<ReportControl *>(m_make.field(
                  header, groupBy, value, GroupHeaderDataField, split, m_width - split))})
            m_make.format(control, "ApplyBackColorSettingsToControl", paleGray);
        m_report.body.push_back(header);
    }

    QString groupLabel(const QString &key) const
    {
        for (const Column &c : m_columns)
            if (c.key == key)
                return c.label;
        return key;
    }

    // A count under the first columns and the sums under the money columns; the grand
    // total has a thick line above and a double line below (presets accumulate).
    void totals(const QString &caption, const QList<double> &sums, qint16 border)
    {
        BandRow row;
        const qsizetype firstMoney = std::find_if(m_columns.begin(), m_columns.end(),
                                                  [](const Column &c) { return c.money; })
                                     - m_columns.begin();
        const double captionWidth = firstMoney < m_columns.size() ? m_columns[firstMoney].left
                                                                  : m_width;
        m_make.label(row, caption, GroupFooterHeading, 0, captionWidth);
        for (qsizetype c = firstMoney; c < m_columns.size(); ++c) {
            if (!m_columns[c].money)
                continue;
            ReportField *sum = m_make.field(row, QStringLiteral("Sum(%1)").arg(m_columns[c].key),
                                            money(sums[c]), GroupFooterDataField, m_columns[c].left,
                                            m_columns[c].width, alignRight);
            m_make.format(sum, "ApplyBorderToControl", border);
            if (border == presetThickTop) {
                m_make.format(sum, "ApplyBorderToControl", presetDoubleBottom);
                m_make.format(sum, "ApplyTextFormatSettingsToControl", bold);
            }
        }
        row.height += (border == presetThickTop ? 2 : 1) * ruledRowPadding;
        m_report.body.push_back(row);
    }

    BandedReport &m_report;
    ControlMaker &m_make;
    QList<Column> m_columns;
    double m_width;
    ReportLabel *m_pageNumber = nullptr;
};

} // namespace

GeneralReportTexts ReadGeneralReportTexts(const QString &configurationFile)
{
    GeneralReportTexts texts;
    const XmlDocumentPtr document = LoadXmlFile(configurationFile);
    if (!document)
        return texts;
    texts.title = GetXmlValue(QStringLiteral("//Title"), *document, QString());
    texts.description = GetXmlValue(QStringLiteral("//Description"), *document, QString());
    texts.source = GetXmlValue(QStringLiteral("//Identification/Source"), *document,
                               QStringLiteral("Orders"));
    texts.groupBy = GetXmlValue(QStringLiteral("//GroupBy"), *document, QString());
    return texts;
}

std::unique_ptr<BandedReport> BuildGeneralReport(QObject *library, const QString &configurationFile,
                                                 const QList<Record> &records, double width)
{
    QObject *reportLayout = late::object(library, "ReportLayout");
    if (!reportLayout)
        return nullptr;
    const XmlDocumentPtr document = LoadXmlFile(configurationFile);
    const pugi::xml_document empty;
    const pugi::xml_document &configuration = document ? *document : empty;
    const GeneralReportTexts texts = ReadGeneralReportTexts(configurationFile);

    // The host reads the layout document itself; without one it keeps the defaults.
    GeneralReportLayout layout;
    if (const XmlDocumentPtr lyx = LoadXmlText(
            late::text(reportLayout, "LoadGeneralReportLayout", {configurationFile})))
        layout.read(*lyx);

    auto report = std::make_unique<BandedReport>(reportLayout, generalReportType);
    report->headerOnAllPages = layout.headerOnAllPages;
    report->footerOnAllPages = layout.footerOnAllPages;
    GeneralReportBuilder build(*report, readColumns(configuration, records), width);
    build.furniture(
        HeaderFurniture(layout,
                        {texts.title, filtersSummary(library, configuration), texts.description},
                        QDateTime::currentDateTime()),
        report->header);
    if (!report->header.empty())
        report->header.push_back(Spacer(TwipsPerInch / 6));
    build.headings(records);
    build.body(records, texts.groupBy);
    const QList<FurnitureLine> footer = FooterFurniture(layout, 1, 1);
    if (!footer.isEmpty())
        report->footer.push_back(Spacer(TwipsPerInch / 12));
    build.furniture(footer, report->footer);
    if (ReportLabel *pageNumber = build.pageNumber()) {
        const QString format = layout.pageNumber.format;
        report->beforeFooter = [pageNumber, format](int page, int pages) {
            pageNumber->setProperty("Caption", FormatPageNumber(format, page, pages));
        };
    }
    return report;
}
