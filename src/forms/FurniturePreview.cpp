#include "forms/FurniturePreview.h"

#include "layout/FormatPickers.h"
#include "layout/ReportFontsIndex.h"
#include "layout/WindowsColor.h"

#include <QPainter>

namespace bravcpl5 {

namespace {
constexpr std::int16_t furnitureTypes[] = {furnitureFont::company,   furnitureFont::title,
                                           furnitureFont::subTitle,  furnitureFont::printDate,
                                           furnitureFont::printTime, furnitureFont::extraLine,
                                           furnitureFont::pageNumber};

Qt::Alignment horizontal(std::int16_t alignment)
{
    switch (alignment) {
    case pickers::alignRight:
        return Qt::AlignRight;
    case pickers::alignCenter:
        return Qt::AlignHCenter;
    default:
        return Qt::AlignLeft;
    }
}
} // namespace

FurniturePreview::FurniturePreview(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void FurniturePreview::setFonts(const ReportFontsIndex &fonts)
{
    m_styles.clear();
    for (std::int16_t type : furnitureTypes) {
        LineStyle style{QFont(QStringLiteral("Arial"), 10), Qt::black};
        if (const ControlFont *font = fonts.font(type)) {
            if (!font->name.isEmpty())
                style.font.setFamily(font->name);
            style.font.setPointSizeF(font->size.value_or(10));
            style.font.setBold(font->bold.value_or(false));
            style.font.setItalic(font->italic.value_or(false));
            style.font.setUnderline(font->underline.value_or(false));
            style.font.setStrikeOut(font->strikethrough.value_or(false));
            style.color = ColorFromWindows(font->color.value_or(0));
        }
        m_styles.insert(type, style);
    }
    update();
}

void FurniturePreview::setLines(const QList<FurnitureLine> &header,
                                const QList<FurnitureLine> &footer)
{
    if (header == m_header && footer == m_footer)
        return;
    m_header = header;
    m_footer = footer;
    update();
}

void FurniturePreview::setPage(const Page &page)
{
    if (page.paper.isEmpty() || page == m_page)
        return;
    m_page = page;
    update();
}

QRectF FurniturePreview::pageRect() const
{
    // A thin border of the window's colour stays around the page.
    const QRectF room = QRectF(rect()).adjusted(4, 4, -5, -5);
    const QSizeF page = m_page.paper.scaled(room.size(), Qt::KeepAspectRatio);
    return QRectF(room.center() - QPointF(page.width(), page.height()) / 2, page);
}

FurniturePreview::LineStyle FurniturePreview::style(const FurnitureLine &line, double scale) const
{
    LineStyle style = m_styles.value(line.fontType,
                                     {QFont(QStringLiteral("Arial"), 10), Qt::black});
    style.font.setPointSizeF(qMax(1.0, style.font.pointSizeF() * scale));
    if (line.notBold)
        style.font.setBold(false);
    return style;
}

void FurniturePreview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    // The page: white, with a thin edge, its printed area inset by its margins.
    const QRectF page = pageRect();
    painter.fillRect(page, Qt::white);
    painter.setPen(palette().mid().color());
    painter.drawRect(page);
    const double perInch = page.width() / m_page.paper.width();
    const QRectF area = page - m_page.margins * perInch;
    // Point sizes shrink with the page, so a line keeps its share of the width.
    const double scale = perInch / logicalDpiX();

    double y = area.top();
    auto drawLine = [&](const FurnitureLine &line, double top) {
        const LineStyle s = style(line, scale);
        painter.setFont(s.font);
        painter.setPen(s.color);
        const double height = QFontMetricsF(s.font).height();
        painter.drawText(QRectF(area.left(), top, area.width(), height),
                         horizontal(line.alignment) | Qt::AlignVCenter | Qt::TextSingleLine,
                         line.text);
        return height;
    };
    for (const FurnitureLine &line : std::as_const(m_header))
        y += drawLine(line, y);

    double footerHeight = 0;
    for (const FurnitureLine &line : std::as_const(m_footer))
        footerHeight += QFontMetricsF(style(line, scale).font).height();
    const double footerTop = area.bottom() - footerHeight;

    // The report's rows, as grey bars between the furniture.
    const double rowHeight = qMax(3.0, perInch / 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xDD, 0xDD, 0xDD));
    int row = 0;
    for (double top = y + rowHeight; top + rowHeight < footerTop - rowHeight;
         top += rowHeight * 1.8, ++row)
        painter.drawRect(
            QRectF(area.left(), top, area.width() * (row % 3 == 2 ? 0.6 : 1.0), rowHeight));

    double bottom = footerTop;
    for (const FurnitureLine &line : std::as_const(m_footer))
        bottom += drawLine(line, bottom);
}

} // namespace bravcpl5
