// The fonts list as the report fonts dialogs hold it: read with its defaults, topped up,
// and written back so that it reads the same.

#include "layout/ReportFontList.h"
#include "library/Xml.h"
#include "support/QtPrinters.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

XmlDocumentPtr parse(const char *xml)
{
    auto document = std::make_unique<pugi::xml_document>();
    EXPECT_TRUE(document->load_string(xml));
    return document;
}

TEST(ReportFontListTest, ReadsItsFamilysFontsWithDefaultsForWhatIsMissingOrNotANumber)
{
    const XmlDocumentPtr document = parse(R"(<ReportFonts>
        <GeneralReports><Font type="3" name="Verdana" bold="1" size="10.5" color="255"/><Font/></GeneralReports>
        <ProcessReports><Font type="35" italic="x" size="big" underline="1"/></ProcessReports></ReportFonts>)");
    const ReportFontList general = ReportFontList::fromDocument(*document, generalReports);
    ASSERT_EQ(general.fonts.size(), 2);
    EXPECT_EQ(general.fonts[0].type, 3);
    EXPECT_EQ(general.fonts[0].name, "Verdana");
    EXPECT_TRUE(general.fonts[0].bold);
    EXPECT_EQ(general.fonts[0].size, 10); // halves to even
    EXPECT_EQ(general.fonts[0].color, 255);
    EXPECT_EQ(general.fonts[1].type, 0);
    EXPECT_EQ(general.fonts[1].name, "Arial");
    EXPECT_EQ(general.fonts[1].size, 12);

    const ReportFontList process = ReportFontList::fromDocument(*document, processReports);
    ASSERT_EQ(process.fonts.size(), 1);
    EXPECT_FALSE(process.fonts[0].italic);
    EXPECT_TRUE(process.fonts[0].underline);
    EXPECT_EQ(process.fonts[0].size, 12);

    EXPECT_TRUE(ReportFontList::fromDocument(*document, 7).fonts.isEmpty());
}

TEST(ReportFontListTest, OnlyProcessListsAreToppedUpAndOnlyWithWhatTheyLack)
{
    const XmlDocumentPtr document = parse(
        R"(<ReportFonts><ProcessReports><Font type="36" name="Kept"/></ProcessReports></ReportFonts>)");
    ReportFontList process = ReportFontList::fromDocument(*document, processReports);
    process.addMissingTypes();
    QList<int> types;
    for (const FontDefinition &font : process.fonts)
        types << font.type;
    EXPECT_EQ(types, QList<int>({36, 35, 37, 38}));
    EXPECT_EQ(process.fonts[0].name, "Kept");

    ReportFontList general = ReportFontList::fromDocument(*document, generalReports);
    general.addMissingTypes();
    EXPECT_TRUE(general.fonts.isEmpty());
}

TEST(ReportFontListTest, WhatIsSavedReadsBackTheSame)
{
    ReportFontList list;
    list.reportType = processReports;
    list.fonts = {FontDefinition{35, QStringLiteral("Courier New"), 10.5f, true, false, true, false,
                                 0x00FF00},
                  FontDefinition{1, QStringLiteral("Arial"), 8, false, true, false, true, 0}};
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Process Report Fonts.fox"));
    ASSERT_TRUE(list.save(path));
    const XmlDocumentPtr saved = LoadXmlFile(path);
    ASSERT_TRUE(saved);
    EXPECT_EQ(NodeText(SelectSingleNode(*saved, QStringLiteral("//ProcessReports/Font[1]/@size"))),
              "10.5");
    ReportFontList reread = ReportFontList::fromDocument(*saved, processReports);
    list.fonts[0].size = 10; // a fraction is kept in the file and rounded on reading
    EXPECT_TRUE(reread.fonts == list.fonts);
    EXPECT_FALSE(list.save(folder.filePath(QStringLiteral("missing/folder.fox"))));
}

} // namespace
} // namespace bravcpl5
