#pragma once

// A small picture of a general report page as its furniture will print: the header lines
// at the top, a few grey bars standing for the report's rows, the footer lines at the
// bottom, each line in its alignment and in the font and colour the general report fonts
// give its type, on a page of the given paper and margins, turned as the report will print.
// It only paints what it is given (layout/ReportFurniture.h).

#include "layout/ReportFurniture.h"

#include <QFont>
#include <QHash>
#include <QMarginsF>
#include <QSizeF>
#include <QWidget>

namespace bravcpl5 {

class ReportFontsIndex;

class FurniturePreview : public QWidget
{
    Q_OBJECT

public:
    explicit FurniturePreview(QWidget *parent = nullptr);

    // The fonts of the furniture's types; types the index lacks print in Arial 10.
    void setFonts(const ReportFontsIndex &fonts);
    void setLines(const QList<FurnitureLine> &header, const QList<FurnitureLine> &footer);
    // The page as it prints, in inches: wider than high for landscape. By default Letter
    // upright, with 1-inch margins at the sides and 0.75-inch ones at the top and bottom.
    struct Page {
        QSizeF paper{8.5, 11};
        QMarginsF margins{1, 0.75, 1, 0.75};
        bool operator==(const Page &) const = default;
    };
    void setPage(const Page &page);

    // Where the page is drawn: the largest rectangle of the page's shape that fits.
    QRectF pageRect() const;

    QList<FurnitureLine> headerLines() const { return m_header; }
    QList<FurnitureLine> footerLines() const { return m_footer; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct LineStyle {
        QFont font;
        QColor color;
    };
    LineStyle style(const FurnitureLine &line, double scale) const;

    QHash<std::int16_t, LineStyle> m_styles; // at full size
    QList<FurnitureLine> m_header;
    QList<FurnitureLine> m_footer;
    Page m_page;
};

} // namespace bravcpl5
