#include "ReportBands.h"

#include "library/LateBinding.h"
#include "report/ReportField.h"
#include "report/ReportLabel.h"

#include <QPainter>

using namespace bravcpl5;

namespace {

double drawRow(QPainter &painter, const BandRow &row, double y)
{
    for (const ReportControl *control : row.controls) {
        const QRectF at = control->twipsRect();
        control->draw(painter, QRectF(at.left(), y, at.width(), row.height));
    }
    return y + row.height;
}

double drawRows(QPainter &painter, const Band &band, double y)
{
    for (const BandRow &row : band)
        y = drawRow(painter, row, y);
    return y;
}

} // namespace

double HeightOf(const Band &band)
{
    double height = 0;
    for (const BandRow &row : band)
        height += row.height;
    return height;
}

BandRow Spacer(double twips)
{
    BandRow row;
    row.height = twips;
    return row;
}

ControlMaker::ControlMaker(QObject *reportLayout, qint16 reportType)
    : m_layout(reportLayout), m_reportType(reportType)
{}

ReportLabel *ControlMaker::label(BandRow &row, const QString &caption, qint16 fontType, double left,
                                 double width, qint16 alignment)
{
    auto *control = new ReportLabel(&m_controls);
    control->setProperty("Caption", caption);
    place(row, control, fontType, left, width, alignment);
    return control;
}

ReportField *ControlMaker::field(BandRow &row, const QString &dataField, const QString &text,
                                 qint16 fontType, double left, double width, qint16 alignment)
{
    auto *control = new ReportField(&m_controls);
    control->setProperty("DataField", dataField);
    control->setProperty("Text", text);
    place(row, control, fontType, left, width, alignment);
    return control;
}

void ControlMaker::format(QObject *control, const char *member, const QVariant &code)
{
    late::call(m_layout, member, {QVariant::fromValue(control), code});
}

void ControlMaker::place(BandRow &row, ReportControl *control, qint16 fontType, double left,
                         double width, qint16 alignment)
{
    format(control, "ApplyAlignmentToControl", alignment);
    late::call(m_layout, "ApplyFontSettingsToControl",
               {QVariant::fromValue<QObject *>(control), m_reportType, fontType});
    control->setTwipsRect(QRectF(left, 0, width, 0));
    row.height = qMax(row.height,
                      late::value(m_layout, "GetFontHeight", {m_reportType, fontType}).toDouble());
    row.controls.push_back(control);
}

void BandedReport::paginate(double contentHeight)
{
    m_contentHeight = contentHeight;
    m_pages.assign(1, {});
    double used = 0;
    for (std::size_t i = 0; i < body.size(); ++i) {
        double needed = body[i].height;
        if (body[i].keepWithNext && i + 1 < body.size())
            needed += body[i + 1].height;
        if (used + needed > available(m_pages.size() - 1) && !m_pages.back().empty()) {
            m_pages.emplace_back();
            used = 0;
        }
        m_pages.back().push_back(i);
        used += body[i].height;
    }
}

double BandedReport::available(std::size_t page) const
{
    return m_contentHeight - (headerOn(page) ? HeightOf(header) : 0) - HeightOf(columnHeadings)
           - (footerOn(page) ? HeightOf(footer) : 0);
}

void BandedReport::drawPage(QPainter &painter, int index)
{
    double y = 0;
    if (headerOn(std::size_t(index)))
        y = drawRows(painter, header, y);
    y = drawRows(painter, columnHeadings, y);
    for (std::size_t i : m_pages[std::size_t(index)])
        y = drawRow(painter, body[i], y);
    if (footerOn(std::size_t(index))) {
        if (beforeFooter)
            beforeFooter(index + 1, pageCount());
        drawRows(painter, footer, m_contentHeight - HeightOf(footer));
    }
}
