#include "layout/ReportFurniture.h"

#include "layout/FurnitureFormats.h"

namespace bravcpl5 {

namespace {
void add(QList<FurnitureLine> &lines, const LayoutItem &item, const QString &text,
         std::int16_t fontType, std::int16_t alignment, bool notBold = false)
{
    if (item.show)
        lines.append({text, fontType, alignment, notBold});
}
} // namespace

QList<FurnitureLine> HeaderFurniture(const GeneralReportLayout &layout, const ReportTitles &titles,
                                     const QDateTime &printed)
{
    QList<FurnitureLine> lines;
    add(lines, layout.company, layout.company.label, furnitureFont::company,
        layout.company.alignment);
    add(lines, layout.title, titles.title, furnitureFont::title, layout.title.alignment);
    add(lines, layout.subTitle, titles.subTitle, furnitureFont::subTitle,
        layout.subTitle.alignment);
    add(lines, layout.description, titles.description, furnitureFont::subTitle,
        layout.description.alignment, true);
    add(lines, layout.printDate, FormatPrintDate(layout.printDate.format, printed.date()),
        furnitureFont::printDate, layout.printDate.alignment);
    add(lines, layout.printTime, FormatPrintTime(layout.printTime.format, printed.time()),
        furnitureFont::printTime, layout.printDate.alignment);
    return lines;
}

QList<FurnitureLine> FooterFurniture(const GeneralReportLayout &layout, int page, int pageCount)
{
    QList<FurnitureLine> lines;
    add(lines, layout.extraLine, layout.extraLine.label, furnitureFont::extraLine,
        layout.extraLine.alignment);
    add(lines, layout.pageNumber, FormatPageNumber(layout.pageNumber.format, page, pageCount),
        furnitureFont::pageNumber, layout.pageNumber.alignment);
    return lines;
}

} // namespace bravcpl5
