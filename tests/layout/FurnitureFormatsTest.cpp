// The furniture's format texts as a report prints them, in en_US and in other locales,
// and the furniture lines the layout gives.

#include "layout/FurnitureFormats.h"
#include "layout/ReportFurniture.h"

#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

const QDate date(2024, 3, 5); // a Tuesday
const QTime afternoon(14, 7, 9);
const QTime midnight(0, 4, 0);

TEST(FurnitureFormats, DatesTimesAndPageNumbersPrintAsAHostWould)
{
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    const struct {
        QString format;
        QString date;
    } dates[] = {
        {"", "3/5/2024"},
        {"Short Date", "3/5/2024"},
        {"General Date", "3/5/2024"},
        {"Medium Date", "05-Mar-24"},
        {"Long Date", us.toString(date, QLocale::LongFormat)},
        {"mm/dd/yyyy", "03/05/2024"},
        {"dd/mm/yyyy", "05/03/2024"},
        {"mmmm d, yyyy", "March 5, 2024"},
        {"dddd, mmmm d, yyyy", "Tuesday, March 5, 2024"},
        {"ddd d mmm yy", "Tue 5 Mar 24"},
        {"\"Printed\" yyyy", "Printed 2024"},
        {"\\d d", "d 5"},
    };
    for (const auto &c : dates)
        EXPECT_EQ(FormatPrintDate(c.format, date, us), c.date) << c.format.toStdString();

    const struct {
        QString format;
        QTime time;
        QString text;
    } times[] = {
        {"", afternoon, "14:07"},
        {"Short Time", afternoon, "14:07"},
        {"Medium Time", afternoon, "02:07 PM"},
        {"Long Time", afternoon, "2:07:09 PM"},
        {"h:nn AM/PM", afternoon, "2:07 PM"},
        {"h:nn am/pm", midnight, "12:04 am"},
        {"hh:mm:ss", afternoon, "14:07:09"}, // minutes right after the hour
        {"h:nn a/p", afternoon, "2:07 p"},
    };
    for (const auto &c : times)
        EXPECT_EQ(FormatPrintTime(c.format, c.time, us), c.text) << c.format.toStdString();

    EXPECT_EQ(FormatPageNumber("Page nnnn", 2, 7), "Page 2");
    EXPECT_EQ(FormatPageNumber("Page: nnn/mmm", 2, 7), "Page: 2/7");
    EXPECT_EQ(FormatPageNumber("", 2, 7), "Page 2 of 7");
}

TEST(FurnitureFormats, EveryOfferedFormatPrintsSomethingInEveryLocale)
{
    for (const char *name : {"C", "de_DE", "ja_JP", "ar_EG"}) {
        const QLocale locale{QString::fromLatin1(name)};
        for (const QString &format : PrintDateFormats())
            EXPECT_FALSE(FormatPrintDate(format, date, locale).isEmpty())
                << name << format.toStdString();
        for (const QString &format : PrintTimeFormats())
            EXPECT_FALSE(FormatPrintTime(format, afternoon, locale).isEmpty())
                << name << format.toStdString();
    }
    EXPECT_EQ(FormatPrintDate("mmmm", date, QLocale(QStringLiteral("de_DE"))), "März");
}

TEST(ReportFurniture, LinesFollowTheLayoutInPrintOrder)
{
    GeneralReportLayout layout;
    layout.company.label = "Acme";
    layout.subTitle.show = false;
    layout.printDate.format = "yyyy";
    layout.printDate.alignment = 1;
    layout.extraLine.label = "Thank you";
    layout.pageNumber.format = "Page nnn of mmm";
    const QList<FurnitureLine> header = HeaderFurniture(layout, {"Title", "Sub", "About"},
                                                        QDateTime(date, afternoon));
    const QList<FurnitureLine> expected = {
        {"Acme", furnitureFont::company, 1, false},
        {"Title", furnitureFont::title, 2, false},
        {"About", furnitureFont::subTitle, 2, true},
        {"2024", furnitureFont::printDate, 1, false},
        {QLocale().toString(afternoon, QStringLiteral("HH:mm")), furnitureFont::printTime, 1,
         false},
    };
    EXPECT_EQ(header, expected);
    EXPECT_EQ(FooterFurniture(layout, 2, 5),
              (QList<FurnitureLine>{{"Thank you", furnitureFont::extraLine, 0, false},
                                    {"Page 2 of 5", furnitureFont::pageNumber, 0, false}}));
}

} // namespace
} // namespace bravcpl5
