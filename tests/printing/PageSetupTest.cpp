// Reading and writing the page setup document as the page setup dialog's fields.

#include "StoreFixture.h"
#include "library/Xml.h"
#include "printing/PageSetup.h"
#include "support/FakePrinterInfo.h"

namespace bravcpl5::test {
namespace {

// What the Office Laser's lists and a two-entry printing direction list offer.
const PageSetupChoices officeLaser{{1, 5, 9, 20, 256}, {1, 2, 4, 5, 7}, {0, 1}};

class PageSetupTest : public StoreFixture
{
protected:
    void SetUp() override
    {
        StoreFixture::SetUp();
        printers = &FakePrinterInfo::install();
    }
    void TearDown() override
    {
        SetPrinterInfo(nullptr);
        StoreFixture::TearDown();
    }

    QString configure(const QByteArray &pageSetup)
    {
        return host.writeUserFile(QStringLiteral("Invoice.pcx"), configurationXml(pageSetup));
    }
    PageSetup read(const PageSetupChoices &choices = officeLaser, PageSetup fields = {})
    {
        EXPECT_TRUE(ReadPageSetup(store, QStringLiteral("Invoice"), choices, fields));
        return fields;
    }
    // The element's text in the saved file.
    QString stored(const QString &path, const char *element)
    {
        const XmlDocumentPtr xml = LoadXmlFile(path);
        return xml ? NodeText(SelectSingleNode(*xml, QStringLiteral("//PageSetup/") + element))
                   : QStringLiteral("<unreadable>");
    }

    FakePrinterInfo *printers = nullptr;
};

TEST_F(PageSetupTest, AnEmptyPageSetupReadsTheDefaults)
{
    configure("");
    const PageSetup f = read();
    EXPECT_EQ(f.paperSize, 1); // the default printer's current paper, Letter
    EXPECT_EQ(f.paperSource, 7); // and its current bin, Auto
    EXPECT_EQ(f.paperWidth, ""); // left to the chosen paper
    EXPECT_EQ(QStringList({f.topMargin, f.bottomMargin, f.leftMargin, f.rightMargin, f.gutter}),
              QStringList({"1", "1", "1", "1", "0"}));
    EXPECT_FALSE(f.mirrorMargins);
    EXPECT_FALSE(f.landscape);
    EXPECT_EQ(f.columnsPerSheet, "1");
    EXPECT_EQ(f.printDirection, 0);
    EXPECT_EQ(QStringList({f.horizontalGap, f.verticalGap, f.labelWidth, f.labelHeight}),
              QStringList({".125", "0", "3.5", "1"}));
}

TEST_F(PageSetupTest, DefaultsFollowTheDefaultPrinter)
{
    configure("");
    printers->defaultPrinter = QStringLiteral("PDF Writer"); // A4, no bin (0)
    PageSetup f = read();
    EXPECT_EQ(f.paperSize, 9);
    EXPECT_EQ(f.paperSource, 1); // 0 is not offered: the first entry

    printers->defaultPrinter.clear(); // nothing to fall back on: the lists stay unselected
    f = read();
    EXPECT_FALSE(f.paperSize.has_value());
    EXPECT_FALSE(f.paperSource.has_value());
}

struct SelectionCase {
    const char *name;
    QByteArray pageSetup;
    PageSetupChoices choices;
    std::optional<int> paperSize, paperSource, printDirection;
};

void PrintTo(const SelectionCase &c, std::ostream *os) { *os << c.name; }

class PageSetupSelectionTest : public PageSetupTest, public ::testing::WithParamInterface<SelectionCase> {};

TEST_P(PageSetupSelectionTest, SelectsTheStoredCodeElseTheFirst)
{
    const SelectionCase &c = GetParam();
    configure(c.pageSetup);
    const PageSetup f = read(c.choices);
    EXPECT_EQ(f.paperSize, c.paperSize);
    EXPECT_EQ(f.paperSource, c.paperSource);
    EXPECT_EQ(f.printDirection, c.printDirection);
}

INSTANTIATE_TEST_SUITE_P(Table, PageSetupSelectionTest, ::testing::Values(
    SelectionCase{"stored", "<PaperSize>5</PaperSize><PaperSource>4</PaperSource><PrintDirection>1</PrintDirection>",
                  officeLaser, 5, 4, 1},
    SelectionCase{"unknown", "<PaperSize>70</PaperSize><PaperSource>99</PaperSource><PrintDirection>3</PrintDirection>",
                  officeLaser, 1, 1, 0},
    SelectionCase{"notNumeric", "<PaperSize>A4</PaperSize><PaperSource>x</PaperSource>", officeLaser, 1, 7, 0},
    SelectionCase{"emptyLists", "<PaperSize>5</PaperSize>", {}, std::nullopt, std::nullopt, std::nullopt},
    SelectionCase{"labelPrinter", "<PaperSize>257</PaperSize><PaperSource>257</PaperSource>",
                  {{256, 257}, {256, 257}, {0}}, 257, 257, 0}),
    [](const auto &info) { return std::string(info.param.name); });

TEST_F(PageSetupTest, PaperWidthAndHeightAreReadOnlyForCustomSizes)
{
    PageSetup chosen;
    chosen.paperWidth = QStringLiteral("8.5"); // what choosing Letter put there
    chosen.paperHeight = QStringLiteral("11");
    configure("<PaperSize>1</PaperSize><PaperWidth>4</PaperWidth><PaperHeight>6</PaperHeight>");
    PageSetup f = read(officeLaser, chosen);
    EXPECT_EQ(f.paperWidth, "8.5");
    EXPECT_EQ(f.paperHeight, "11");

    configure("<PaperSize>256</PaperSize><PaperWidth>4.25</PaperWidth><PaperHeight>6</PaperHeight>");
    f = read(officeLaser, chosen);
    EXPECT_EQ(f.paperWidth, "4.25");
    EXPECT_EQ(f.paperHeight, "6");
}

TEST_F(PageSetupTest, TextsAreShownAsStoredAndWrittenAsSingles)
{
    const QString path = configure("<TopMargin>.50</TopMargin><Orientation>2</Orientation>"
                                   "<MirrorMargins>1</MirrorMargins><LabelWidth>2.625</LabelWidth>");
    PageSetup f = read();
    EXPECT_EQ(f.topMargin, ".50");
    EXPECT_TRUE(f.landscape);
    EXPECT_TRUE(f.mirrorMargins);
    f.columnsPerSheet = QStringLiteral("2.6");
    ASSERT_TRUE(WritePageSetup(store, QStringLiteral("Invoice"), f));

    EXPECT_EQ(stored(path, "TopMargin"), "0.5");
    EXPECT_EQ(stored(path, "Orientation"), "1");
    EXPECT_EQ(stored(path, "MirrorMargins"), "1");
    EXPECT_EQ(stored(path, "ColumnsPerSheet"), "3"); // nearest, halves to even
    EXPECT_EQ(stored(path, "HorizontalGap"), "0.125");
    EXPECT_EQ(stored(path, "LabelWidth"), "2.625");
    EXPECT_EQ(stored(path, "PaperSize"), "1");
    EXPECT_EQ(stored(path, "PaperSource"), "7");
    EXPECT_EQ(stored(path, "PrintDirection"), "0");
}

TEST_F(PageSetupTest, WhatCannotBeConvertedLeavesTheElementAsItWas)
{
    const QString path = configure("<PaperWidth>4</PaperWidth><Gutter>0.25</Gutter>"
                                   "<ColumnsPerSheet>2</ColumnsPerSheet><PaperSize>5</PaperSize>");
    PageSetup f = read();
    f.paperWidth.clear();
    f.gutter = QStringLiteral("wide");
    f.columnsPerSheet = QStringLiteral("40000"); // beyond a 16-bit integer
    f.paperSize.reset();
    f.topMargin = QStringLiteral("100"); // typed values are not range-checked
    ASSERT_TRUE(WritePageSetup(store, QStringLiteral("Invoice"), f));

    EXPECT_EQ(stored(path, "PaperWidth"), "4");
    EXPECT_EQ(stored(path, "Gutter"), "0.25");
    EXPECT_EQ(stored(path, "ColumnsPerSheet"), "2");
    EXPECT_EQ(stored(path, "PaperSize"), "5");
    EXPECT_EQ(stored(path, "TopMargin"), "100");
}

TEST_F(PageSetupTest, WhatIsWrittenReadsBackTheSame)
{
    configure("");
    PageSetup f;
    f.topMargin = QStringLiteral("0.5");
    f.bottomMargin = QStringLiteral("0.75");
    f.leftMargin = QStringLiteral("0.25");
    f.rightMargin = QStringLiteral("1.5");
    f.gutter = QStringLiteral("0.125");
    f.mirrorMargins = true;
    f.landscape = true;
    f.paperSize = 256;
    f.paperWidth = QStringLiteral("4");
    f.paperHeight = QStringLiteral("6");
    f.paperSource = 4;
    f.columnsPerSheet = QStringLiteral("3");
    f.printDirection = 1;
    f.horizontalGap = QStringLiteral("0.1");
    f.verticalGap = QStringLiteral("0.2");
    f.labelWidth = QStringLiteral("2.625");
    f.labelHeight = QStringLiteral("1");
    ASSERT_TRUE(WritePageSetup(store, QStringLiteral("Invoice"), f));

    const PageSetup back = read();
    EXPECT_EQ(back.topMargin, f.topMargin);
    EXPECT_EQ(back.bottomMargin, f.bottomMargin);
    EXPECT_EQ(back.leftMargin, f.leftMargin);
    EXPECT_EQ(back.rightMargin, f.rightMargin);
    EXPECT_EQ(back.gutter, f.gutter);
    EXPECT_EQ(back.mirrorMargins, f.mirrorMargins);
    EXPECT_EQ(back.landscape, f.landscape);
    EXPECT_EQ(back.paperSize, f.paperSize);
    EXPECT_EQ(back.paperWidth, f.paperWidth);
    EXPECT_EQ(back.paperHeight, f.paperHeight);
    EXPECT_EQ(back.paperSource, f.paperSource);
    EXPECT_EQ(back.columnsPerSheet, f.columnsPerSheet);
    EXPECT_EQ(back.printDirection, f.printDirection);
    EXPECT_EQ(back.horizontalGap, f.horizontalGap);
    EXPECT_EQ(back.verticalGap, f.verticalGap);
    EXPECT_EQ(back.labelWidth, f.labelWidth);
    EXPECT_EQ(back.labelHeight, f.labelHeight);
}

TEST_F(PageSetupTest, WithoutAPageSetupElementNothingIsReadOrWritten)
{
    const QString path = host.writeUserFile(QStringLiteral("Invoice.pcx"), "<PrinterConfiguration/>");
    PageSetup f;
    f.topMargin = QStringLiteral("untouched");
    EXPECT_FALSE(ReadPageSetup(store, QStringLiteral("Invoice"), officeLaser, f));
    EXPECT_EQ(f.topMargin, "untouched");
    EXPECT_FALSE(WritePageSetup(store, QStringLiteral("Invoice"), f));
    EXPECT_EQ(readFile(path), "<PrinterConfiguration/>");
    EXPECT_FALSE(ReadPageSetup(store, QStringLiteral("Missing"), officeLaser, f));
    EXPECT_FALSE(WritePageSetup(nullptr, QStringLiteral("Invoice"), f));
}

} // namespace
} // namespace bravcpl5::test
