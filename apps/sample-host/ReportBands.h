#pragma once

// Building blocks of the sample host's reports, as a host's report engine has them:
// controls made and formatted through the library's ReportLayout (by name, late-bound),
// rows of controls side by side, and bands of rows cut into pages.

#include "report/ReportControl.h"

#include <QObject>
#include <QVariant>
#include <functional>
#include <vector>

class QPainter;

namespace bravcpl5 {
class ReportField;
class ReportLabel;
} // namespace bravcpl5

// Report types and the alignment codes of the library's pickers.
inline constexpr qint16 generalReportType = 1, processReportType = 3;
inline constexpr qint16 alignLeft = 0, alignRight = 1, alignCenter = 2;

// One line of a band: its controls side by side, as high as its tallest font.
struct BandRow {
    double height = 0; // twips
    std::vector<bravcpl5::ReportControl *> controls;
    bool keepWithNext = false;
};
using Band = std::vector<BandRow>;

double HeightOf(const Band &band);
BandRow Spacer(double twips);

// Makes controls of one report type and formats them through the ReportLayout; owns them.
class ControlMaker
{
public:
    ControlMaker(QObject *reportLayout, qint16 reportType);

    bravcpl5::ReportLabel *label(BandRow &row, const QString &caption, qint16 fontType, double left,
                                 double width, qint16 alignment = alignLeft);
    bravcpl5::ReportField *field(BandRow &row, const QString &dataField, const QString &text,
                                 qint16 fontType, double left, double width,
                                 qint16 alignment = alignLeft);
    // Calls a formatting member (ApplyBorderToControl and the like) on a control.
    void format(QObject *control, const char *member, const QVariant &code);

private:
    void place(BandRow &row, bravcpl5::ReportControl *control, qint16 fontType, double left,
               double width, qint16 alignment);

    QObject *m_layout;
    qint16 m_reportType;
    QObject m_controls;
};

// A report as bands: the header on the first page (or every page), the column headings on
// every page, the body cut between pages (a row kept with the next moves with it), and
// the footer at the foot of the first page (or every page).
class BandedReport
{
public:
    BandedReport(QObject *reportLayout, qint16 reportType) : make(reportLayout, reportType) {}

    ControlMaker make; // owns the controls of the bands
    Band header, columnHeadings, body, footer;
    bool headerOnAllPages = false;
    bool footerOnAllPages = false;
    // Called before a footer is drawn, e.g. to set the page number's caption.
    std::function<void(int page, int pageCount)> beforeFooter;

    void paginate(double contentHeight);
    int pageCount() const { return int(m_pages.size()); }
    // Draws page `index` (from 0) with the painter's origin at the content's top left.
    void drawPage(QPainter &painter, int index);

private:
    bool headerOn(std::size_t page) const { return page == 0 || headerOnAllPages; }
    bool footerOn(std::size_t page) const { return page == 0 || footerOnAllPages; }
    double available(std::size_t page) const;

    double m_contentHeight = 0;
    std::vector<std::vector<std::size_t>> m_pages;
};
