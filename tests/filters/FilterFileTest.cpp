// Loading filters from a real configuration file and saving their values back.

#include "filters/DatabaseHost.h"
#include "filters/FilterDefinitions.h"

#include "library/Xml.h"

#include <QDir>
#include <QSet>
#include <gtest/gtest.h>
#include <sstream>

namespace bravcpl5 {
namespace {

using test::captions;
using test::DatabaseHost;

const QByteArray salesReport = R"(<?xml version="1.0"?>
<!-- Sales by vendor: written by the host -->
<Report name="Sales by Vendor" version="5">
  <?layout compact?>
  <Title>Sales by Vendor</Title>
  <Fields>
    <VendorName label="Vendor" width="2" />
  </Fields>
  <Filters>
    <!-- the date range first -->
    <Dates label="Order Dates" type="DateRange" value="Last Week" description="Orders placed in the range" />
    <Active type="boolean" value="No" description="Standard" extra="kept" />
    <Source label="Product Source" value="fabricate" type="productsource" />
    <Vendor label="Vendor" type="vendor" allowall="1" value="[1STVENDOR]" />
    <State label="State" type="" value="[companybilltostate]" />
    <Note value="Vendor [1stvendor]" allowall="yes" />
    <Plain label="No value yet" type="text" />
  </Filters>
  <Notes>Line one&amp;#10;line two</Notes>
</Report>
)";

// The document as one line, without the filters' values: what a save must keep.
std::string withoutValues(const QString &path)
{
    const XmlDocumentPtr document = LoadXmlFile(path);
    if (!document)
        return "not loaded";
    for (pugi::xpath_node node : document->select_nodes("//Filters/*"))
        node.node().remove_attribute("value");
    std::ostringstream out;
    document->save(out, "", pugi::format_raw);
    return out.str();
}

// The value attribute of every filter, "(none)" where there is none.
QStringList valuesOf(const QString &path)
{
    const XmlDocumentPtr document = LoadXmlFile(path);
    QStringList values;
    for (pugi::xpath_node node :
         document ? document->select_nodes("//Filters/*") : pugi::xpath_node_set())
        values << GetXmlAttribute(node.node(), QStringLiteral("value"), QStringLiteral("(none)"));
    return values;
}

TEST(LoadFilterRows, RowsInDocumentOrder)
{
    DatabaseHost host;
    const XmlDocumentPtr document = LoadXmlFile(host.writeUserFile("Sales.xml", salesReport));
    ASSERT_TRUE(document);
    QStringList rows; // identifier|caption|type|value|shown|allowall|description
    for (const FilterRow &r : LoadFilterRows(&host, *document))
        rows << QStringList({r.identifier, r.caption, r.typeName, r.value, r.valueCaption,
                             QString::number(r.allowAll), r.description})
                    .join(u'|');
    EXPECT_EQ(
        rows,
        QStringList({"Dates|Order Dates|daterange|Last Week|Last Week|0|Orders placed in the range",
                     "Active|Active|boolean|0|No|0|asdf",
                     "Source|Product Source|productsource|2|Fabricate|0|",
                     "Vendor|Vendor|vendor|Acme Window Supply|Acme Window Supply|1|",
                     "State|State||ID|ID|0|",
                     "Note|Note||Vendor [1stvendor]|Vendor [1stvendor]|0|", // "yes" is not a number
                     "Plain|No value yet|text|||0|"}));
}

TEST(LoadFilterRows, FirstFiltersElementAnywhere)
{
    const XmlDocumentPtr document = LoadXmlText(
        "<Report><Layout><Filters><A type='boolean' value='no'/></Filters></Layout>"
        "<Filters><B/></Filters></Report>");
    ASSERT_TRUE(document);
    const QList<FilterRow> rows = LoadFilterRows(nullptr, *document);
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].identifier, QStringLiteral("A"));
    EXPECT_TRUE(LoadFilterRows(nullptr, *LoadXmlText("<Report><Fields/></Report>")).isEmpty());
}

TEST(SaveFilterValues, OnlyValueAttributesChangeAndStoredCodesReadBack)
{
    DatabaseHost host;
    const QString file = host.writeUserFile("Sales.xml", salesReport);
    const std::string before = withoutValues(file);
    XmlDocumentPtr document = LoadXmlFile(file);
    ASSERT_TRUE(document);
    ASSERT_TRUE(SaveFilterValues(*document, LoadFilterRows(&host, *document), file));

    EXPECT_EQ(withoutValues(file), before);
    EXPECT_EQ(valuesOf(file), QStringList({"Last Week", "0", "2", "Acme Window Supply", "ID",
                                           "Vendor [1stvendor]", ""}));
    const QByteArray saved = test::readFile(file);
    EXPECT_TRUE(saved.contains("<!-- the date range first -->"));
    EXPECT_TRUE(saved.contains("<?layout compact?>"));
    EXPECT_TRUE(saved.contains("<Notes>Line one&amp;#10;line two</Notes>"));

    // A stored code is read back by the word rule: "2" is no source name.
    document = LoadXmlFile(file);
    const QList<FilterRow> reopened = LoadFilterRows(&host, *document);
    EXPECT_EQ(reopened[1].valueCaption, QStringLiteral("No"));
    EXPECT_EQ(reopened[2].valueCaption, QStringLiteral("Purchase"));
    EXPECT_EQ(reopened[2].value, QStringLiteral("1"));
}

TEST(SaveFilterValues, FileWithoutFiltersSavesBackUnchanged)
{
    test::TestHost host;
    const QByteArray content = "<?xml version=\"1.0\"?>\n"
                               "<!-- no filters here -->\n"
                               "<Report name=\"Product List\">\n"
                               "  <Fields>\n"
                               "    <Product label=\"Product\" width=\"3\" />\n"
                               "  </Fields>\n"
                               "</Report>\n";
    const QString file = host.writeUserFile("Products.xml", content);
    const XmlDocumentPtr document = LoadXmlFile(file);
    ASSERT_TRUE(document);
    EXPECT_TRUE(LoadFilterRows(&host, *document).isEmpty());
    ASSERT_TRUE(SaveFilterValues(*document, {}, file));
    EXPECT_EQ(test::readFile(file), content);
}

TEST(SaveFilterValues, OtherLayoutKeepsItsContent)
{
    test::TestHost host;
    const QByteArray content = "<?xml version=\"1.0\"?>\r\n<Report>\r\n\t<Filters>\r\n"
                               "\t\t<Active type=\"boolean\" value=\"yes\"/><!-- kept -->\r\n"
                               "\t</Filters>\r\n\t<Title>Open&#32;Orders</Title>\r\n</Report>";
    const QString file = host.writeUserFile("Orders.xml", content);
    const std::string before = withoutValues(file);
    const XmlDocumentPtr document = LoadXmlFile(file);
    ASSERT_TRUE(SaveFilterValues(*document, LoadFilterRows(&host, *document), file));
    EXPECT_EQ(withoutValues(file), before);
    EXPECT_EQ(valuesOf(file), QStringList{"1"});
}

TEST(SaveFilterValues, FiltersSharingANameTakeTheLastRowsValue)
{
    test::TestHost host;
    const QString file = host.writeUserFile(
        "Twice.xml", "<Report><Filters><Vendor value='a'/><Other value='o'/><Vendor value='b'/>"
                     "</Filters></Report>");
    const XmlDocumentPtr document = LoadXmlFile(file);
    QList<FilterRow> rows = LoadFilterRows(&host, *document);
    ASSERT_EQ(rows.size(), 3);
    rows[0].value = QStringLiteral("first");
    rows[2].value = QStringLiteral("last");
    ASSERT_TRUE(SaveFilterValues(*document, rows, file));
    EXPECT_EQ(valuesOf(file), QStringList({"last", "o", "last"}));
}

TEST(SaveFilterValues, FailedSaveLeavesNoFile)
{
    test::TestHost host;
    const XmlDocumentPtr document = LoadXmlText(
        "<Report><Filters><A value='1'/></Filters></Report>");
    const QString file = host.root() + QStringLiteral("/missing/Report.xml");
    EXPECT_FALSE(SaveFilterValues(*document, LoadFilterRows(&host, *document), file));
    EXPECT_FALSE(QFile::exists(file));
}

// The sample host's report configuration files: a dozen fields each, filters of every
// type between them, and every placeholder known to the sample database.
TEST(SampleReports, EveryTypeAndTokenResolves)
{
    DatabaseHost host;
    const QDir reports(QDir::cleanPath(
        QStringLiteral(BRAVCPL5_TEST_DATA "/../../apps/sample-host/sample-data/System/Reports")));
    const QStringList files = reports.entryList({QStringLiteral("*.xml")}, QDir::Files);
    ASSERT_GE(files.size(), 3);
    QSet<QString> types;
    for (const QString &name : files) {
        SCOPED_TRACE(name.toStdString());
        const XmlDocumentPtr document = LoadXmlFile(reports.filePath(name));
        ASSERT_TRUE(document);
        const pugi::xml_node fields =
            SelectSingleNode(*document, QStringLiteral("//Fields")).node();
        EXPECT_EQ(std::distance(fields.children().begin(), fields.children().end()), 12);
        for (const FilterRow &row : LoadFilterRows(&host, *document)) {
            types.insert(row.typeName);
            EXPECT_FALSE(row.value.startsWith(u'[')) << row.identifier.toStdString();
            if (FilterTypeHasChoices(row.type) && row.type != FilterType::DateRange
                && !row.value.isEmpty()) {
                EXPECT_TRUE(captions(FillFilterChoices(&host, row.type, row.allowAll))
                                .contains(row.valueCaption))
                    << row.identifier.toStdString();
            }
        }
    }
    EXPECT_EQ(types, QSet<QString>({"boolean", "daterange", "manufacturer", "producttype",
                                    "productsource", "product", "vendor", ""}));
}

} // namespace
} // namespace bravcpl5
