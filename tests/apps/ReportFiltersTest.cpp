// The sample host's general reports select their records by their filters, against the
// sample database as a dealer's first run creates it: named date ranges on the calendar
// of the locale, custom ranges, lists, product sources, yes/no switches and free text,
// and a subtitle that says them in words.

#include "ReportFilters.h"
#include "GeneralReport.h"
#include "SampleHost.h"

#include "database/HostDatabase.h"
#include "filters/DateRanges.h"
#include "library/Library.h"
#include "library/Xml.h"
#include "report/ReportLabel.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {

using bravcpl5::ReportControl;

const QString sampleReports = QStringLiteral(BRAVCPL5_TEST_DATA
                                             "/../../apps/sample-host/sample-data/System/Reports");

// ---- Named ranges ---------------------------------------------------------------------

TEST(NamedDateRange, CoversTheCalendarPeriodSeenFromToday)
{
    const QLocale us(QLocale::English, QLocale::UnitedStates);
    const QLocale de(QLocale::German, QLocale::Germany);
    using D = QDate;
    const struct {
        const char *range;
        QLocale locale;
        QDate today, first, last;
    } cases[] = {
        // Weeks start on Sunday in the United States and on Monday in Germany.
        {"This Week", us, D(2024, 3, 3), D(2024, 3, 3), D(2024, 3, 9)},     // a Sunday
        {"This Week", de, D(2024, 3, 3), D(2024, 2, 26), D(2024, 3, 3)},    // a Sunday
        {"This Week", us, D(2024, 3, 4), D(2024, 3, 3), D(2024, 3, 9)},     // a Monday
        {"This Week", de, D(2024, 3, 4), D(2024, 3, 4), D(2024, 3, 10)},    // a Monday
        {"Last Week", us, D(2024, 3, 3), D(2024, 2, 25), D(2024, 3, 2)},    // a Sunday
        {"Last Week", de, D(2024, 3, 3), D(2024, 2, 19), D(2024, 2, 25)},   // a Sunday
        {"Last Week", us, D(2024, 1, 1), D(2023, 12, 24), D(2023, 12, 30)}, // a Monday
        {"Last Week", de, D(2024, 1, 1), D(2023, 12, 25), D(2023, 12, 31)}, // a Monday
        // Leap day.
        {"Today", us, D(2024, 2, 29), D(2024, 2, 29), D(2024, 2, 29)},
        {"Yesterday", de, D(2024, 2, 29), D(2024, 2, 28), D(2024, 2, 28)},
        {"This Month", us, D(2024, 2, 29), D(2024, 2, 1), D(2024, 2, 29)},
        {"Last Month", us, D(2024, 3, 31), D(2024, 2, 1), D(2024, 2, 29)},
        {"Past 30 days", us, D(2024, 2, 29), D(2024, 1, 31), D(2024, 2, 29)},
        // Month and year ends and starts.
        {"Last Month", de, D(2025, 3, 31), D(2025, 2, 1), D(2025, 2, 28)},
        {"Last Month", us, D(2024, 1, 1), D(2023, 12, 1), D(2023, 12, 31)},
        {"Yesterday", us, D(2024, 1, 1), D(2023, 12, 31), D(2023, 12, 31)},
        {"This Year", de, D(2024, 1, 1), D(2024, 1, 1), D(2024, 12, 31)},
        {"This Month", de, D(2024, 12, 31), D(2024, 12, 1), D(2024, 12, 31)},
        {"Past 60 days", us, D(2024, 12, 31), D(2024, 11, 2), D(2024, 12, 31)},
        {"Past 90 days", de, D(2024, 12, 31), D(2024, 10, 3), D(2024, 12, 31)},
        // Typed by hand in another case.
        {"last month", us, D(2024, 5, 15), D(2024, 4, 1), D(2024, 4, 30)},
        // Names not offered give no range.
        {"Past 45 days", us, D(2024, 3, 15), D(), D()},
        {"Custom Date Range", us, D(2024, 3, 15), D(), D()},
        {"", us, D(2024, 3, 15), D(), D()},
        {"Next Week", us, D(2024, 3, 15), D(), D()},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.range << " on " << qPrintable(c.today.toString())
                                        << " in " << qPrintable(c.locale.name()));
        const std::optional<DateSpan> span = NamedDateRange(QString::fromLatin1(c.range), c.today,
                                                            c.locale);
        ASSERT_EQ(span.has_value(), c.first.isValid());
        if (span) {
            EXPECT_EQ(span->first, c.first);
            EXPECT_EQ(span->last, c.last);
        }
    }
}

// ---- Reports against the sample database ----------------------------------------------

class SampleReportFilters : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir().mkpath(reports()));
        for (const QString &name : QDir(sampleReports).entryList(QDir::Files))
            ASSERT_TRUE(
                QFile::copy(QDir(sampleReports).filePath(name), QDir(reports()).filePath(name)));
        host = std::make_unique<SampleHost>(data.path());
        ASSERT_TRUE(host->database());
        library.Initialize(host.get());
    }
    void TearDown() override
    {
        library.PreTerminate();
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }

    QString reports() const { return QDir(data.path()).filePath(QStringLiteral("System/Reports")); }
    QString file(const char *report) const
    {
        return QDir(reports()).filePath(QString::fromLatin1(report) + QStringLiteral(".xml"));
    }

    // The sample configuration with these filters' values, as the filters dialog writes them.
    QString configured(const char *report,
                       const QList<std::pair<const char *, QString>> &values) const
    {
        const QString path = file(report);
        const bravcpl5::XmlDocumentPtr document = bravcpl5::LoadXmlFile(
            QDir(sampleReports).filePath(QFileInfo(path).fileName()));
        EXPECT_TRUE(document);
        for (const auto &[filter, value] : values)
            bravcpl5::SelectSingleNode(*document, QStringLiteral("//Filters"))
                .node()
                .child(filter)
                .attribute("value")
                .set_value(value.toUtf8().constData());
        EXPECT_TRUE(document->save_file(path.toLocal8Bit().constData()));
        return path;
    }

    QList<Record> records(const QString &path, const QDate &today) const
    {
        return GeneralReportRecords(host.get(), host->database(), path, today);
    }
    QString summary(const QString &path, const QDate &today) const
    {
        const bravcpl5::XmlDocumentPtr document = bravcpl5::LoadXmlFile(path);
        return document ? ReadReportFilters(host.get(), *document, today).summary() : QString();
    }

    int count(const QString &sql) const
    {
        QSqlQuery query(host->database()->connection());
        return query.exec(sql) && query.next() ? query.value(0).toInt() : -1;
    }

    QTemporaryDir data;
    std::unique_ptr<SampleHost> host;
    bravcpl5::Library library;
};

TEST_F(SampleReportFilters, APriceListHoldsExactlyTheProductsOfItsSource)
{
    const QDate today(2024, 3, 15);
    const struct {
        const char *value;
        const char *where; // the same products by our own SQL
        const char *caption, *words;
    } cases[] = {
        {"Stock", "ProductSource = 3", "Stock", "Stock products"},
        {"stock", "ProductSource = 3", "Stock", "Stock products"},
        // The filters dialog writes the code.
        {"3", "ProductSource = 3", "Stock", "Stock products"},
        {"fabricate", "ProductSource = 2", "Fabricate", "Fabricated products"},
        {"0", "ProductSource = 0", "None", "Products without a source"},
        // Empty is every product; a word the library does not know is no condition either.
        {"", "1", nullptr, ""},
        {"Imported", "1", nullptr, ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.value);
        const QString path = configured("Product Price List",
                                        {{"ProductSource", QString::fromLatin1(c.value)}});
        const QList<Record> rows = records(path, today);
        const int expected = count(QStringLiteral("SELECT COUNT(*) FROM Products WHERE ")
                                   + QLatin1String(c.where));
        ASSERT_GT(expected, 0);
        EXPECT_EQ(rows.size(), expected);
        if (c.caption) {
            for (const Record &row : rows)
                ASSERT_EQ(row.value(QStringLiteral("ProductSource")).toString(), c.caption);
        }
        EXPECT_EQ(summary(path, today), QString::fromUtf8(c.words));
    }
}

TEST_F(SampleReportFilters, OrderReportsHoldOnlyTheOrdersTheirFiltersName)
{
    const QDate today(2024, 3, 15);
    const QList<Record> all = SourceRecords(host->database(), QStringLiteral("Orders"), today);
    ASSERT_FALSE(all.isEmpty());
    const QString firstVendor = all.last().value(QStringLiteral("VendorName")).toString();
    auto between = [](QDate first, QDate last) {
        return [=](const Record &r) {
            const QDate date = r.value(QStringLiteral("OrderDate")).toDate();
            return date >= first && date <= last;
        };
    };
    auto every = [](const Record &) { return true; };
    const QString state = QStringLiteral(" · Bill-To State: ID");
    const struct {
        const char *name, *report;
        QList<std::pair<const char *, QString>> values; // filter, value
        std::function<bool(const Record &)> expected;
        QString words;
    } cases[] = {
        {"LastMonth",
         "Sales by Vendor",
         {{"DateRange", QStringLiteral("Last Month")}},
         between(QDate(2024, 2, 1), QDate(2024, 2, 29)),
         QStringLiteral("Orders from February 1, 2024 to February 29, 2024") + state},
        {"Today",
         "Sales by Vendor",
         {{"DateRange", QStringLiteral("Today")}},
         between(today, today),
         QStringLiteral("Orders of March 15, 2024") + state},
        {"CustomRange",
         "Sales by Vendor",
         {{"DateRange", bravcpl5::CustomDateRangeText(QDate(2024, 1, 20), QDate(2024, 3, 1))}},
         between(QDate(2024, 1, 20), QDate(2024, 3, 1)),
         QStringLiteral("Orders from January 20, 2024 to March 1, 2024") + state},
        {"UnknownRangeIsNoCondition",
         "Sales by Vendor",
         {{"DateRange", QStringLiteral("Past 45 days")}},
         every,
         QStringLiteral("Bill-To State: ID")},
        // "(All Vendors)" and the state alone: every date.
        {"AllVendors",
         "Sales by Vendor",
         {{"DateRange", QString()}},
         every,
         QStringLiteral("Bill-To State: ID")},
        {"OneVendor",
         "Order Summary",
         {{"OrderDate", QString()}, {"Vendor", firstVendor}},
         [&](const Record &r) { return r.value(QStringLiteral("VendorName")) == firstVendor; },
         QStringLiteral("Vendor: ") + firstVendor + QStringLiteral(" · State: ID")},
        {"PartOfATypedText",
         "Order Summary",
         {{"OrderDate", QString()}, {"Sidemark", QStringLiteral("kitch")}},
         [&](const Record &r) { return r.value(QStringLiteral("Sidemark")) == "Kitchen"; },
         QStringLiteral("State: ID · Sidemark contains: kitch")},
        {"InstalledLeftOut",
         "Open Orders",
         {{"Installed", QStringLiteral("0")}},
         [&](const Record &r) {
             return between(QDate(2023, 12, 17), today)(r)
                    && r.value(QStringLiteral("Status")) != "Installed";
         },
         QStringLiteral("Orders from December 17, 2023 to March 15, 2024 · Installed orders "
                        "left out")},
        {"InstalledIncluded",
         "Open Orders",
         {{"Installed", QStringLiteral("Yes")}},
         between(QDate(2023, 12, 17), today),
         QStringLiteral("Orders from December 17, 2023 to March 15, 2024 · Installed orders "
                        "included")},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = configured(c.report, c.values);
        QList<Record> expected = all;
        expected.removeIf([&](const Record &r) { return !c.expected(r); });
        ASSERT_FALSE(expected.isEmpty());
        EXPECT_EQ(records(path, today), expected);
        EXPECT_EQ(summary(path, today), c.words);
    }
}

TEST_F(SampleReportFilters, DatesAreReadAndSaidInTheLocale)
{
    const QDate today(2024, 3, 15);
    const struct {
        QLocale locale;
        const char *words;
    } cases[] = {
        {QLocale(QLocale::English, QLocale::UnitedStates),
         "Orders from January 20, 2024 to March 1, 2024"},
        {QLocale(QLocale::German, QLocale::Germany), "Orders from 20. Januar 2024 to 1. März 2024"},
        {QLocale(QLocale::Japanese, QLocale::Japan), "Orders from 2024年1月20日 to 2024年3月1日"},
        {QLocale(QLocale::Arabic, QLocale::Egypt), "Orders from ٢٠ يناير ٢٠٢٤ to ١ مارس ٢٠٢٤"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(qPrintable(c.locale.name()));
        QLocale::setDefault(c.locale);
        // The custom range as the filters dialog writes it in this locale's short dates.
        const QString path = configured(
            "Sales by Vendor",
            {{"DateRange", bravcpl5::CustomDateRangeText(QDate(2024, 1, 20), QDate(2024, 3, 1))},
             {"State", QString()}});
        EXPECT_EQ(summary(path, today), QString::fromUtf8(c.words));
        const QList<Record> rows = records(path, today);
        ASSERT_FALSE(rows.isEmpty());
        for (const Record &row : rows)
            ASSERT_GE(row.value(QStringLiteral("OrderDate")).toDate(), QDate(2024, 1, 20));
    }
}

// The report as printed: the stock price list's subtitle and every stock product on file.
TEST_F(SampleReportFilters, ThePrintedPriceListSaysWhatItHolds)
{
    const QString path = file("Product Price List");
    const auto report = BuildGeneralReport(&library, path, records(path, QDate::currentDate()),
                                           10 * 1440);
    ASSERT_TRUE(report);
    QStringList header, products;
    for (const BandRow &row : report->header)
        for (ReportControl *control : row.controls)
            header << control->property("Caption").toString();
    for (const BandRow &row : report->body)
        for (ReportControl *control : row.controls)
            if (control->property("DataField") == QLatin1String("Product"))
                products << control->property("Text").toString();
    EXPECT_TRUE(header.contains(QStringLiteral("Stock products")))
        << header.join(u'|').toStdString();
    EXPECT_EQ(products.size(), count(QStringLiteral("SELECT COUNT(*) FROM Products"
                                                    " WHERE ProductSource = 3")));
}

} // namespace
