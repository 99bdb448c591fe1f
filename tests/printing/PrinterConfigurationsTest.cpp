// The printer configuration store: listing, lookup, system flag, printer mapping (kept
// whole when the disk is full) and the checks that speak to the user.

#include "library/LateBinding.h"
#include "support/FakeReport.h"
#include "support/MessageRecorder.h"
#include "support/SmallFileSystem.h"
#include "support/StoreFixture.h"

#include <QFileInfo>

namespace bravcpl5::test {
namespace {

const QString notSetUp = QStringLiteral(
    "The printer configurations have not been setup on this computer. Contact your system "
    "administrator for assistance on setting up your printers.");
const QString unassigned = QStringLiteral(
    "Attention: One or more of the printer configurations does not have a printer assigned to "
    "it. This may cause undesirable results if the unassigned printer configuration is "
    "specifically referenced on a report or label.\r\n\r\nIt is reccommended that you assign a "
    "printer to each printer configuration.");

class PrinterConfigurationsTest : public StoreFixture
{
protected:
    void assign(const QString &configuration, const QString &printer)
    {
        store->SetPrinterForConfiguration(configuration, printer);
    }
};

TEST_F(PrinterConfigurationsTest, ListsSystemThenUserConfigurationsOnceAndFindsTheUsersFirst)
{
    host.writeSystemFile(QStringLiteral("Letter.pcx"), configurationXml(""));
    host.writeSystemFile(QStringLiteral("Checks.PCX"), configurationXml(""));
    host.writeSystemFile(QStringLiteral("Legal.pcx"), configurationXml(""));
    const QString userLetter = host.writeUserFile(QStringLiteral("Letter.pcx"),
                                                  configurationXml(""));
    host.writeUserFile(QStringLiteral("Avery 5160.pcx"), configurationXml(""));
    host.writeUserFile(QStringLiteral("letter.pcx.bak"), "");
    host.writeUserFile(QStringLiteral("Nested/Deep.pcx"), configurationXml(""));
    // Repeats are found by exact comparison: a name differing in case is listed again.
    host.writeUserFile(QStringLiteral("CHECKS.pcx"), configurationXml(""));

    // Read by name, as a client would.
    EXPECT_EQ(late::value(store, "GetPrinterConfigurations").toStringList(),
              (QStringList{"", "Checks", "Legal", "Letter", "Avery 5160", "CHECKS"}));
    const QStringList paths = store->GetPrinterConfigurations(false);
    ASSERT_EQ(paths.size(), 7); // full paths differ between the folders
    EXPECT_EQ(paths[3], QDir(host.systemFolder()).filePath("Letter.pcx"));
    EXPECT_EQ(paths[6], userLetter);

    // Lookup ignores case and prefers the user folder.
    EXPECT_EQ(late::text(store, "GetPrinterConfigurationFileFromName", {"letter"}), userLetter);
    EXPECT_EQ(
        QFileInfo(store->GetPrinterConfigurationFileFromName(QStringLiteral("checks"))).fileName(),
        "CHECKS.pcx");
    EXPECT_EQ(store->GetPrinterConfigurationFileFromName(QStringLiteral("LEGAL")),
              QDir(host.systemFolder()).filePath("Legal.pcx"));
    EXPECT_EQ(store->GetPrinterConfigurationFileFromName(QStringLiteral("Leg")), "");
    EXPECT_EQ(store->GetPrinterConfigurationFileFromName(QString()), "");

    // The whole list with its files agrees with the lookups by name.
    QStringList names;
    for (const PrinterConfigurations::NamedFile &configuration : store->configurationFiles()) {
        names << configuration.name;
        EXPECT_EQ(configuration.file,
                  store->GetPrinterConfigurationFileFromName(configuration.name))
            << configuration.name.toStdString();
    }
    EXPECT_EQ(names, (QStringList{"Checks", "Legal", "Letter", "Avery 5160", "CHECKS"}));
}

TEST_F(PrinterConfigurationsTest, SystemFlagComesFromIdentification)
{
    host.writeUserFile(QStringLiteral("Shared.pcx"), configurationXml("", 1));
    host.writeUserFile(QStringLiteral("Own.pcx"), configurationXml("", 0));
    host.writeUserFile(QStringLiteral("Broken.pcx"), "<PrinterConfiguration>");
    // In the system folder but not flagged: not a system configuration.
    host.writeSystemFile(QStringLiteral("Plain.pcx"), configurationXml(""));
    // A full path is read as it stands, without searching the folders.
    const QString elsewhere = writeFile(QDir(host.root()).filePath("elsewhere/Own.pcx"),
                                        configurationXml("", 2));

    EXPECT_TRUE(store->PrinterConfigurationIsSystem(QStringLiteral("shared")));
    for (const char *name : {"Own", "Broken", "Plain", "Missing", ""})
        EXPECT_FALSE(store->PrinterConfigurationIsSystem(QString::fromUtf8(name))) << name;
    EXPECT_TRUE(store->PrinterConfigurationIsSystem(elsewhere));
}

TEST_F(PrinterConfigurationsTest, PrintersAndTheConfigurationToUseFallBackToTheDefault)
{
    assign("Invoice", "Office Laser");
    EXPECT_EQ(store->GetPrinterForConfiguration("Invoice"), "Office Laser");
    EXPECT_EQ(store->GetPrinterForConfiguration("Labels"), "");
    EXPECT_EQ(store->GetPrinterConfigurationToUse("Invoice"), "Invoice");
    {
        MessageRecorder messages;
        EXPECT_EQ(store->GetPrinterConfigurationToUse("Labels"), "");
        EXPECT_EQ(messages.texts(), QStringList{notSetUp});
        EXPECT_EQ(messages.messages()[0].icon, QMessageBox::Warning);
        EXPECT_EQ(messages.messages()[0].buttons, QMessageBox::Ok);
    }
    EXPECT_EQ(store->GetPrinterConfigurationToUse("Labels", false), ""); // silently

    assign("(Default)", "Front Desk");
    EXPECT_EQ(store->GetPrinterForConfiguration("Labels"), "Front Desk");
    EXPECT_EQ(store->GetPrinterForConfiguration("Labels", true), "");
    EXPECT_EQ(store->GetPrinterConfigurationToUse("Labels"), "(Default)");
    EXPECT_EQ(store->GetPrinterConfigurationToUse(""), "(Default)");
    // An empty printer is stored as empty, which falls back like a missing one.
    assign("Invoice", "");
    EXPECT_EQ(store->GetPrinterForConfiguration("Invoice"), "Front Desk");
}

// Printers are assigned as the user names them: found in any case, replaced rather than
// doubled, and read all at once as one by one.
TEST_F(PrinterConfigurationsTest, AssignmentsAreFoundInAnyCaseAndReplacedRatherThanDoubled)
{
    assign("(Default)", "Front Desk");
    assign("Letter", "Office-Laser");
    assign("Plain", "Label-Printer");
    assign("a/b", "Plotter");
    host.writeUserFile(QStringLiteral("Plain.pcx"), configurationXml("<PaperSize>5</PaperSize>"));

    const std::pair<const char *, const char *> lookups[] = {
        {"Letter", "Office-Laser"}, {"LETTER", "Office-Laser"},  {"letter", "Office-Laser"},
        {"pLAIN", "Label-Printer"}, {"(DEFAULT)", "Front Desk"}, {"Legal", "Front Desk"}};
    for (const auto &[name, printer] : lookups)
        EXPECT_EQ(store->GetPrinterForConfiguration(name), printer) << name;
    EXPECT_EQ(store->GetPrinterConfigurationToUse(QStringLiteral("LETTER")), "LETTER");

    assign("letter", "Label-Printer");
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Letter")), "Label-Printer");
    const QByteArray registry = readFile(RegistryFile());
    EXPECT_EQ(registry.count("etter="), 1) << registry.constData();
    EXPECT_TRUE(registry.contains("\nLetter=Label-Printer\n")) << registry.constData();

    const QHash<QString, QString> printers = store->printerAssignments();
    EXPECT_EQ(printers.size(), 4);
    for (const char *name : {"letter", "A/B", "(Default)", "Legal"})
        EXPECT_EQ(printers.value(QString::fromLatin1(name).toCaseFolded()),
                  store->GetPrinterForConfiguration(QString::fromLatin1(name), true))
            << name;

    FakeReport report;
    store->SetupPageFromPrinterConfiguration(QStringLiteral("PLAIN"), &report);
    ASSERT_FALSE(report.writes.isEmpty());
    EXPECT_EQ(report.writes.first(), "Printer.DeviceName=Label-Printer");
    EXPECT_TRUE(report.writes.contains("PageSettings.PaperSize=5"));
}

TEST_F(PrinterConfigurationsTest, AFullDiskKeepsEveryEarlierAssignment)
{
    SmallFileSystem fs(256 * 1024);
    REQUIRE_SMALL_FILE_SYSTEM(fs);
    SetRegistryFile(fs.filePath(QStringLiteral("HKEY_CURRENT_USER.ini")));
    for (int i = 0; i < 50; ++i)
        assign(QStringLiteral("Configuration %1").arg(i), QStringLiteral("Printer %1").arg(i));
    fs.fill();

    assign("Configuration 0", "Another printer");
    assign("New one", "Office-Laser");
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("Configuration %1").arg(i)),
                  QStringLiteral("Printer %1").arg(i));
    EXPECT_EQ(store->GetPrinterForConfiguration(QStringLiteral("New one"), true), "");
}

TEST_F(PrinterConfigurationsTest, VerificationNeedsAPrinterOfEachConfigurationsOwn)
{
    host.writeSystemFile(QStringLiteral("Invoice.pcx"), configurationXml(""));
    host.writeUserFile(QStringLiteral("Labels.pcx"), configurationXml(""));
    assign("Invoice", "Office Laser");
    assign("(Default)", "Front Desk"); // does not count

    EXPECT_FALSE(store->VerifyPrinterConfigurations(false));
    {
        MessageRecorder messages;
        EXPECT_FALSE(store->VerifyPrinterConfigurations());
        EXPECT_EQ(messages.texts(), QStringList{unassigned});
        EXPECT_EQ(messages.messages()[0].buttons, QMessageBox::Ok);
    }
    assign("Labels", "Label Printer");
    EXPECT_TRUE(store->VerifyPrinterConfigurations());
}

// A Library that answers ShowPrinterConfigurations, to see when the store asks for it.
class RecordingLibrary : public Library
{
    Q_OBJECT
public:
    Q_INVOKABLE void ShowPrinterConfigurations() { ++shown; }
    int shown = 0;
};

TEST_F(PrinterConfigurationsTest, VerificationOffersToFixAndStillFails)
{
    RecordingLibrary owner;
    owner.Initialize(&host);
    PrinterConfigurations *configurations = owner.printerConfigurations();
    host.writeUserFile(QStringLiteral("Labels.pcx"), configurationXml(""));
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
        MessageRecorder messages({answer});
        // Whatever happens in the printer configurations dialog, the check has failed.
        EXPECT_FALSE(configurations->VerifyPrinterConfigurations(true, true));
        EXPECT_EQ(messages.texts(),
                  QStringList{unassigned + QStringLiteral(" Do you want to address this now?")});
        EXPECT_EQ(messages.messages()[0].buttons, QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(messages.messages()[0].icon, QMessageBox::Warning);
    }
    EXPECT_EQ(owner.shown, 1); // on Yes only
    owner.PreTerminate();
}

// No files, a missing folder, and no host at all.
TEST_F(PrinterConfigurationsTest, MissingFilesFoldersOrHostGiveEmptyAnswersAndVerify)
{
    EXPECT_EQ(store->GetPrinterConfigurations(), QStringList{QString()});
    EXPECT_TRUE(store->VerifyPrinterConfigurations()); // and no message
    host.writeSystemFile(QStringLiteral("Letter.pcx"), configurationXml(""));
    host.testOptions().userFolder = QDir(host.root()).filePath("absent");
    EXPECT_EQ(store->GetPrinterConfigurations(), (QStringList{"", "Letter"}))
        << "the missing folder is skipped";
    host.testOptions().systemFolder.clear();
    EXPECT_EQ(store->GetPrinterConfigurationFileFromName(QStringLiteral("Letter")), "");

    host.writeUserFile(QStringLiteral("Labels.pcx"), configurationXml("", 1));
    assign("Labels", "Label Printer");
    library.Initialize(nullptr);
    EXPECT_EQ(store->GetPrinterConfigurations(), QStringList{QString()});
    EXPECT_EQ(store->GetPrinterConfigurationFileFromName("Labels"), "");
    EXPECT_EQ(store->GetPrinterForConfiguration("Labels"), "");
    EXPECT_FALSE(store->PrinterConfigurationIsSystem("Labels"));
    EXPECT_TRUE(store->VerifyPrinterConfigurations());
}

} // namespace
} // namespace bravcpl5::test

#include "PrinterConfigurationsTest.moc"
