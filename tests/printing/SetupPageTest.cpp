// Applying a configuration's page setup to a report object.

#include "StoreFixture.h"
#include "support/FakeReport.h"
#include "support/PartialReport.h"

#include <QStringList>

namespace bravcpl5::test {
namespace {

class SetupPageTest : public StoreFixture
{
protected:
    // Writes "Invoice.pcx" with the page setup and assigns it a printer.
    void configure(const QByteArray &pageSetup)
    {
        host.writeUserFile(QStringLiteral("Invoice.pcx"), configurationXml(pageSetup));
        store->SetPrinterForConfiguration(QStringLiteral("Invoice"), QStringLiteral("Office Laser"));
    }
    bool apply(QObject *report, bool onlySetPrinter = false)
    {
        return store->SetupPageFromPrinterConfiguration(QStringLiteral("Invoice"), report, onlySetPrinter);
    }

    FakeReport report;
};

TEST_F(SetupPageTest, AnEmptyPageSetupGivesTheDefaultsInOrder)
{
    configure("");
    EXPECT_FALSE(apply(&report)); // the result never reports success

    const QStringList expectedOrder{
        "Printer.DeviceName", "PageSettings.PaperSize", "PageSettings.PaperWidth",
        "PageSettings.PaperHeight", "PageSettings.PaperSource", "PageSettings.TopMargin",
        "PageSettings.BottomMargin", "PageSettings.LeftMargin", "PageSettings.RightMargin",
        "PageSettings.Gutter", "PageSettings.MirrorMargins", "PageSettings.Orientation",
        "PrintWidth"};
    EXPECT_EQ(report.writtenMembers(), expectedOrder);

    const FakePageSettings &page = report.fakePageSettings();
    EXPECT_EQ(report.fakePrinter().deviceName(), "Office Laser");
    EXPECT_EQ(page.paperSize(), 1);
    EXPECT_EQ(page.paperWidth(), 11520.0f);
    EXPECT_EQ(page.paperHeight(), 15840.0f);
    EXPECT_EQ(page.paperSource(), 7);
    EXPECT_EQ(page.topMargin(), 1440.0f);
    EXPECT_EQ(page.bottomMargin(), 1440.0f);
    EXPECT_EQ(page.leftMargin(), 1440.0f);
    EXPECT_EQ(page.rightMargin(), 1440.0f);
    EXPECT_EQ(page.gutter(), 0.0f);
    EXPECT_FALSE(page.mirrorMargins());
    EXPECT_EQ(page.orientation(), 1);
    EXPECT_EQ(report.printWidth(), 8640.0f);
}

TEST_F(SetupPageTest, StoredValuesAreConvertedToTwips)
{
    configure("<PaperSize>260</PaperSize><PaperWidth>4</PaperWidth><PaperHeight>6.5</PaperHeight>"
              "<PaperSource>258</PaperSource><TopMargin>.25</TopMargin><BottomMargin>0.5</BottomMargin>"
              "<LeftMargin>0.75</LeftMargin><RightMargin>0.125</RightMargin><Gutter>0.5</Gutter>"
              "<MirrorMargins>1</MirrorMargins><Orientation>2</Orientation>");
    apply(&report);

    const FakePageSettings &page = report.fakePageSettings();
    EXPECT_EQ(page.paperSize(), 260);
    EXPECT_EQ(page.paperWidth(), 5760.0f);
    EXPECT_EQ(page.paperHeight(), 9360.0f);
    EXPECT_EQ(page.paperSource(), 258);
    EXPECT_EQ(page.topMargin(), 360.0f);
    EXPECT_EQ(page.bottomMargin(), 720.0f);
    EXPECT_EQ(page.leftMargin(), 1080.0f);
    EXPECT_EQ(page.rightMargin(), 180.0f);
    EXPECT_EQ(page.gutter(), 1036800.0f); // converted twice, on purpose
    EXPECT_TRUE(page.mirrorMargins());
    EXPECT_EQ(page.orientation(), 2);
    EXPECT_EQ(report.printWidth(), 5760.0f - 180.0f - 1080.0f);
}

TEST_F(SetupPageTest, OnlySetPrinterChangesOnlyTheDeviceName)
{
    configure("<PaperSize>5</PaperSize>");
    apply(&report, true);
    EXPECT_EQ(report.writtenMembers(), QStringList{"Printer.DeviceName"});
    EXPECT_EQ(report.fakePrinter().deviceName(), "Office Laser");
}

TEST_F(SetupPageTest, WithoutAPageSetupOnlyThePrinterIsSet)
{
    host.writeUserFile(QStringLiteral("Invoice.pcx"), "<PrinterConfiguration/>");
    apply(&report);
    EXPECT_EQ(report.writtenMembers(), QStringList{"Printer.DeviceName"});
    // With no printer of its own and no default, the device name is still set, to "".
    EXPECT_EQ(report.fakePrinter().deviceName(), "");
}

TEST_F(SetupPageTest, AnEmptyConfigurationLeavesTheReportUntouched)
{
    configure("");
    store->SetupPageFromPrinterConfiguration(QString(), &report);
    EXPECT_TRUE(report.writes().isEmpty());
}

TEST_F(SetupPageTest, AnUnassignedConfigurationPrintsOnTheDefaultPrinter)
{
    host.writeUserFile(QStringLiteral("Labels.pcx"), configurationXml(""));
    store->SetPrinterForConfiguration(QStringLiteral("(Default)"), QStringLiteral("Label Printer"));
    store->SetupPageFromPrinterConfiguration(QStringLiteral("Labels"), &report, true);
    EXPECT_EQ(report.fakePrinter().deviceName(), "Label Printer");
}

TEST_F(SetupPageTest, AnOverflowingLengthSkipsThatMemberAlone)
{
    // The gutter fits in twips once (1.44E+36) but not twice.
    configure("<PaperWidth>1E+36</PaperWidth><Gutter>1E+33</Gutter><TopMargin>2</TopMargin>");
    apply(&report);
    const QStringList written = report.writtenMembers();
    EXPECT_FALSE(written.contains("PageSettings.PaperWidth"));
    EXPECT_FALSE(written.contains("PageSettings.Gutter"));
    EXPECT_TRUE(written.contains("PageSettings.PaperHeight"));
    EXPECT_EQ(report.fakePageSettings().topMargin(), 2880.0f);
    // The print width comes from what the page settings hold (width untouched: 0).
    EXPECT_EQ(report.printWidth(), -2880.0f);
}

TEST_F(SetupPageTest, MissingAndRefusedMembersAreSkipped)
{
    configure("<PaperSize>9</PaperSize><TopMargin>0.5</TopMargin><LeftMargin>2</LeftMargin>"
              "<Orientation>1</Orientation>");
    PartialReport partial;
    apply(&partial);

    QStringList written;
    for (const auto &write : partial.writes())
        written.append(write.first);
    EXPECT_EQ(written, (QStringList{"PageSettings.TopMargin", "PageSettings.LeftMargin",
                                    "PageSettings.RightMargin", "PageSettings.Orientation",
                                    "PrintWidth"}));
    // The read-only paper width is read back as the report holds it.
    EXPECT_EQ(partial.printWidth(), 12240.0f - 1440.0f - 2880.0f);
}

TEST_F(SetupPageTest, ANonObjectReportIsHarmless)
{
    configure("");
    QObject plain;
    EXPECT_FALSE(apply(&plain));
    EXPECT_FALSE(apply(nullptr));
}

} // namespace
} // namespace bravcpl5::test
