#pragma once

// A small picture of a general report page as its furniture will print: the header lines
// at the top, a few grey bars standing for the report's rows, the footer lines at the
// bottom, each line in its alignment and in the font and colour the general report fonts
// give its type. It only paints what it is given (layout/ReportFurniture.h).

#include "layout/ReportFurniture.h"

#include <QFont>
#include <QHash>
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
};

} // namespace bravcpl5
