// Applying a configuration's page setup to a report object.

#include "support/FakeReport.h"
#include "support/StoreFixture.h"

#include <QSize>

namespace bravcpl5::test {
namespace {

class SetupPageTest : public StoreFixture
{
protected:
    // Writes "Invoice.pcx" with the page setup and assigns it a printer.
    void configure(const QByteArray &pageSetup)
    {
        host.writeUserFile(QStringLiteral("Invoice.pcx"), configurationXml(pageSetup));
        store->SetPrinterForConfiguration(QStringLiteral("Invoice"),
                                          QStringLiteral("Office Laser"));
    }
    bool apply(QObject *report, bool onlySetPrinter = false)
    {
        return store->SetupPageFromPrinterConfiguration(QStringLiteral("Invoice"), report,
                                                        onlySetPrinter);
    }

    FakeReport report;
};

TEST_F(SetupPageTest, AnEmptyPageSetupGivesTheDefaultsInOrder)
{
    configure("");
    EXPECT_FALSE(apply(&report)); // the result never reports success
    EXPECT_EQ(report.writes,
              QStringList({"Printer.DeviceName=Office Laser", "PageSettings.PaperSize=1",
                           "PageSettings.PaperWidth=11520", "PageSettings.PaperHeight=15840",
                           "PageSettings.PaperSource=7", "PageSettings.TopMargin=1440",
                           "PageSettings.BottomMargin=1440", "PageSettings.LeftMargin=1440",
                           "PageSettings.RightMargin=1440", "PageSettings.Gutter=0",
                           "PageSettings.MirrorMargins=false", "PageSettings.Orientation=1",
                           "PrintWidth=8640"}));
}

TEST_F(SetupPageTest, StoredValuesAreConvertedToTwips)
{
    configure(
        "<PaperSize>260</PaperSize><PaperWidth>4</PaperWidth><PaperHeight>6.5</PaperHeight>"
        "<PaperSource>258</PaperSource><TopMargin>.25</TopMargin><BottomMargin>0.5</BottomMargin>"
        "<LeftMargin>0.75</LeftMargin><RightMargin>0.125</RightMargin><Gutter>0.5</Gutter>"
        "<MirrorMargins>1</MirrorMargins><Orientation>2</Orientation>");
    apply(&report);
    // The gutter is converted twice, on purpose.
    EXPECT_EQ(report.writes.mid(1),
              QStringList({"PageSettings.PaperSize=260", "PageSettings.PaperWidth=5760",
                           "PageSettings.PaperHeight=9360", "PageSettings.PaperSource=258",
                           "PageSettings.TopMargin=360", "PageSettings.BottomMargin=720",
                           "PageSettings.LeftMargin=1080", "PageSettings.RightMargin=180",
                           "PageSettings.Gutter=1036800", "PageSettings.MirrorMargins=true",
                           "PageSettings.Orientation=2", "PrintWidth=4500"}));
}

TEST_F(SetupPageTest, OnlySetPrinterOrNoPageSetupSetsOnlyTheDeviceName)
{
    configure("<PaperSize>5</PaperSize>");
    apply(&report, true);
    EXPECT_EQ(report.writes, QStringList{"Printer.DeviceName=Office Laser"});

    // With no printer of its own and no default, the device name is still set, to "".
    report.writes.clear();
    host.writeUserFile(QStringLiteral("Other.pcx"), "<PrinterConfiguration/>");
    store->SetupPageFromPrinterConfiguration(QStringLiteral("Other"), &report);
    EXPECT_EQ(report.writes, QStringList{"Printer.DeviceName="});

    report.writes.clear();
    store->SetupPageFromPrinterConfiguration(QString(), &report);
    EXPECT_EQ(report.writes, QStringList());
    QObject plain; // a report without the members is harmless
    EXPECT_FALSE(apply(&plain));
    EXPECT_FALSE(apply(nullptr));

    // An unassigned configuration prints on the default printer.
    store->SetPrinterForConfiguration(QStringLiteral("(Default)"), QStringLiteral("Label Printer"));
    store->SetupPageFromPrinterConfiguration(QStringLiteral("Other"), &report, true);
    EXPECT_EQ(report.writes, QStringList{"Printer.DeviceName=Label Printer"});
}

TEST_F(SetupPageTest, AnOverflowingLengthSkipsThatMemberAlone)
{
    // The gutter fits in twips once (1.44E+36) but not twice.
    configure("<PaperWidth>1E+36</PaperWidth><Gutter>1E+33</Gutter><TopMargin>2</TopMargin>");
    apply(&report);
    // The print width comes from what the page settings hold (the width untouched).
    EXPECT_EQ(report.writes.mid(1),
              QStringList({"PageSettings.PaperSize=1", "PageSettings.PaperHeight=15840",
                           "PageSettings.PaperSource=7", "PageSettings.TopMargin=2880",
                           "PageSettings.BottomMargin=1440", "PageSettings.LeftMargin=1440",
                           "PageSettings.RightMargin=1440", "PageSettings.MirrorMargins=false",
                           "PageSettings.Orientation=1", "PrintWidth=9360"}));
}

// Page settings lacking most members, with a paper width that cannot be written and a
// paper size that refuses every number.
class PartialPageSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QSize PaperSize MEMBER paperSize)
    Q_PROPERTY(float PaperWidth READ paperWidth)
    Q_PROPERTY(float TopMargin MEMBER topMargin)
    Q_PROPERTY(float LeftMargin MEMBER leftMargin)
    Q_PROPERTY(float RightMargin MEMBER rightMargin)
    Q_PROPERTY(int Orientation MEMBER orientation)
public:
    float paperWidth() const { return 12240; }
    QSize paperSize;
    float topMargin = 0, leftMargin = 0, rightMargin = 0;
    int orientation = 0;
};

TEST_F(SetupPageTest, MissingAndRefusedMembersAreSkipped)
{
    configure("<PaperSize>9</PaperSize><TopMargin>0.5</TopMargin><LeftMargin>2</LeftMargin>"
              "<Orientation>1</Orientation>");
    Logged<PartialPageSettings> settings;
    Logged<ReportShell> partial; // and no printer
    partial.log = settings.log = &report.writes;
    partial.pageSettings = &settings;
    apply(&partial);
    // The read-only paper width is read back as the report holds it.
    EXPECT_EQ(report.writes, QStringList({"TopMargin=720", "LeftMargin=2880", "RightMargin=1440",
                                          "Orientation=2", "PrintWidth=7920"}));
}

} // namespace
} // namespace bravcpl5::test

#include "SetupPageTest.moc"
