// Reading and writing the page setup document as the page setup dialog's fields.

#include "printing/PageSetup.h"
#include "library/Xml.h"
#include "printers/PrinterInfo.h"
#include "support/StoreFixture.h"

namespace bravcpl5::test {
namespace {

// What the Office Laser's lists and a two-entry printing direction list offer.
const PageSetupChoices officeLaser{{1, 5, 9, 20, 256}, {1, 2, 4, 5, 7}, {0, 1}};

// The page setup reads only the default printer's current paper and bin.
struct DefaultPrinter final : PrinterInfo {
    QString name = QStringLiteral("Office Laser");
    int size = 1, bin = 7; // Letter, Auto
    QStringList printerNames() const override { return {name}; }
    QString defaultPrinterName() const override { return name; }
    QList<PaperSizeInfo> paperSizes(const QString &) const override { return {}; }
    QList<PaperBinInfo> paperBins(const QString &) const override { return {}; }
    int currentPaperSize(const QString &printer) const override
    {
        return printer == name ? size : 0;
    }
    int currentPaperBin(const QString &printer) const override { return printer == name ? bin : 0; }
};

class PageSetupTest : public StoreFixture
{
protected:
    void SetUp() override
    {
        StoreFixture::SetUp();
        auto fake = std::make_unique<DefaultPrinter>();
        printer = fake.get();
        SetPrinterInfo(std::move(fake));
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
    // What the dialog passes: its printers' default printer's paper.
    PaperDefaults paper() const { return DefaultPrinterPaper(*printer); }
    // The configuration's file, found by name as the library finds it.
    QString fileOf(const QString &name = QStringLiteral("Invoice")) const
    {
        return store->GetPrinterConfigurationFileFromName(name);
    }
    PageSetup read(const PageSetupChoices &choices = officeLaser, PageSetup fields = {})
    {
        EXPECT_TRUE(ReadPageSetup(fileOf(), choices, paper(), fields));
        return fields;
    }
    // The elements' texts in the saved file.
    QStringList stored(const QString &path, const QStringList &elements)
    {
        const XmlDocumentPtr xml = LoadXmlFile(path);
        QStringList texts;
        for (const QString &element : elements)
            texts << (xml ? NodeText(
                          SelectSingleNode(*xml, QStringLiteral("//PageSetup/") + element))
                          : QString());
        return texts;
    }

    DefaultPrinter *printer = nullptr;
};

TEST_F(PageSetupTest, AnEmptyPageSetupReadsTheDefaultsWhichFollowTheDefaultPrinter)
{
    configure("");
    // Letter and Auto are the default printer's current paper and bin; the paper's width
    // and height are left to the chosen paper.
    const PageSetup defaults{"1", "1", "1", "1", "0",    false, false, 1,  "",
                             "",  7,   "1", 0,   ".125", "0",   "3.5", "1"};
    EXPECT_TRUE(read() == defaults);

    printer->size = 9; // A4
    printer->bin = 0;  // no bin
    PageSetup f = read();
    EXPECT_EQ(f.paperSize, 9);
    EXPECT_EQ(f.paperSource, 1); // 0 is not offered: the first entry

    // No default printer, as on many CUPS workstations: the first entries still stand in.
    printer->name.clear();
    f = read();
    EXPECT_EQ(f.paperSize, 1);
    EXPECT_EQ(f.paperSource, 1);
    EXPECT_EQ(f.printDirection, 0);
    configure("<PaperSize>20</PaperSize><PaperSource>banana</PaperSource>");
    f = read();
    EXPECT_EQ(f.paperSize, 20); // a stored code still wins
    EXPECT_EQ(f.paperSource, 1);
}

TEST_F(PageSetupTest, SelectsTheStoredCodeElseTheFirst)
{
    const struct {
        const char *name;
        QByteArray pageSetup;
        PageSetupChoices choices;
        std::optional<int> paperSize, paperSource, printDirection;
    } cases[] = {
        {"stored",
         "<PaperSize>5</PaperSize><PaperSource>4</PaperSource><PrintDirection>1</PrintDirection>",
         officeLaser, 5, 4, 1},
        {"unknown",
         "<PaperSize>70</PaperSize><PaperSource>99</PaperSource><PrintDirection>3</PrintDirection>",
         officeLaser, 1, 1, 0},
        {"notNumeric", "<PaperSize>A4</PaperSize><PaperSource>x</PaperSource>", officeLaser, 1, 7,
         0},
        {"emptyLists", "<PaperSize>5</PaperSize>", {}, std::nullopt, std::nullopt, std::nullopt},
        {"labelPrinter",
         "<PaperSize>257</PaperSize><PaperSource>257</PaperSource>",
         {{256, 257}, {256, 257}, {0}},
         257,
         257,
         0}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        configure(c.pageSetup);
        const PageSetup f = read(c.choices);
        EXPECT_EQ(f.paperSize, c.paperSize);
        EXPECT_EQ(f.paperSource, c.paperSource);
        EXPECT_EQ(f.printDirection, c.printDirection);
    }
}

// A printer's own code was numbered on the workstation that saved it: the stored size
// finds the sheet here (the same label is 263 through one client's reading, 270 through
// another's), the code choosing only between sheets of one size.
TEST_F(PageSetupTest, OwnPaperCodesSelectTheSheetOfTheStoredSize)
{
    PageSetupChoices labels = officeLaser;
    labels.paperSheets = {{"Letter", 1, 12240, 15840},
                          {"Letter (Borderless)", 256, 12240, 15840},
                          {"30252 Address", 257, 1584, 5040},
                          {"30256 Shipping", 258, 3340, 5760}};
    labels.paperSizes = {1, 256, 257, 258};
    const struct {
        const char *name;
        QByteArray pageSetup;
        int paperSize;
    } cases[] = {
        {"another client's code of the label",
         "<PaperSize>263</PaperSize><PaperWidth>1.1</PaperWidth>"
         "<PaperHeight>3.5</PaperHeight>",
         257},
        {"a code of this printer on another sheet",
         "<PaperSize>257</PaperSize><PaperWidth>2.32</PaperWidth><PaperHeight>4</PaperHeight>",
         258},
        {"the code breaks the tie",
         "<PaperSize>256</PaperSize><PaperWidth>8.5</PaperWidth>"
         "<PaperHeight>11</PaperHeight>",
         256},
        {"without a tie, the sheet of the size",
         "<PaperSize>300</PaperSize><PaperWidth>8.5</PaperWidth>"
         "<PaperHeight>11</PaperHeight>",
         1},
        {"a size the printer lacks: the stored code as before",
         "<PaperSize>257</PaperSize><PaperWidth>5</PaperWidth><PaperHeight>5</PaperHeight>", 257},
        {"without a size: the stored code as before", "<PaperSize>258</PaperSize>", 258},
    };
    for (const auto &c : cases) {
        configure(c.pageSetup);
        EXPECT_EQ(read(labels).paperSize, c.paperSize) << c.name;
    }
}

TEST_F(PageSetupTest, PaperWidthAndHeightAreReadOnlyForCustomSizes)
{
    PageSetup chosen;
    chosen.paperWidth = QStringLiteral("8.5"); // what choosing Letter put there
    chosen.paperHeight = QStringLiteral("11");
    for (const auto &[size, width, height] :
         {std::tuple{"1", "8.5", "11"}, std::tuple{"256", "4.25", "6"}}) {
        configure(QByteArray("<PaperSize>") + size
                  + "</PaperSize><PaperWidth>4.25</PaperWidth><PaperHeight>6</PaperHeight>");
        const PageSetup f = read(officeLaser, chosen);
        EXPECT_EQ(f.paperWidth, width) << size;
        EXPECT_EQ(f.paperHeight, height) << size;
    }
}

TEST_F(PageSetupTest, TextsAreShownAsStoredAndWrittenAsSingles)
{
    const QString path = configure(
        "<TopMargin>.50</TopMargin><Orientation>2</Orientation>"
        "<MirrorMargins>1</MirrorMargins><LabelWidth>2.625</LabelWidth>");
    PageSetup f = read();
    EXPECT_EQ(f.topMargin, ".50");
    EXPECT_TRUE(f.landscape);
    EXPECT_TRUE(f.mirrorMargins);
    f.columnsPerSheet = QStringLiteral("2.6");
    ASSERT_TRUE(WritePageSetup(fileOf(), f));

    // ColumnsPerSheet: the nearest, halves to even.
    EXPECT_EQ(
        stored(path, {"TopMargin", "Orientation", "MirrorMargins", "ColumnsPerSheet",
                      "HorizontalGap", "LabelWidth", "PaperSize", "PaperSource", "PrintDirection"}),
        QStringList({"0.5", "1", "1", "3", "0.125", "2.625", "1", "7", "0"}));
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
    ASSERT_TRUE(WritePageSetup(fileOf(), f));

    EXPECT_EQ(stored(path, {"PaperWidth", "Gutter", "ColumnsPerSheet", "PaperSize", "TopMargin"}),
              QStringList({"4", "0.25", "2", "5", "100"}));
}

TEST_F(PageSetupTest, WhatIsWrittenReadsBackTheSame)
{
    configure("");
    const PageSetup f{"0.5", "0.75", "0.25", "1.5", "0.125", true,  true,    256, "4",
                      "6",   4,      "3",    1,     "0.1",   "0.2", "2.625", "1"};
    ASSERT_TRUE(WritePageSetup(fileOf(), f));

    EXPECT_TRUE(read() == f);
}

TEST_F(PageSetupTest, WithoutAPageSetupElementNothingIsReadOrWritten)
{
    const QString path = host.writeUserFile(QStringLiteral("Invoice.pcx"),
                                            "<PrinterConfiguration/>");
    PageSetup f;
    f.topMargin = QStringLiteral("untouched");
    EXPECT_FALSE(ReadPageSetup(fileOf(), officeLaser, paper(), f));
    EXPECT_EQ(f.topMargin, "untouched");
    EXPECT_FALSE(WritePageSetup(fileOf(), f));
    EXPECT_EQ(readFile(path), "<PrinterConfiguration/>");
    EXPECT_FALSE(ReadPageSetup(fileOf(QStringLiteral("Missing")), officeLaser, paper(), f));
    EXPECT_FALSE(WritePageSetup(QString(), f));
}

// A printer information that fails the test when it is asked anything.
struct Untouchable final : PaperPrinterInfo {
    QStringList printerNames() const override { return asked(QStringList()); }
    QString defaultPrinterName() const override { return asked(QString()); }
    PrinterPaper paper(const QString &) const override { return asked(PrinterPaper()); }
    template <typename T> static T asked(T nothing)
    {
        ADD_FAILURE() << "the printer information was asked";
        return nothing;
    }
};

// Reading and writing a page setup asks no printer: the paper defaults are the caller's,
// so a label sheet or a fuzzer reads a file without a print server.
TEST_F(PageSetupTest, ReadingAndWritingAskNoPrinter)
{
    SetPrinterInfo(std::make_unique<Untouchable>());
    configure("<PaperSize>5</PaperSize>");
    PageSetup f;
    ASSERT_TRUE(ReadPageSetup(fileOf(), officeLaser, PaperDefaults(), f));
    EXPECT_EQ(f.paperSize, 5);
    EXPECT_EQ(f.paperSource, 1); // nothing stored and no default: the first bin
    ASSERT_TRUE(store->readPageSetup(QStringLiteral("Invoice"), officeLaser, {}, f));
    ASSERT_TRUE(store->savePageSetup(QStringLiteral("Invoice"), f));
}

} // namespace
} // namespace bravcpl5::test
