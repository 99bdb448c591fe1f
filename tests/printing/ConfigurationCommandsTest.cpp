// The printer configurations dialog's rules, without its widgets.

#include "printing/ConfigurationCommands.h"
#include "support/QtPrinters.h"

#include <QSet>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

using Command = ConfigurationCommand;

TEST(ConfigurationCommandsTest, CommandsFollowTheSelectedRow)
{
    const ConfigurationRow user{"Invoice", "Office", "/u/Invoice.pcx", false};
    const ConfigurationRow shared{"Letter", "Office", "/s/Letter.pcx", true};
    const ConfigurationRow unassigned{"Plain", "", "/u/Plain.pcx", false};
    const ConfigurationRow fileless{"Gone", "Office", "", false};
    struct Case {
        const ConfigurationRow *row;
        bool pageSetup, properties, copy, del;
    };
    const Case cases[] = {
        {&user, true, true, true, true},
        {&shared, false, true, true, false}, // copied, never deleted or set up in place
        {&unassigned, true, true, false, false},
        {&fileless, false, false, true, true},
        {nullptr, false, false, false, false},
    };
    for (const Case &c : cases) {
        const std::string name = c.row ? c.row->name.toStdString() : "nothing";
        EXPECT_EQ(IsCommandEnabled(Command::PageSetup, c.row), c.pageSetup) << name;
        EXPECT_EQ(IsCommandEnabled(Command::PrinterProperties, c.row), c.properties) << name;
        EXPECT_EQ(IsCommandEnabled(Command::Copy, c.row), c.copy) << name;
        EXPECT_EQ(IsCommandEnabled(Command::Delete, c.row), c.del) << name;
        EXPECT_TRUE(IsCommandEnabled(Command::Refresh, c.row)) << name;
    }
}

TEST(ConfigurationCommandsTest, ThePrinterBarHoldsItsCommandsInOrder)
{
    QList<int> ids;
    QStringList captions;
    for (Command command : PrinterBarCommands()) {
        ids << int(command);
        captions << CommandCaption(command);
    }
    EXPECT_EQ(ids, QList<int>({1004, 1003, 1006, 1005, 1002}));
    EXPECT_EQ(captions,
              QStringList({"Page Setup", "Printer Properties", "Copy", "Delete", "Refresh"}));
}

TEST(ConfigurationCommandsTest, NamesThatWouldLeaveTheFolderOrNameADeviceAreRefused)
{
    const std::pair<NameRefusal, QStringList> names[] = {
        {NameRefusal::None, {"Invoices", "Letter (2)", "Console", "COM10", "a.b"}},
        {NameRefusal::Empty, {"", "   ", "..", " . "}},
        {NameRefusal::Characters, {"../x", "a/b", "a\\b", "C:", "what?", "tab\there"}},
        {NameRefusal::Reserved, {"CON", "nul.pcx", "Lpt1", "com9 .txt"}},
    };
    for (const auto &[refusal, group] : names)
        for (const QString &name : group)
            EXPECT_EQ(CheckConfigurationName(name), refusal) << name.toStdString();
    EXPECT_EQ(CheckConfigurationName(QString(QChar(0)) + QStringLiteral("x")),
              NameRefusal::Characters);
}

TEST(ConfigurationCommandsTest, RenameKeepsTheFolderAndExtension)
{
    EXPECT_EQ(RenameTarget(QStringLiteral("/s/Reports/Letter.pcx"), QStringLiteral("Invoices")),
              "/s/Reports/Invoices.pcx");
    EXPECT_EQ(RenameTarget(QStringLiteral("/s/Reports/Letter.v2.PCX"), QStringLiteral("A")),
              "/s/Reports/A.PCX");
}

TEST(ConfigurationCommandsTest, CopiesGoToTheUserFolderWithoutOverwriting)
{
    QSet<QString> files;
    const auto exists = [&](const QString &path) { return files.contains(path); };
    // A shared configuration becomes the user's of the same name.
    EXPECT_EQ(CopyTarget(QStringLiteral("/s/Letter.pcx"), QStringLiteral("/u"), exists),
              "/u/Letter.pcx");
    EXPECT_EQ(CopyTarget(QStringLiteral("/s/Letter.pcx"), QStringLiteral("/u/"), exists),
              "/u/Letter.pcx");
    // A user configuration, or a shared one already copied, gets numbered copies.
    files = {"/u/Letter.pcx"};
    EXPECT_EQ(CopyTarget(QStringLiteral("/u/Letter.pcx"), QStringLiteral("/u"), exists),
              "/u/Letter - Copy.pcx");
    files << "/u/Letter - Copy.pcx"
          << "/u/Letter - Copy (2).pcx";
    EXPECT_EQ(CopyTarget(QStringLiteral("/s/Letter.pcx"), QStringLiteral("/u"), exists),
              "/u/Letter - Copy (3).pcx");
    EXPECT_EQ(CopyTarget(QString(), QStringLiteral("/u"), exists), QString());
    EXPECT_EQ(CopyTarget(QStringLiteral("/s/Letter.pcx"), QString(), exists), QString());
}

} // namespace
} // namespace bravcpl5
