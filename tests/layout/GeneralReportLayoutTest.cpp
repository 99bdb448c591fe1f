#include "LayoutFixture.h"

#include "layout/GeneralReportLayout.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <ostream>

namespace bravcpl5::test {
namespace {

GeneralReportLayout read(const char *xml)
{
    const XmlDocumentPtr document = LoadXmlText(QString::fromUtf8(xml));
    return document ? GeneralReportLayout::fromDocument(*document) : GeneralReportLayout();
}

// Every value away from its default.
GeneralReportLayout changed()
{
    GeneralReportLayout l;
    l.useOwnPrinterConfiguration = false;
    l.printerConfiguration = QStringLiteral("Legal & Co");
    l.headerOnAllPages = true;
    for (LayoutItem *item : {&l.company, &l.title, &l.description, &l.subTitle, &l.printDate,
                             &l.printTime, &l.extraLine, &l.pageNumber}) {
        item->show = false;
        item->alignment = 1;
    }
    l.company.alignment = 2;
    l.printTime.alignment = 0; // not stored
    l.company.label = QStringLiteral("Tarnwell Blinds \"East\"");
    l.printDate.format = QStringLiteral("MMMM d, yyyy");
    l.printTime.format = QStringLiteral("h:mm AM/PM");
    l.footerOnAllPages = true;
    l.extraLine.label = QStringLiteral("Confidential");
    l.pageNumber.format = QStringLiteral("Page nnn of mmm");
    return l;
}

TEST(GeneralReportLayoutDocument, EmptyDefinitionReadsAsTheDefaults)
{
    for (const char *xml :
         {"<Definition/>", "<Definition><Report/><Header/><Footer/></Definition>"})
        EXPECT_EQ(read(xml), GeneralReportLayout()) << xml;
}

TEST(GeneralReportLayoutDocument, MissingSectionKeepsValuesEmptySectionResetsThem)
{
    GeneralReportLayout l = changed();
    l.read(*LoadXmlText(QStringLiteral("<Definition><Footer/></Definition>")));
    EXPECT_EQ(l.company, changed().company);
    EXPECT_FALSE(l.useOwnPrinterConfiguration);
    EXPECT_EQ(l.pageNumber, GeneralReportLayout().pageNumber);
    EXPECT_FALSE(l.footerOnAllPages);
}

TEST(GeneralReportLayoutDocument, NumbersThatDoNotConvertLeaveTheValue)
{
    GeneralReportLayout l = changed();
    l.read(*LoadXmlText(QStringLiteral(
        R"(<Definition><Header allpages="x"><Company show="yes" alignment="" label="A"/><Title alignment="7"/></Header></Definition>)")));
    EXPECT_TRUE(l.headerOnAllPages);
    EXPECT_FALSE(l.company.show);
    EXPECT_EQ(l.company.alignment, 2);
    EXPECT_EQ(l.company.label, "A");
    EXPECT_EQ(l.title.alignment, 7);
}

TEST(GeneralReportLayoutDocument, SavedFileHasEveryItemInOrder)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("General Report Layout.lyx"));
    ASSERT_TRUE(changed().save(path));

    const XmlDocumentPtr saved = LoadXmlFile(path);
    ASSERT_TRUE(saved);
    QStringList structure;
    std::function<void(pugi::xml_node)> walk = [&](pugi::xml_node node) {
        QStringList attributes;
        for (pugi::xml_attribute a : node.attributes())
            attributes << QString::fromUtf8(a.name());
        structure << QString::fromUtf8(node.name()) + u'(' + attributes.join(u',') + u')';
        for (pugi::xml_node child : node.children())
            walk(child);
    };
    walk(saved->document_element());
    EXPECT_EQ(structure.join(u' ').toStdString(),
              "Definition() Report() PrinterConfiguration(enabled,configuration) Header(allpages) "
              "Company(show,label,alignment) Title(show,alignment) Description(show,alignment) "
              "SubTitle(show,alignment) PrintDate(show,format,alignment) PrintTime(show,format) "
              "Footer(allpages) ExtraLine(show,label,alignment) PageNumber(show,format,alignment)");
    EXPECT_EQ(GeneralReportLayout::fromDocument(*saved), changed());
    EXPECT_TRUE(readFile(path).startsWith("<?xml version=\"1.0\"?>"));
}

TEST(GeneralReportLayoutDocument, EmptyPathWritesNothing)
{
    EXPECT_FALSE(GeneralReportLayout().save(QString()));
}

TEST(LayoutFileOf, SitsBesideTheConfigurationFile)
{
    const std::pair<const char *, const char *> cases[] = {
        {"/data/Reports/Sales.xml", "/data/Reports/Sales.lyx"},
        {"Sales.xml", "Sales.lyx"},
        {"/data/Reports/Sales.lyx", "/data/Reports/Sales.lyx"},
        {"/data/v1.2/Sales", "/data/v1.2/Sales.lyx"},
        {"/data/Sales.2024.xml", "/data/Sales.2024.lyx"},
        {"C:\\Reports\\Sales.xml", "C:\\Reports\\Sales.lyx"},
        {"", ""}};
    for (const auto &[configuration, layout] : cases)
        EXPECT_EQ(ReportLayout().GetLayoutFile(QString::fromUtf8(configuration)),
                  QString::fromUtf8(layout));
}

TEST_F(LayoutFixture, ReportsOwnLayoutBeforeTheGeneralOne)
{
    const QString report = QDir(host.root()).filePath(QStringLiteral("Sales.xml"));
    EXPECT_EQ(layout()->LoadGeneralReportLayout(report), "");

    host.writeSystemFile(
        QStringLiteral("General Report Layout.lyx"),
        R"(<Definition><Report><PrinterConfiguration configuration="System"/></Report></Definition>)");
    host.writeUserFile(
        QStringLiteral("General Report Layout.lyx"),
        R"(<Definition><Report><PrinterConfiguration configuration="User"/></Report></Definition>)");
    auto configurationOf = [&](const QString &file) {
        const XmlDocumentPtr document = layout()->generalReportLayoutDocument(file);
        return document ? GeneralReportLayout::fromDocument(*document).printerConfiguration
                        : QStringLiteral("none");
    };
    EXPECT_EQ(configurationOf(report), "User");
    EXPECT_EQ(configurationOf(QString()), "User");

    writeFile(
        QDir(host.root()).filePath(QStringLiteral("Sales.lyx")),
        R"(<Definition><Report><PrinterConfiguration configuration="Own"/></Report></Definition>)");
    EXPECT_EQ(configurationOf(report), "Own");
    EXPECT_TRUE(layout()->LoadGeneralReportLayout(report).contains(QLatin1String("Own")));
}

} // namespace
} // namespace bravcpl5::test
