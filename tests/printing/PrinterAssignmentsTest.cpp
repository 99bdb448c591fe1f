// Which printer a configuration prints to, as the user names it: in any case, replaced
// rather than doubled, and kept whole when the disk is full.

#include "support/FakeReport.h"
#include "support/SmallFileSystem.h"
#include "support/StoreFixture.h"

namespace bravcpl5::test {
namespace {

class PrinterAssignments : public StoreFixture
{
};

TEST_F(PrinterAssignments, AreFoundInAnyCaseAndReplacedRatherThanDoubled)
{
    store->SetPrinterForConfiguration(QStringLiteral("(Default)"), QStringLiteral("Front Desk"));
    store->SetPrinterForConfiguration(QStringLiteral("Letter"), QStringLiteral("Office-Laser"));
    store->SetPrinterForConfiguration(QStringLiteral("Plain"), QStringLiteral("Label-Printer"));
    host.writeUserFile(QStringLiteral("Plain.pcx"), configurationXml("<PaperSize>5</PaperSize>"));

    const std::pair<const char *, const char *> lookups[] = {
        {"Letter", "Office-Laser"}, {"LETTER", "Office-Laser"},  {"letter", "Office-Laser"},
        {"pLAIN", "Label-Printer"}, {"(DEFAULT)", "Front Desk"}, {"Legal", "Front Desk"}};
    for (const auto &[name, printer] : lookups)
        EXPECT_EQ(store->GetPrinterForConfiguration(name), printer) << name;
    EXPECT_EQ(store->GetPrinterConfigurationToUse(QStringLiteral("LETTER")), "LETTER");

    store->SetPrinterForConfiguration(QStringLiteral("letter"), QStringLiteral("Label-Printer"));
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Letter")), "Label-Printer");
    const QByteArray registry = readFile(RegistryFile());
    EXPECT_EQ(registry.count("etter="), 1) << registry.constData();
    EXPECT_TRUE(registry.contains("\nLetter=Label-Printer\n")) << registry.constData();

    FakeReport report;
    store->SetupPageFromPrinterConfiguration(QStringLiteral("PLAIN"), &report);
    ASSERT_FALSE(report.writes.isEmpty());
    EXPECT_EQ(report.writes.first(), "Printer.DeviceName=Label-Printer");
    EXPECT_TRUE(report.writes.contains("PageSettings.PaperSize=5"));
}

TEST_F(PrinterAssignments, AFullDiskKeepsEveryEarlierAssignment)
{
    SmallFileSystem fs(256 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    SetRegistryFile(fs.filePath(QStringLiteral("HKEY_CURRENT_USER.ini")));
    for (int i = 0; i < 50; ++i)
        store->SetPrinterForConfiguration(QStringLiteral("Configuration %1").arg(i),
                                          QStringLiteral("Printer %1").arg(i));
    fs.fill();

    store->SetPrinterForConfiguration(QStringLiteral("Configuration 0"),
                                      QStringLiteral("Another printer"));
    store->SetPrinterForConfiguration(QStringLiteral("New one"), QStringLiteral("Office-Laser"));
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Configuration %1").arg(i)),
                  QStringLiteral("Printer %1").arg(i));
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("New one"), true), "");
}

} // namespace
} // namespace bravcpl5::test
