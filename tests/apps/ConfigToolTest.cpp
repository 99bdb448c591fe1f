// bravcpl5-config run as an administrator runs it: over a temporary settings tree and
// registry file, against the sandboxed cupsd's printers.

#include "support/QtPrinters.h"
#include "support/SandboxCups.h"
#include "support/SmallFileSystem.h"
#include "support/TestHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

struct ToolRun {
    int status = -1;
    QString out, err;
};

// The configurations `list --json` prints, one "name|printer|folder/file|system" each.
QStringList listedRows(const QString &json)
{
    QStringList rows;
    for (const QJsonValue &row :
         QJsonDocument::fromJson(json.toUtf8())["configurations"].toArray()) {
        const QFileInfo file(row["file"].toString());
        rows << row["name"].toString() + "|" + row["printer"].toString() + "|"
                    + file.dir().dirName() + "/" + file.fileName() + "|"
                    + (row["system"].toBool() ? "1" : "0");
    }
    return rows;
}

class ConfigTool : public ::testing::Test
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_CUPSD();
        QDir root(folder.path());
        root.mkpath(QStringLiteral("system"));
        root.mkpath(QStringLiteral("user"));
        write(QStringLiteral("system/Letter.pcx"),
              "<PrinterConfiguration><Identification><System>1</System></Identification>"
              "<PageSetup><PaperSize>1</PaperSize><PaperSource>4</PaperSource><TopMargin>.5</"
              "TopMargin></PageSetup>"
              "</PrinterConfiguration>");
        write(
            QStringLiteral("user/Shipping Labels.pcx"),
            "<PrinterConfiguration><PageSetup><PaperSize>256</PaperSize><PaperWidth>4</PaperWidth>"
            "<PaperHeight>6</PaperHeight></PageSetup></PrinterConfiguration>");
    }

    QString path(const QString &name) const { return QDir(folder.path()).filePath(name); }
    void write(const QString &name, const QByteArray &content)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray registry(const QString &profile = QStringLiteral("Acme"))
    {
        return readFile(registryFile(profile));
    }
    QString registryFile(const QString &profile) const
    {
        return path(profile + QStringLiteral(".ini"));
    }

    // `language` ("de_DE.UTF-8") runs the tool in LANG alone, as a user's session sets it.
    ToolRun run(const QStringList &arguments, const QString &profile = QStringLiteral("Acme"),
                const QString &language = QString())
    {
        QProcess tool;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        if (!language.isEmpty()) {
            environment.remove(QStringLiteral("LC_ALL"));
            environment.remove(QStringLiteral("LC_MESSAGES"));
            environment.insert(QStringLiteral("LANG"), language);
        }
        environment.insert(QStringLiteral("BRAVCPL5_SYSTEM_FOLDER"), path("system"));
        environment.insert(QStringLiteral("BRAVCPL5_USER_FOLDER"), path("user"));
        environment.insert(QStringLiteral("BRAVCPL5_PROFILE"), profile);
        environment.insert(QStringLiteral("BRAVCPL5_REGISTRY"), registryFile(profile));
        for (const auto &[name, value] : std::as_const(extraEnvironment))
            environment.insert(name, value);
        tool.setProcessEnvironment(environment);
        tool.start(QStringLiteral(BRAVCPL5_CONFIG_TOOL), arguments);
        ToolRun result;
        if (!tool.waitForFinished(30000))
            return result;
        result.status = tool.exitCode();
        result.out = QString::fromUtf8(tool.readAllStandardOutput());
        result.err = QString::fromUtf8(tool.readAllStandardError());
        return result;
    }

    // `arguments` run once `file` on `fs` is read-only, or its disk has `roomLeft` bytes left
    // (-1: read-only), fail, say each of `says` and leave every byte of the file.
    void expectWriteFails(SmallFileSystem &fs, const QString &file, qint64 roomLeft,
                          const QStringList &arguments, const QStringList &says)
    {
        const QByteArray before = readFile(file);
        if (roomLeft < 0)
            ASSERT_TRUE(fs.makeReadOnly(file));
        else
            fs.fill(roomLeft);
        const ToolRun result = run(arguments);
        EXPECT_EQ(result.status, 2) << result.out.toStdString();
        for (const QString &words : says)
            EXPECT_TRUE(result.err.contains(words)) << result.err.toStdString();
        EXPECT_EQ(readFile(file), before);
    }

    // An export of `assignments`, written as `name` into the temporary folder.
    QString exportFile(const QString &name, const QJsonObject &assignments)
    {
        const QJsonObject document{{"format", "bravcpl5-printer-assignments"},
                                   {"version", 1},
                                   {"assignments", assignments}};
        write(name, QJsonDocument(document).toJson());
        return path(name);
    }

    // 300 configurations of the user's, and an export that assigns each of them a printer.
    QJsonObject manyConfigurations()
    {
        QJsonObject assignments;
        for (int i = 0; i < 300; ++i) {
            const QString name = QStringLiteral("Config %1").arg(i, 3, 10, QLatin1Char('0'));
            write("user/" + name + ".pcx",
                  "<PrinterConfiguration><PageSetup/></PrinterConfiguration>");
            assignments.insert(name, i % 2 ? "Office-Laser" : "Label-Printer");
        }
        return assignments;
    }

    QTemporaryDir folder;
    QList<std::pair<QString, QString>> extraEnvironment;
};

TEST_F(ConfigTool, AssignmentsAreListedVerifiedAndCarriedToAnotherWorkstation)
{
    ToolRun verify = run({"verify"});
    EXPECT_EQ(verify.status, 1);
    EXPECT_TRUE(verify.out.contains("Letter") && verify.out.contains("Shipping Labels"))
        << verify.out.toStdString();

    EXPECT_EQ(run({"assign", "LETTER", "office-laser"}).status, 0); // names in any case
    EXPECT_EQ(run({"assign", "shipping labels", "Label-Printer"}).status, 0);
    EXPECT_EQ(run({"assign", "--default", "Office-Laser"}).status, 0);
    verify = run({"verify"});
    EXPECT_EQ(verify.status, 0) << verify.out.toStdString();

    const ToolRun list = run({"list", "--json"});
    ASSERT_EQ(list.status, 0);
    EXPECT_EQ(QJsonDocument::fromJson(list.out.toUtf8())["default"].toString(), "Office-Laser");
    EXPECT_EQ(listedRows(list.out),
              QStringList({"Letter|Office-Laser|system/Letter.pcx|1",
                           "Shipping Labels|Label-Printer|user/Shipping Labels.pcx|0"}));

    const ToolRun show = run({"show", "letter"});
    EXPECT_TRUE(show.out.contains("TopMargin: .5 in")) << show.out.toStdString();
    EXPECT_TRUE(show.out.contains("Paper size: Letter (code 1")) << show.out.toStdString();
    EXPECT_TRUE(show.out.contains("Paper source: Manual Feed (code 4)")) << show.out.toStdString();

    // Export here, import on a workstation that has nothing yet: the same assignments.
    const QString exported = path("acme.json");
    EXPECT_EQ(run({"export", exported}).status, 0);
    EXPECT_EQ(run({"import", exported}, "Fresh").status, 0);
    EXPECT_EQ(run({"list", "--json"}, "Fresh").out, list.out);
    EXPECT_EQ(run({"verify"}, "Fresh").status, 0);

    // Without a printer of its own, Letter prints on the default one and is checked there.
    EXPECT_EQ(run({"unassign", "Letter"}).status, 0);
    verify = run({"verify", "Letter"});
    EXPECT_EQ(verify.status, 0) << verify.out.toStdString();
    EXPECT_EQ(verify.out, "Letter\tOffice-Laser\tok\n");
    EXPECT_EQ(run({"assign", "--default", "Real-DYMO-LabelWriter-450"}).status, 0);
    verify = run({"verify", "Letter"});
    EXPECT_EQ(verify.status, 1) << verify.out.toStdString();
    EXPECT_TRUE(verify.out.startsWith("Letter\tReal-DYMO-LabelWriter-450\tpaper-not-offered\t"))
        << verify.out.toStdString();
}

// An import is checked whole before anything is written, and then written in one write:
// one bad entry among 300 changes nothing, nor does a dry run.
TEST_F(ConfigTool, AnImportIsCheckedWholeThenWrittenAtOnce)
{
    QJsonObject good = manyConfigurations();
    good.insert("Letter", "Office-Laser");           // as it is
    good.insert("Shipping Labels", "Label-Printer"); // another printer than now
    ASSERT_EQ(run({"assign", "Letter", "Office-Laser"}).status, 0);
    ASSERT_EQ(run({"assign", "Shipping Labels", "Office-Laser"}).status, 0);
    const QByteArray before = registry();

    QJsonObject unknownPrinter = good;
    unknownPrinter.insert("Config 150", "Plotter");
    QJsonObject unknownConfiguration = good;
    unknownConfiguration.insert("Legal", "Office-Laser");
    const struct {
        const char *name;
        QJsonObject assignments;
        QStringList options;
        int status;
        bool written;
        QStringList says; // on standard output when done, on standard error when refused
    } cases[] = {
        {"unknown printer", unknownPrinter, {}, 2, false, {"no printer named 'Plotter'"}},
        {"unknown configuration",
         unknownConfiguration,
         {},
         2,
         false,
         {"no printer configuration named 'Legal'"}},
        {"dry run",
         good,
         {"--dry-run"},
         0,
         false,
         {"added Config 000 -> Label-Printer\n", "unchanged Letter -> Office-Laser\n",
          "changed Shipping Labels -> Label-Printer\n", "301 of 302 assignments"}},
        {"dry run of a bad one",
         unknownPrinter,
         {"--dry-run"},
         2,
         false,
         {"no printer named 'Plotter'"}},
        {"forced", unknownConfiguration, {"--force"}, 0, true, {"302 changed"}},
        {"all good", good, {}, 0, true, {"302 assignments read", "301 changed"}},
    };
    for (const auto &c : cases) {
        write("Acme.ini", before);
        const QString file = exportFile(QStringLiteral("import.json"), c.assignments);
        const ToolRun result = run(QStringList{"import"} + c.options + QStringList{file});
        EXPECT_EQ(result.status, c.status) << c.name << ": " << result.err.toStdString();
        EXPECT_EQ(registry() != before, c.written) << c.name;
        for (const QString &says : c.says)
            EXPECT_TRUE((c.status ? result.err : result.out).contains(says))
                << c.name << ": " << says.toStdString() << " in\n"
                << (c.status ? result.err : result.out).toStdString();
    }
    // The last import took every entry: nothing is left without a printer.
    EXPECT_EQ(run({"verify"}).status, 0);
}

// A registry that cannot be written (a read-only file, a full disk) is a failure the tool
// says and exits with, and the file keeps every byte.
TEST_F(ConfigTool, AWriteThatFailsSaysSoAndChangesNothing)
{
    const QString many = exportFile(QStringLiteral("many.json"), manyConfigurations());
    const struct {
        const char *name;
        qint64 roomLeft; // -1: read-only
        QStringList arguments;
    } cases[] = {
        {"import into a read-only file", -1, {"import", many}},
        {"assign into a read-only file", -1, {"assign", "Letter", "Label-Printer"}},
        {"unassign in a read-only file", -1, {"unassign", "Letter"}},
        {"import onto a full disk", 2048, {"import", many}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        SmallFileSystem fs(256 * 1024);
        REQUIRE_SMALL_FILE_SYSTEM(fs);
        const QString file = fs.filePath(QStringLiteral("registry.ini"));
        extraEnvironment = {{"BRAVCPL5_REGISTRY", file}};
        ASSERT_EQ(run({"assign", "Letter", "Office-Laser"}).status, 0);
        expectWriteFails(fs, file, c.roomLeft, c.arguments,
                         {"could not be written; nothing changed"});
    }
}

// The tool rewrites its registry file whole, so it takes only a file of its own (or one
// that is new or empty); anything else is refused and keeps every byte unless forced.
TEST_F(ConfigTool, ARegistryFileOfAnyoneElseIsLeftAlone)
{
    QByteArray binary("\x7f"
                      "ELF\x02\x01\x01");
    binary.append(QByteArray(64, '\0')).append("\xff\xfe=x\n");
    const struct {
        const char *name;
        QByteArray content;
        bool ours;
    } cases[] = {
        {"hosts", "127.0.0.1\tlocalhost\n::1\tlocalhost ip6-localhost ip6-loopback\n", false},
        {"binary", binary, false},
        {"value before any group", "Letter=Office-Laser\n", false},
        {"another program's group", "[Desktop Entry]\nName=Editor\n", false},
        {"comment", "; mine\n[Software/Tarnwell]\nLetter=Office-Laser\n", false},
        {"malformed UTF-8", "[Software/Tarnwell]\nLetter=Caf\xe9\n", false},
        {"empty", "", true},
        {"blank lines", "\n\n", true},
        {"ours",
         "[Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]\n"
         "Letter=Office-Laser\n\n[Software/Tarnwell/Lumarest/5.0/Window Positions/]\n"
         "frmPageSetup=1,2,3,4\n",
         true},
        {"ours from an editor", "\xef\xbb\xbf[Software/Tarnwell]\r\n  Letter = Office-Laser\r\n",
         true},
        {"the older flat form",
         "[General]\nSoftware%5CTarnwell%5CLumarest%5C5.0%5CSettings (Acme)%5CPrinter "
         "Configurations%5CLetter=Office-Laser\n",
         true},
    };
    for (const auto &c : cases) {
        write("Acme.ini", c.content);
        const ToolRun result = run({"assign", "Shipping Labels", "Label-Printer"});
        EXPECT_EQ(result.status, c.ours ? 0 : 2) << c.name << ": " << result.err.toStdString();
        if (!c.ours) {
            EXPECT_TRUE(result.err.contains("is not a registry file")) << c.name;
            EXPECT_EQ(registry(), c.content) << c.name;
            EXPECT_EQ(run({"--force", "assign", "Shipping Labels", "Label-Printer"}).status, 0)
                << c.name;
        }
    }
    // A folder is no registry file, forced or not.
    for (const QStringList &options : {QStringList(), QStringList{"--force"}})
        EXPECT_EQ(run(options + QStringList{"--registry", path("user"), "list"}).status, 2);
}

// A request that names what is not there, is malformed, or cannot be carried out is refused
// with a word on what is wrong (after the usage when no command is given), and nothing
// changed.
TEST_F(ConfigTool, ARefusedRequestSaysWhyAndChangesNothing)
{
    ASSERT_EQ(run({"assign", "Letter", "Office-Laser"}).status, 0);
    const QByteArray before = registry();
    write("malformed.json", "{ not json");
    write("foreign.json", R"({"format": "something else", "version": 1, "assignments": {}})");
    write("halfbad.json", R"({"format": "bravcpl5-printer-assignments", "version": 1,
                              "assignments": {"Letter": "Label-Printer", "Shipping Labels": ""}})");
    const QString missing = path("no/such/folder");
    const QString noConfiguration = "there is no printer configuration named 'Legal'";
    const QString noPrinter = "there is no printer named 'Plotter' on this computer";
    const struct {
        QStringList arguments;
        QList<std::pair<QString, QString>> environment;
        int status;
        QString says; // on standard output when done, on standard error when refused
    } cases[] = {
        {{}, {}, 2, "Exit status:\n  0  done\n  1  verify found"},
        {{}, {}, 2, "import [--dry-run] FILE"},
        {{"--help"}, {}, 0, "2  refused or failed"},
        {{"assign", "Legal", "Office-Laser"}, {}, 2, noConfiguration},
        {{"assign", "Letter", "Plotter"}, {}, 2, noPrinter},
        {{"assign", "--default", "Plotter"}, {}, 2, noPrinter},
        {{"unassign", "Legal"}, {}, 2, noConfiguration},
        {{"show", "Legal"}, {}, 2, noConfiguration},
        {{"verify", "Legal"}, {}, 2, noConfiguration},
        {{"verify", "Letter", "Legal"}, {}, 2, "'verify' takes 0 to 1 argument(s); see --help"},
        {{"--no-state", "list"}, {}, 2, "--no-state is for verify only"},
        {{"import", path("missing.json")}, {}, 2, "missing.json' cannot be read"},
        {{"import", path("malformed.json")}, {}, 2, "is not an export of bravcpl5-config"},
        {{"import", path("foreign.json")}, {}, 2, "is not an export of bravcpl5-config"},
        // One bad entry: none is taken.
        {{"import", path("halfbad.json")}, {}, 2, "an assignment without a name or printer"},
        {{"export", path("no/such/folder/x.json")}, {}, 2, "x.json' could not be written"},
        {{"assign", "Letter"}, {}, 2, "'assign' takes 2 argument(s); see --help"},
        {{"launch"}, {}, 2, "unknown command 'launch'; see --help"},
        {{"--system", missing, "list"}, {}, 2, "the folder '" + missing + "' does not exist"},
        {{"--user", missing, "verify"}, {}, 2, "does not exist"},
        {{"--user", path("Acme.ini"), "verify"}, {}, 2, "does not exist"}, // a file
        {{"printers"}, {{"BRAVCPL5_SYSTEM_FOLDER", missing}}, 2, "does not exist"},
        {{"assign", "Letter", "Label-Printer"},
         {{"BRAVCPL5_USER_FOLDER", missing}},
         2,
         "does not exist"},
        {{"unassign", "Shipping Labels"}, {}, 2, "has no printer of its own; nothing changed"},
        {{"--dry-run", "assign", "Letter", "Label-Printer"}, {}, 2, "for import only"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.arguments.join(' ').toStdString());
        extraEnvironment = c.environment;
        const ToolRun result = run(c.arguments);
        EXPECT_EQ(result.status, c.status);
        const QString &said = c.status ? result.err : result.out;
        EXPECT_TRUE(said.contains(c.says)) << said.toStdString();
        if (c.status && !c.arguments.isEmpty()) {
            EXPECT_TRUE(said.startsWith("bravcpl5-config: ")) << said.toStdString();
        }
        EXPECT_EQ(registry(), before);
    }
}

// Rename, copy and delete refuse what the printer configurations dialog refuses, with its
// words, exit 2 and nothing changed; what they do is whole, printer assignment included.
TEST_F(ConfigTool, RenameCopyAndDeleteFollowTheDialogsRules)
{
    write("user/Invoice.pcx", "<PrinterConfiguration><PageSetup/></PrinterConfiguration>");
    write("system/Legal.pcx", "<PrinterConfiguration><Identification><System>1</System>"
                              "</Identification><PageSetup/></PrinterConfiguration>");
    for (const char *name : {"Letter", "Shipping Labels", "Legal"})
        ASSERT_EQ(run({"assign", name, "Label-Printer"}).status, 0) << name;

    const struct {
        QStringList arguments;
        const char *says;
    } refused[] = {
        {{"rename", "Shipping Labels", "a/b"}, "cannot contain any of these characters"},
        {{"rename", "Shipping Labels", "lpt1"}, "reserved by the system"},
        {{"rename", "Shipping Labels", " . "}, "must have a name"},
        {{"rename", "Shipping Labels", "Invoice"}, "becuase a printer configuration with the name"},
        {{"rename", "Missing", "Other"}, "no printer configuration named 'Missing'"},
        {{"copy", "Invoice"}, "has no printer of its own"},
        {{"delete", "Legal"}, "cannot be deleted"},   // shared
        {{"delete", "Invoice"}, "cannot be deleted"}, // no printer of its own
        {{"rename", "Letter"}, "takes 2 argument(s)"},
    };
    const QStringList before = QDir(path("user")).entryList(QDir::Files)
                               + QDir(path("system")).entryList(QDir::Files);
    const QByteArray assignments = registry();
    for (const auto &c : refused) {
        const ToolRun result = run(c.arguments);
        EXPECT_EQ(result.status, 2) << c.arguments.join(' ').toStdString();
        EXPECT_TRUE(result.err.contains(QString::fromUtf8(c.says)))
            << c.arguments.join(' ').toStdString() << ": " << result.err.toStdString();
    }
    EXPECT_EQ(QDir(path("user")).entryList(QDir::Files)
                  + QDir(path("system")).entryList(QDir::Files),
              before);
    EXPECT_EQ(registry(), assignments);

    EXPECT_EQ(run({"rename", "shipping labels", "Shipping"}).status, 0);
    EXPECT_EQ(run({"copy", "Letter"}).status, 0); // the shared one becomes the user's own
    EXPECT_EQ(run({"copy", "Shipping"}).status, 0);
    EXPECT_EQ(run({"delete", "Shipping"}).status, 0);
    EXPECT_EQ(listedRows(run({"list", "--json"}).out),
              QStringList({"Legal|Label-Printer|system/Legal.pcx|1",
                           "Letter|Label-Printer|user/Letter.pcx|0", "Invoice||user/Invoice.pcx|0",
                           "Shipping - Copy|Label-Printer|user/Shipping - Copy.pcx|0"}));
}

// verify checks each configuration against what its printer (the sandbox's queues made from
// real PPDs, and a stopped and a rejecting one) really offers, one line or JSON object per
// finding, and exits 1 while there is any.
TEST_F(ConfigTool, VerifyChecksEachConfigurationAgainstItsPrinter)
{
    const QStringList stateKinds = {"printer-stopped", "printer-not-accepting",
                                    "printer-attention"};
    const struct {
        const char *name;
        QByteArray pageSetup;
        const char *printer;
        QStringList kinds;
    } cases[] = {
        {"Letter on a label printer",
         "<PaperSize>1</PaperSize>",
         "Real-DYMO-LabelWriter-450",
         {"paper-not-offered"}},
        {"Envelope feeder on a DYMO",
         "<PaperSource>5</PaperSource>",
         "Real-DYMO-LabelWriter-450",
         {"bin-not-offered"}},
        {"Envelope feeder on a Brother",
         "<PaperSize>9</PaperSize><PaperSource>5</PaperSource>",
         "Real-Brother-HL-2600CN",
         {"bin-not-offered"}},
        {"Margins of 0.05 in",
         "<PaperSize>1</PaperSize><TopMargin>.05</TopMargin><BottomMargin>.05</BottomMargin>"
         "<LeftMargin>.05</LeftMargin><RightMargin>.05</RightMargin>",
         "Real-HP-LaserJet-4250",
         {"margins-outside-printable-area"}},
        {"Three 3 in labels across Letter",
         "<PaperSize>1</PaperSize><ColumnsPerSheet>3</ColumnsPerSheet><LabelWidth>3</LabelWidth>"
         "<LabelHeight>1</LabelHeight><HorizontalGap>.125</HorizontalGap>",
         "Real-HP-LaserJet-4250",
         {"labels-do-not-fit"}},
        {"On a stopped printer", "<PaperSize>1</PaperSize>", "Stopped-Laser", {"printer-stopped"}},
        {"On a rejecting printer",
         "<PaperSize>1</PaperSize>",
         "Rejecting-Laser",
         {"printer-not-accepting"}},
        {"Matching",
         "<PaperSize>1</PaperSize><PaperSource>7</PaperSource>",
         "Real-HP-LaserJet-4250",
         {}},
        {"Without a printer", "<PaperSize>1</PaperSize>", nullptr, {"no-printer"}},
    };
    QFile::remove(path("system/Letter.pcx"));
    QFile::remove(path("user/Shipping Labels.pcx"));
    QJsonObject assignments;
    for (const auto &c : cases) {
        write(QStringLiteral("user/%1.pcx").arg(c.name), "<PrinterConfiguration><PageSetup>"
                                                             + c.pageSetup
                                                             + "</PageSetup>"
                                                               "</PrinterConfiguration>");
        if (c.printer)
            assignments.insert(c.name, c.printer);
    }
    ASSERT_EQ(run({"import", exportFile("assignments.json", assignments)}).status, 0);

    const ToolRun all = run({"verify"});
    EXPECT_EQ(all.status, 1);
    for (const auto &c : cases) {
        const QString printer = c.printer ? c.printer : "-";
        for (const QString &kind : c.kinds.isEmpty() ? QStringList{"ok"} : c.kinds)
            EXPECT_TRUE(all.out.contains(QStringLiteral("%1\t%2\t%3").arg(c.name, printer, kind)))
                << c.name << ": " << kind.toStdString() << " in\n"
                << all.out.toStdString();
    }
    for (const bool withState : {true, false}) {
        for (const auto &c : cases) {
            QStringList expected = c.kinds;
            if (!withState)
                expected.removeIf([&](const QString &kind) { return stateKinds.contains(kind); });
            const ToolRun one = run(withState
                                        ? QStringList{"verify", "--json", c.name}
                                        : QStringList{"verify", "--json", "--no-state", c.name});
            EXPECT_EQ(one.status, expected.isEmpty() ? 0 : 1) << c.name << ": " << withState;
            const QJsonArray rows = QJsonDocument::fromJson(one.out.toUtf8()).array();
            ASSERT_EQ(rows.size(), 1) << c.name << ": " << one.out.toStdString();
            const QJsonObject row = rows[0].toObject();
            EXPECT_EQ(row["configuration"].toString(), c.name);
            EXPECT_EQ(row["printer"].toString(), c.printer ? c.printer : "");
            QStringList kinds;
            for (const QJsonValue &finding : row["findings"].toArray()) {
                kinds << finding["kind"].toString();
                EXPECT_FALSE(finding["message"].toString().isEmpty()) << c.name;
            }
            EXPECT_EQ(kinds, expected)
                << c.name << " (state " << withState << "): " << one.out.toStdString();
        }
    }

    // The one that matches its printer is the only one left: verify is content.
    for (const auto &c : cases) {
        if (!c.kinds.isEmpty())
            QFile::remove(path(QStringLiteral("user/%1.pcx").arg(c.name)));
    }
    const ToolRun matching = run({"verify"});
    EXPECT_EQ(matching.status, 0) << matching.out.toStdString();
    EXPECT_EQ(matching.out, "Matching\tReal-HP-LaserJet-4250\tok\n");
}

// The library's log, switched on as Qt's users switch it on, names a malformed file and
// where in it the parser stopped.
TEST_F(ConfigTool, TheLogNamesAMalformedConfigurationAndWhereItBreaks)
{
    write("system/Broken.pcx", "<PrinterConfiguration>\n  <PageSetup>\n    <TopMargin>1</Top>\n");
    extraEnvironment = {{"QT_LOGGING_RULES", "bravcpl5.*=true"}};
    const ToolRun show = run({"show", "Broken"});
    EXPECT_EQ(show.status, 2);
    EXPECT_TRUE(show.err.contains("bravcpl5.xml: ignoring " + path("system/Broken.pcx")))
        << show.err.toStdString();
    EXPECT_TRUE(show.err.contains("line 3, column")) << show.err.toStdString();
}

// A PPD with German translations lists its bins in German under a German LANG, with the
// same codes; a PPD written in German only is German in any language.
TEST_F(ConfigTool, PrinterBinsInTheUsersLanguageWithTheSameCodes)
{
    const struct {
        const char *language;
        const char *printer;
        QStringList bins;
    } cases[] = {
        {"de_DE.UTF-8",
         "Real-HP-LaserJet-4250",
         {"bin  7\tAutomatisch", "bin  256\tZufuhrfach 1", "bin  5\tUmschlagzuführung",
          "bin  4\tZufuhrfach 1 (Manuell)"}},
        {"C",
         "Real-HP-LaserJet-4250",
         {"bin  7\tAutomatic", "bin  256\tTray 1", "bin  5\tEnvelope Feeder",
          "bin  4\tTray 1 (Manual)"}},
        {"en_US.UTF-8",
         "Real-Kyocera-FS-1000-de",
         {"bin  256\tKassette 1 (Intern)", "bin  258\tMehrzweckzufuhr",
          "bin  4\tPapierzufuhr Handeinzug"}},
    };
    for (const auto &c : cases) {
        const ToolRun printers = run({QStringLiteral("printers")}, QStringLiteral("Acme"),
                                     QString::fromUtf8(c.language));
        ASSERT_EQ(printers.status, 0) << printers.err.toStdString();
        const qsizetype start = printers.out.indexOf(QString::fromUtf8(c.printer) + u'\n');
        if (start < 0)
            GTEST_SKIP() << c.printer << " not in the sandbox (driver package missing)";
        const QString section = printers.out.mid(start).section(QStringLiteral("\nReal-"), 0, 0);
        for (const QString &bin : c.bins)
            EXPECT_TRUE(section.contains(bin)) << c.language << ": " << bin.toStdString() << " in\n"
                                               << section.toStdString();
    }
}

// The label products come from gLabels' template files as Debian's glabels-data installs
// them; the tool is run over them as a dealer would.
constexpr auto labelTemplates = "/usr/share/libglabels-3.0/templates";

#define SKIP_WITHOUT_LABEL_TEMPLATES()                                                             \
    if (!QFileInfo(QString::fromLatin1(labelTemplates)).isDir())                                   \
    GTEST_SKIP() << "glabels-data is not installed"

// The number `show` prints after "Field: " (lengths without their " in").
double shown(const QString &show, const QString &field)
{
    const QString line =
        show.section(u'\n' + field + QStringLiteral(": "), 1, 1).section(u'\n', 0, 0);
    bool ok = false;
    const double value = line.section(u' ', 0, 0).toDouble(&ok);
    return ok ? value : qQNaN();
}

class LabelTool : public ConfigTool
{
protected:
    void SetUp() override
    {
        ConfigTool::SetUp();
        SKIP_WITHOUT_LABEL_TEMPLATES();
        // A label configuration fed by hand from the manual slot, printed down then across.
        write(QStringLiteral("system/Product Labels.pcx"),
              "<PrinterConfiguration><Identification><System>1</System></Identification>"
              "<PageSetup><PaperSize>5</PaperSize><PaperSource>4</PaperSource>"
              "<TopMargin>1</TopMargin><BottomMargin>1</BottomMargin><LeftMargin>1</LeftMargin>"
              "<RightMargin>1</RightMargin><Gutter>0</Gutter><Orientation>0</Orientation>"
              "<ColumnsPerSheet>1</ColumnsPerSheet><PrintDirection>1</PrintDirection>"
              "<HorizontalGap>0</HorizontalGap><VerticalGap>0</VerticalGap>"
              "<LabelWidth>4</LabelWidth><LabelHeight>1</LabelHeight></PageSetup>"
              "</PrinterConfiguration>");
    }
    QByteArray configurationBytes()
    {
        return readFile(path(QStringLiteral("system/Product Labels.pcx")));
    }
    // The products of `labels --json TEXT`.
    QList<QJsonObject> products(const QString &text = QString())
    {
        const ToolRun labels = run({"labels", "--json", text});
        EXPECT_EQ(labels.status, 0) << labels.err.toStdString();
        QList<QJsonObject> found;
        for (const QJsonValue &product : QJsonDocument::fromJson(labels.out.toUtf8()).array())
            found << product.toObject();
        return found;
    }
};

TEST_F(LabelTool, ProductsAreFoundByBrandPartOrDescription)
{
    const struct {
        QStringList arguments;
        const char *line; // one of the lines, whole
    } cases[] = {
        {{"labels", "5160"}, "Avery 5160\tAddress Labels\tUS Letter\t3 x 10 of 2.625 x 1 in\n"},
        // Declared equivalent: the geometry of the product it names.
        {{"labels", "avery 5260"},
         "Avery 5260\tAddress Labels\tUS Letter\t3 x 10 of 2.625 x 1 in\n"},
    };
    for (const auto &c : cases) {
        const ToolRun labels = run(c.arguments);
        const QString line = QString::fromUtf8(c.line);
        EXPECT_EQ(labels.status, 0) << c.arguments.join(' ').toStdString();
        EXPECT_TRUE(labels.out.startsWith(line) || labels.out.contains(u'\n' + line))
            << c.arguments.join(' ').toStdString() << ":\n"
            << labels.out.toStdString();
    }

    const QList<QJsonObject> avery5160 = products(QStringLiteral("avery 5160"));
    ASSERT_FALSE(avery5160.isEmpty());
    QJsonObject product;
    for (const QJsonObject &p : avery5160) {
        EXPECT_EQ(p.value("brand").toString(), "Avery");
        EXPECT_TRUE(p.value("part").toString().contains("5160"))
            << p.value("part").toString().toStdString();
        if (p.value("name").toString() == "Avery 5160")
            product = p;
    }
    EXPECT_TRUE(product.value("categories").toArray().contains(QJsonValue("mail")));
    const QJsonObject expected{
        {"description", "Address Labels"},
        {"shape", "rectangle"},
        {"labelWidth", 2.625},
        {"labelHeight", 1},
        {"paperWidth", 8.5},
        {"paperHeight", 11},
        {"notRepresentable", ""},
        {"layouts",
         QJsonArray({QJsonObject{
             {"nx", 3}, {"ny", 10}, {"x0", 0.15625}, {"y0", 0.5}, {"dx", 2.78125}, {"dy", 1}}})}};
    for (auto field = expected.begin(); field != expected.end(); ++field)
        EXPECT_EQ(product.value(field.key()), field.value()) << field.key().toStdString();
}

TEST_F(LabelTool, SetLabelWritesTheProductsSheetAndShowShowsIt)
{
    ASSERT_EQ(run({"assign", "Product Labels", "Office-Laser"}).status, 0);
    const ToolRun set = run({"set-label", "product labels", "avery 5160"});
    ASSERT_EQ(set.status, 0) << set.err.toStdString();
    EXPECT_EQ(set.out, "Product Labels: Avery 5160 (Address Labels), 3 x 10 of 2.625 x 1 in on "
                       "US Letter\n");
    const ToolRun show = run({"show", "Product Labels"});
    ASSERT_EQ(show.status, 0) << show.err.toStdString();
    const struct {
        const char *field;
        double value;
    } fields[] = {
        {"ColumnsPerSheet", 3},     {"LabelWidth", 2.625}, {"LabelHeight", 1},
        {"HorizontalGap", 0.15625}, {"VerticalGap", 0},    {"LeftMargin", 0.15625},
        {"TopMargin", 0.5},
    };
    for (const auto &f : fields)
        EXPECT_EQ(shown(show.out, QString::fromLatin1(f.field)), f.value) << f.field << " in\n"
                                                                          << show.out.toStdString();
    // The labels fit the sheet, across and down: the right and bottom margins are what is left.
    EXPECT_LE(3 * 2.625 + 2 * 0.15625 + 0.15625 + shown(show.out, "RightMargin"), 8.5);
    EXPECT_LE(0.5 + 10 + shown(show.out, "BottomMargin"), 11);
    EXPECT_TRUE(show.out.contains("\nPaper size: Letter (code 1")) << show.out.toStdString();
    EXPECT_TRUE(show.out.contains("\nOrientation: portrait\n")) << show.out.toStdString();
    // What the product does not say stays as it was.
    EXPECT_TRUE(show.out.contains("\nPaper source: Manual Feed (code 4)"))
        << show.out.toStdString();
    EXPECT_TRUE(configurationBytes().contains("<PrintDirection>1</PrintDirection>"));
}

TEST_F(LabelTool, ARefusedProductChangesNothing)
{
    // A product of the installed files that a page setup cannot hold (several layouts).
    QString notRepresentable;
    for (const QJsonObject &product : products()) {
        if (!product.value("notRepresentable").toString().isEmpty()) {
            notRepresentable = product.value("name").toString();
            break;
        }
    }
    ASSERT_FALSE(notRepresentable.isEmpty());
    const QTemporaryDir empty;
    const QByteArray before = configurationBytes();
    const struct {
        const char *name;
        QStringList arguments;
        const char *says;
    } cases[] = {
        {"unknown product",
         {"set-label", "Product Labels", "Avery 99999"},
         "there is no label product named 'Avery 99999'"},
        {"part without brand",
         {"set-label", "Product Labels", "5160"},
         "there is no label product named '5160'"},
        {"unknown configuration",
         {"set-label", "Legal", "Avery 5160"},
         "there is no printer configuration named 'Legal'"},
        {"not representable",
         {"set-label", "Product Labels", notRepresentable},
         "cannot be held by a page setup"},
        {"no templates",
         {"--templates", empty.path(), "set-label", "Product Labels", "Avery 5160"},
         "install gLabels' templates (the package glabels-data"},
        {"no templates to list",
         {"--templates", empty.path(), "labels", "5160"},
         "install gLabels' templates (the package glabels-data"},
        {"missing argument", {"set-label", "Product Labels"}, "takes 2 argument(s)"},
    };
    for (const auto &c : cases) {
        const ToolRun result = run(c.arguments);
        EXPECT_EQ(result.status, 2) << c.name;
        EXPECT_EQ(result.out, QString()) << c.name;
        EXPECT_TRUE(result.err.contains(QLatin1String(c.says)))
            << c.name << ": " << result.err.toStdString();
        EXPECT_EQ(configurationBytes(), before) << c.name;
    }
}

// A configuration file that cannot be written (read-only, a full disk) fails the command,
// which says so, and the file keeps every byte.
TEST_F(LabelTool, ASaveThatFailsSaysSoAndChangesNothing)
{
    for (const bool readOnly : {true, false}) {
        SCOPED_TRACE(readOnly ? "read-only" : "full disk");
        SmallFileSystem fs(256 * 1024);
        REQUIRE_SMALL_FILE_SYSTEM(fs);
        QDir().mkpath(fs.filePath(QStringLiteral("system")));
        const QString file = fs.filePath(QStringLiteral("system/Product Labels.pcx"));
        ASSERT_TRUE(QFile::copy(path(QStringLiteral("system/Product Labels.pcx")), file));
        extraEnvironment = {{"BRAVCPL5_SYSTEM_FOLDER", fs.filePath(QStringLiteral("system"))}};
        expectWriteFails(fs, file, readOnly ? -1 : 0, {"set-label", "Product Labels", "Avery 5160"},
                         {"could not be written", "nothing changed"});
    }
}

} // namespace
} // namespace bravcpl5::test
