// Filter values and lists against the sample host's real SQLite database.

#include "filters/DatabaseHost.h"
#include "filters/FilterDefinitions.h"

#include "database/SampleData.h"

#include "library/Xml.h"

#include <QSet>
#include <gtest/gtest.h>
#include <ostream>
#include <sstream>

namespace bravcpl5 {
namespace {

using test::captions;
using test::DatabaseHost;

// The sample host's BRAVSQL, counting PreTerminate.
class CountingBravSql : public HostBravSql
{
    Q_OBJECT
public:
    using HostBravSql::HostBravSql;
    Q_INVOKABLE void PreTerminate() { ++preTerminateCalls; }
    int preTerminateCalls = 0;
};

struct ListCase {
    const char *type;
    const char *query;
};

void PrintTo(const ListCase &c, std::ostream *os) { *os << c.type; }

class DatabaseListTest : public ::testing::TestWithParam<ListCase>
{
};

TEST_P(DatabaseListTest, AllRowsInTheDatabasesOrder)
{
    DatabaseHost host;
    CountingBravSql counting(*host.database());
    host.setBravSql(&counting);
    const QStringList expected = host.column(QString::fromLatin1(GetParam().query));
    ASSERT_GE(expected.size(), 10);
    const QList<FilterChoice> choices = FillFilterChoices(&host, ParseFilterType(GetParam().type),
                                                          0);
    EXPECT_EQ(captions(choices), expected);
    for (const FilterChoice &choice : choices)
        EXPECT_EQ(choice.data, 0);
    EXPECT_EQ(counting.preTerminateCalls, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, DatabaseListTest,
    ::testing::Values(
        ListCase{"manufacturer", "SELECT Manufacturer FROM Manufacturers ORDER BY Manufacturer"},
        ListCase{"producttype", "SELECT ProductType FROM ProductTypes ORDER BY ProductType"},
        ListCase{"product", "SELECT Product FROM Products ORDER BY Product"},
        ListCase{"vendor", "SELECT VendorName FROM Vendors ORDER BY VendorName"}),
    [](const auto &info) { return std::string(info.param.type); });

TEST(DatabaseLists, AllVendorsOnlyWithAllowAllOne)
{
    DatabaseHost host;
    const QStringList vendors = host.column("SELECT VendorName FROM Vendors ORDER BY VendorName");
    EXPECT_EQ(captions(FillFilterChoices(&host, ParseFilterType("vendor"), 1)),
              QStringList{"(All Vendors)"} + vendors);
    for (int allowAll : {0, 2, -1})
        EXPECT_EQ(captions(FillFilterChoices(&host, ParseFilterType("vendor"), allowAll)), vendors)
            << allowAll;
    EXPECT_FALSE(captions(FillFilterChoices(&host, ParseFilterType("manufacturer"), 1))
                     .contains("(All Vendors)"));
}

TEST(DatabaseLists, HostWithoutDatabaseGivesEmptyLists)
{
    DatabaseHost host;
    host.setBravSql(nullptr);
    for (const char *type : {"manufacturer", "producttype", "product", "vendor"})
        EXPECT_TRUE(FillFilterChoices(&host, ParseFilterType(type), 0).isEmpty()) << type;
    EXPECT_EQ(captions(FillFilterChoices(&host, ParseFilterType("vendor"), 1)),
              QStringList{"(All Vendors)"});
    EXPECT_EQ(captions(FillFilterChoices(nullptr, ParseFilterType("vendor"), 1)),
              QStringList{"(All Vendors)"});
    host.setCommon(nullptr);
    EXPECT_EQ(ResolveFilterValue(&host, "[1stvendor]"), QStringLiteral("[1stvendor]"));
    EXPECT_EQ(ResolveFilterValue(&host, "[companybilltostate]"),
              QStringLiteral("[companybilltostate]"));
}

TEST(DatabaseLists, FailingQueryStillEndsWithPreTerminate)
{
    DatabaseHost host;
    CountingBravSql counting(*host.database());
    host.setBravSql(&counting);
    EXPECT_TRUE(host.column("DROP TABLE Products").isEmpty());
    EXPECT_TRUE(FillFilterChoices(&host, ParseFilterType("product"), 0).isEmpty());
    EXPECT_EQ(counting.preTerminateCalls, 1);
}

struct TokenCase {
    const char *name;
    const char *before; // run on the database first
    QString value;
    QString expected;
};

void PrintTo(const TokenCase &c, std::ostream *os) { *os << c.name; }

class ResolveFilterValueTest : public ::testing::TestWithParam<TokenCase>
{
};

TEST_P(ResolveFilterValueTest, AgainstTheSampleDatabase)
{
    DatabaseHost host;
    if (*GetParam().before)
        host.column(QString::fromUtf8(GetParam().before));
    EXPECT_EQ(ResolveFilterValue(&host, GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Tokens, ResolveFilterValueTest,
    ::testing::Values(
        TokenCase{"FirstVendor", "", "[1stvendor]", "Acme Window Supply"},
        TokenCase{"FirstVendorCapitals", "", "[1STVENDOR]", "Acme Window Supply"},
        TokenCase{"FirstManufacturer", "", "[1stManufacturer]", "Alder Creek Shutter Co."},
        TokenCase{"FirstProductType", "", "[1stproducttype]", "Aluminum Blinds"},
        TokenCase{"BillToState", "", "[companybilltostate]", "ID"},
        TokenCase{"BillToCity", "", "[CompanyBillToCity]", "Boise"},
        TokenCase{"BillToZip", "", "[companybilltozip]", "83702"},
        TokenCase{"TokenAfterText", "", "Vendor [1stvendor]", "Vendor [1stvendor]"},
        TokenCase{"TokenWithBlank", "", " [1stvendor]", " [1stvendor]"},
        TokenCase{"UnknownToken", "", "[1stproduct]", "[1stproduct]"},
        TokenCase{"PlainValue", "", "Hale & Sons Blinds", "Hale & Sons Blinds"},
        TokenCase{"FailingQueryKeepsTheToken", "DROP TABLE Vendors", "[1STVENDOR]", "[1STVENDOR]"},
        TokenCase{"NullAnswerIsEmpty", "UPDATE Company SET BillToZip = NULL", "[companybilltozip]",
                  ""},
        TokenCase{"NoRowIsEmpty", "DELETE FROM Manufacturers", "[1stmanufacturer]", ""}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(HostDatabase, TopBecomesLimit)
{
    const std::pair<QString, QString> cases[] = {
        {"SELECT TOP 1 VendorName FROM Vendors ORDER BY VendorName",
         "SELECT VendorName FROM Vendors ORDER BY VendorName LIMIT 1"},
        {"select top 25 * from Products;", "select * from Products LIMIT 25"},
        {"SELECT DISTINCT TOP 3 State FROM Vendors", "SELECT DISTINCT State FROM Vendors LIMIT 3"},
        {"SELECT TOP 2\nProduct\nFROM Products", "SELECT Product\nFROM Products LIMIT 2"},
        {"SELECT BillToState FROM Company", "SELECT BillToState FROM Company"},
        {"SELECT Top FROM Shelves", "SELECT Top FROM Shelves"}, // a column named Top
    };
    for (const auto &[sql, expected] : cases)
        EXPECT_EQ(TranslateTopToLimit(sql), expected);
}

TEST(HostDatabase, GetRecordValue2ReadsOneField)
{
    DatabaseHost host;
    const std::tuple<QString, QString, QVariant> cases[] = {
        // record, field, value (invalid: fails)
        {"<Record><A>x > y</A></Record>", "A", "x > y"},
        {"<Record><A>1 &amp; 2 &lt;3&#13;</A></Record>", "A", "1 & 2 <3\r"},
        {"<Record><A></A></Record>", "A", ""},
        {"<Record><A/></Record>", "A", ""},
        {"<Record><A>1</A><B>2</B></Record>", "B", "2"},
        {"<Record><AB>1</AB></Record>", "A", QVariant()},
        {"<Record>\n  <A>1</A>\n</Record>", "A", "1"},
        {"<Record><A>1</A></Record>", "B", QVariant()},
        {"<Record><A>1</A>", "A", QVariant()},
        {"<Record><A>1</A><A>2</A></Record>", "A", "1"}, // the first wins
    };
    for (const auto &[record, field, expected] : cases) {
        SCOPED_TRACE(record.toStdString());
        const QVariant value = host.hostBravSql()->GetRecordValue2(record, field);
        EXPECT_EQ(value.isValid(), expected.isValid());
        EXPECT_EQ(value.toString(), expected.toString());
    }
}

TEST(HostDatabase, ExecuteReadRowsReadBackThroughGetRecordValue2)
{
    DatabaseHost host;
    host.column("INSERT INTO Vendors (VendorName, City) VALUES ('A <&> B', 'Line\r\nTwo')");
    const XmlDocumentPtr rows = LoadXmlText(host.hostBravSql()->ExecuteRead(
        "SELECT VendorName, City FROM Vendors WHERE VendorName LIKE 'A <%'"));
    ASSERT_TRUE(rows);
    const pugi::xml_node record = SelectSingleNode(*rows, "Records/Record").node();
    std::ostringstream text;
    record.print(text, "", pugi::format_raw);
    const QString recordText = QString::fromStdString(text.str());
    EXPECT_EQ(host.hostBravSql()->GetRecordValue2(recordText, "VendorName"), QVariant("A <&> B"));
    EXPECT_EQ(host.hostBravSql()->GetRecordValue2(recordText, "City"), QVariant("Line\r\nTwo"));
    // A field the query does not give is a failure, not an empty value.
    EXPECT_FALSE(HostCommon(*host.database())
                     .ExecuteSelectField("SELECT BillToCity FROM Company", "BillToZip")
                     .isValid());
}

TEST(HostDatabase, EmptyDatabaseHasTheTablesButNoRows)
{
    DatabaseHost host(NewDatabase::Empty);
    EXPECT_TRUE(host.column("SELECT VendorName FROM Vendors").isEmpty());
    EXPECT_TRUE(AddGeneratedVendors(*host.database(), 2000));
    const QStringList vendors = host.column("SELECT VendorName FROM Vendors");
    EXPECT_EQ(vendors.size(), 2000);
    EXPECT_EQ(QSet<QString>(vendors.begin(), vendors.end()).size(), 2000);
}

} // namespace
} // namespace bravcpl5

#include "FilterDatabaseTest.moc"
