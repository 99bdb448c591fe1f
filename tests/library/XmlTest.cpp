#include "library/Xml.h"

#include "support/TestHost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace bravcpl5;

namespace {

XmlDocumentPtr load(const char *text) { return LoadXmlText(QString::fromUtf8(text)); }

TEST(Xml, IntegersReadThroughTheValueRules)
{
    const std::pair<const char *, std::int16_t> cases[] = {
        // stored, read with 7 as the default
        {"12.5", 12}, {"13.5", 14}, {"abc", 7},     {"70000", 0},
        {"", 7},      {" -3 ", -3}, {"1,000", 1000}};
    for (const auto &[stored, expected] : cases) {
        auto doc = LoadXmlText(QStringLiteral("<R><V>%1</V></R>").arg(QString::fromUtf8(stored)));
        ASSERT_TRUE(doc);
        EXPECT_EQ(GetXmlInteger(QStringLiteral("//V"), *doc, 7), expected) << '"' << stored << '"';
    }
}

TEST(Xml, ValueReadsTakeTheDefaultWhenNothingIsThere)
{
    auto doc = load("<R><Empty/><Full>x</Full><A b=\"\"/></R>");
    ASSERT_TRUE(doc);
    const QString d = QStringLiteral("dflt");
    EXPECT_EQ(GetXmlValue(QStringLiteral("//Empty"), *doc, d), d);
    EXPECT_EQ(GetXmlValue(QStringLiteral("//Missing"), *doc, d), d);
    EXPECT_EQ(GetXmlValue(QStringLiteral("Full"), doc->document_element(), d), QStringLiteral("x"));
    EXPECT_EQ(GetXmlValue(QStringLiteral("//Full"), pugi::xml_node(), d), d);
    EXPECT_EQ(GetXmlValue(QStringLiteral("//[bad"), *doc, d), d);
    EXPECT_FLOAT_EQ(GetXmlSingle(QStringLiteral("//Empty"), *doc, 0.125f), 0.125f);
    // An attribute that is present but empty reads as empty, not as the default.
    EXPECT_EQ(GetXmlAttribute(doc->document_element().child("A"), QStringLiteral("b"), d),
              QString());
    EXPECT_EQ(GetXmlAttribute(doc->document_element().child("A"), QStringLiteral("c"), d), d);
    // A literally typed escape comes back as a line break.
    EXPECT_EQ(GetXmlValue(QStringLiteral("//T"), *load("<R><T>a&amp;#13;b</T></R>"), QString()),
              QStringLiteral("a\rb"));
}

TEST(Xml, TwoLineValueRoundTripsAndIsSavedEscaped)
{
    auto doc = CreateXmlDocument(QStringLiteral("R"));
    const QString twoLines = QStringLiteral("first\r\nsecond");
    SetXmlValue(QStringLiteral("Text"), twoLines, doc->document_element());
    EXPECT_EQ(GetXmlValue(QStringLiteral("//Text"), *doc, QString()), twoLines);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("t.xml"));
    ASSERT_TRUE(SaveXmlDocument(*doc, path));
    EXPECT_EQ(QString::fromUtf8(test::readFile(path)),
              "<?xml version=\"1.0\"?>\n<R>\n  <Text>first&amp;#13;&amp;#10;second</Text>\n</R>\n");

    auto reloaded = LoadXmlFile(path);
    ASSERT_TRUE(reloaded);
    EXPECT_EQ(GetXmlValue(QStringLiteral("//Text"), *reloaded, QString()), twoLines);
}

TEST(Xml, NodesAreFoundByExactNameAndOnlyTheFirstNamesakeIsWritten)
{
    auto doc = load("<R a=\"1\"><!--c-->text<v/><V>1</V><V id=\"2\">2</V></R>");
    const pugi::xml_node root = doc->document_element();
    EXPECT_EQ(GetXmlAttribute(FindChildNode(root, QStringLiteral("V")), QStringLiteral("id"),
                              QStringLiteral("first")),
              QStringLiteral("first"));
    SetXmlInteger(QStringLiteral("V"), 9, root);
    EXPECT_EQ(NodeText(SelectSingleNode(*doc, QStringLiteral("//V[1]"))), QStringLiteral("9"));
    EXPECT_EQ(NodeText(SelectSingleNode(*doc, QStringLiteral("//V[2]"))), QStringLiteral("2"));

    EXPECT_FALSE(GetChildNode(QStringLiteral("B"), root, false));
    const pugi::xml_node created = GetChildNode(QStringLiteral("B"), root, true);
    EXPECT_EQ(created, root.last_child());
    EXPECT_EQ(GetChildNode(QStringLiteral("B"), root, true), created);
    SetXmlSingle(QStringLiteral("New"), 0.5f, root);
    EXPECT_STREQ(root.last_child().name(), "New");
    EXPECT_STREQ(root.last_child().child_value(), "0.5");

    // Attributes are stored as given.
    SetXmlAttribute(root, QStringLiteral("a"), QStringLiteral("x\ny"));
    SetXmlAttribute(root, QStringLiteral("b"), QStringLiteral("&"));
    EXPECT_EQ(GetXmlAttribute(root, QStringLiteral("a"), {}), QStringLiteral("x\ny"));
    EXPECT_EQ(GetXmlAttribute(root, QStringLiteral("b"), {}), QStringLiteral("&"));
}

// Files that are not settings documents load as nothing, quickly, and never crash.
TEST(Xml, FilesThatAreNotDocumentsLoadAsNothing)
{
    QByteArray binary;
    for (int i = 0; i < 4096; ++i)
        binary.append(char((i * 131) & 0xff));
    const std::tuple<const char *, QByteArray, bool> cases[] = {
        // name, content, parse error
        {"empty.xml", QByteArray(), false},
        {"malformed.xml", "<R><open></R>", true},
        {"text.xml", "just words", true},
        {"binary.xml", binary, true},
        {"huge.xml", QByteArray(50 * 1024 * 1024, 'x'), false}};
    QTemporaryDir dir;
    for (const auto &[name, content, parseError] : cases) {
        const QString path = test::writeFile(dir.filePath(QString::fromLatin1(name)), content);
        // A parse failure sets the error; a file that is never parsed leaves one behind.
        LoadXmlText(parseError ? QStringLiteral("<R/>") : QStringLiteral("<broken"));
        const QString before = LastXmlError();
        EXPECT_FALSE(LoadXmlFile(path)) << name;
        EXPECT_EQ(LastXmlError() != before, parseError) << name;
    }
    EXPECT_FALSE(LoadXmlFile(QStringLiteral("/nonexistent/folder/file.xml")));
    EXPECT_FALSE(LoadXmlFile(QString()));
    EXPECT_FALSE(LoadXmlText(QString()));
}

// Saves as a user whom folder permissions bind. Root is not stopped by them, so under root
// the save runs in a child process that first gives up root; nullopt when it cannot.
std::optional<bool> saveUnprivileged(const pugi::xml_document &doc, const QString &path)
{
    if (geteuid() != 0)
        return SaveXmlDocument(doc, path);
    const pid_t child = fork();
    if (child == 0) {
        if (setgid(65534) != 0 || setuid(65534) != 0)
            _exit(2);
        _exit(SaveXmlDocument(doc, path) ? 0 : 1);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)
        || WEXITSTATUS(status) == 2)
        return std::nullopt;
    return WEXITSTATUS(status) == 0;
}

// A failed save must leave the previous file whole: a read-only folder, the folder gone
// (nothing can be opened) or the disk full part way through.
TEST(Xml, AFailedSaveLeavesThePreviousFile)
{
    for (const char *how : {"read-only folder", "missing folder", "disk full"}) {
        SCOPED_TRACE(how);
        QTemporaryDir dir;
        const QString folder = dir.filePath(QStringLiteral("settings"));
        const QString path = test::writeFile(QDir(folder).filePath(QStringLiteral("a.xml")),
                                             "<old/>");
        auto doc = CreateXmlDocument(QStringLiteral("New"));
        SetXmlValue(QStringLiteral("Big"), QString(200000, QLatin1Char('x')),
                    doc->document_element());
        if (how == std::string_view("read-only folder")) {
            const auto readAndEnter = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup
                                      | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
            QFile::setPermissions(dir.path(), readAndEnter | QFile::WriteOwner);
            QFile::setPermissions(folder, readAndEnter);
            const std::optional<bool> saved = saveUnprivileged(*doc, path);
            QFile::setPermissions(folder, readAndEnter | QFile::WriteOwner);
            if (!saved) {
                ADD_FAILURE() << "could not save as an unprivileged user";
                continue;
            }
            EXPECT_FALSE(*saved);
        } else if (how == std::string_view("disk full")) {
            // A file size limit makes the write fail part way, as a full disk would.
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit old{};
            getrlimit(RLIMIT_FSIZE, &old);
            rlimit small = old;
            small.rlim_cur = 4096;
            setrlimit(RLIMIT_FSIZE, &small);
            EXPECT_FALSE(SaveXmlDocument(*doc, path));
            setrlimit(RLIMIT_FSIZE, &old);
        } else {
            EXPECT_FALSE(
                SaveXmlDocument(*doc, QDir(folder).filePath(QStringLiteral("missing/a.xml"))));
        }
        EXPECT_EQ(test::readFile(path), QByteArray("<old/>"));
        EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList{QStringLiteral("a.xml")})
            << "no temporary file is left behind";
    }
}

// A document that would load as nothing is never saved: the old file stays, and the reason
// is there for the user.
TEST(Xml, ADocumentTooLargeToLoadAgainIsNotSaved)
{
    QTemporaryDir dir;
    const QString path = test::writeFile(dir.filePath(QStringLiteral("Orders.rpx")), "<Report/>");
    const XmlDocumentPtr grown = LoadXmlFile(path);
    ASSERT_TRUE(grown);
    pugi::xml_node report = grown->document_element();
    const std::string label(200, 'x');
    for (int i = 0; i < 90000; ++i) // each element about 220 bytes: past 16 MiB whole
        report.append_child("Field").append_attribute("label") = label.c_str();
    QString why;
    EXPECT_FALSE(SaveXmlDocument(*grown, path, &why));
    EXPECT_EQ(test::readFile(path), "<Report/>");
    EXPECT_TRUE(why.contains(QStringLiteral("16 MiB"))) << why.toStdString();
}

} // namespace
