#include "library/Xml.h"

#include "support/TestHost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <csignal>
#include <unistd.h>

using namespace bravcpl5;

namespace {

XmlDocumentPtr load(const char *text) { return LoadXmlText(QString::fromUtf8(text)); }

TEST(Xml, CreatedDocumentHasDeclarationAndRoot)
{
    auto doc = CreateXmlDocument(QStringLiteral("PrinterConfiguration"));
    ASSERT_TRUE(doc);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.pcx"));
    ASSERT_TRUE(SaveXmlDocument(*doc, path));
    EXPECT_EQ(test::readFile(path), QByteArray("<?xml version=\"1.0\"?>\n<PrinterConfiguration />\n"));
}

struct IntegerCase {
    const char *stored;
    std::int16_t defaultValue;
    std::int16_t expected;
};

void PrintTo(const IntegerCase &c, std::ostream *os) { *os << '"' << c.stored << '"'; }

class XmlIntegerTest : public ::testing::TestWithParam<IntegerCase> {};

TEST_P(XmlIntegerTest, ReadsThroughTheValueRules)
{
    const IntegerCase &c = GetParam();
    auto doc = LoadXmlText(QStringLiteral("<R><V>%1</V></R>").arg(QString::fromUtf8(c.stored)));
    ASSERT_TRUE(doc);
    EXPECT_EQ(GetXmlInteger(QStringLiteral("//V"), *doc, c.defaultValue), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Table, XmlIntegerTest, ::testing::Values(
    IntegerCase{"12.5", 7, 12}, IntegerCase{"13.5", 7, 14}, IntegerCase{"abc", 7, 7},
    IntegerCase{"70000", 7, 0}, IntegerCase{"", 7, 7}, IntegerCase{" -3 ", 7, -3},
    IntegerCase{"1,000", 7, 1000}));

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
    EXPECT_EQ(GetXmlAttribute(doc->document_element().child("A"), QStringLiteral("b"), d), QString());
    EXPECT_EQ(GetXmlAttribute(doc->document_element().child("A"), QStringLiteral("c"), d), d);
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
    const QByteArray saved = test::readFile(path);
    EXPECT_TRUE(saved.contains("first&amp;#13;&amp;#10;second")) << saved.constData();
    EXPECT_FALSE(saved.contains('\r'));

    auto reloaded = LoadXmlFile(path);
    ASSERT_TRUE(reloaded);
    EXPECT_EQ(GetXmlValue(QStringLiteral("//Text"), *reloaded, QString()), twoLines);
}

TEST(Xml, LiterallyTypedEscapeComesBackAsALineBreak)
{
    auto doc = load("<R><T>a&amp;#13;b</T></R>");
    EXPECT_EQ(GetXmlValue(QStringLiteral("//T"), *doc, QString()), QStringLiteral("a\rb"));
}

TEST(Xml, WritesTouchOnlyTheFirstNamesake)
{
    auto doc = load("<R><V>1</V><V>2</V></R>");
    SetXmlInteger(QStringLiteral("V"), 9, doc->document_element());
    EXPECT_STREQ(doc->document_element().first_child().child_value(), "9");
    EXPECT_STREQ(doc->document_element().last_child().child_value(), "2");

    SetXmlSingle(QStringLiteral("New"), 0.5f, doc->document_element());
    EXPECT_STREQ(doc->document_element().last_child().name(), "New");
    EXPECT_STREQ(doc->document_element().last_child().child_value(), "0.5");
}

TEST(Xml, ChildLookupIsByExactElementName)
{
    auto doc = load("<R><!--c-->text<a/><A/><A id=\"2\"/></R>");
    const pugi::xml_node root = doc->document_element();
    EXPECT_EQ(GetXmlAttribute(FindChildNode(root, QStringLiteral("A")), QStringLiteral("id"), QStringLiteral("first")),
              QStringLiteral("first"));
    EXPECT_FALSE(GetChildNode(QStringLiteral("B"), root, false));
    const pugi::xml_node created = GetChildNode(QStringLiteral("B"), root, true);
    EXPECT_EQ(created, root.last_child());
    EXPECT_EQ(GetChildNode(QStringLiteral("B"), root, true), created);
}

TEST(Xml, AttributesAreStoredAsGiven)
{
    auto doc = load("<R a=\"1\"/>");
    SetXmlAttribute(doc->document_element(), QStringLiteral("a"), QStringLiteral("x\ny"));
    SetXmlAttribute(doc->document_element(), QStringLiteral("b"), QStringLiteral("&"));
    EXPECT_EQ(GetXmlAttribute(doc->document_element(), QStringLiteral("a"), {}), QStringLiteral("x\ny"));
    EXPECT_EQ(GetXmlAttribute(doc->document_element(), QStringLiteral("b"), {}), QStringLiteral("&"));
}

// Files that are not settings documents load as nothing, quickly, and never crash.
struct BadFileCase {
    const char *name;
    QByteArray content;
    bool parseError;
};

void PrintTo(const BadFileCase &c, std::ostream *os) { *os << c.name; }

class XmlBadFileTest : public ::testing::TestWithParam<BadFileCase> {};

TEST_P(XmlBadFileTest, LoadsAsNothing)
{
    const BadFileCase &c = GetParam();
    QTemporaryDir dir;
    const QString path = test::writeFile(dir.filePath(QString::fromLatin1(c.name)), c.content);
    LoadXmlText(QStringLiteral("<broken")); // leaves an error behind
    const QString before = LastXmlError();
    EXPECT_FALSE(LoadXmlFile(path));
    if (c.parseError) {
        EXPECT_FALSE(LastXmlError().isEmpty());
    } else {
        EXPECT_EQ(LastXmlError(), before) << "a file that was never parsed leaves the error alone";
    }
}

QByteArray binary()
{
    QByteArray bytes;
    for (int i = 0; i < 4096; ++i)
        bytes.append(char((i * 131) & 0xff));
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(Table, XmlBadFileTest, ::testing::Values(
    BadFileCase{"empty.xml", QByteArray(), false},
    BadFileCase{"malformed.xml", "<R><open></R>", true},
    BadFileCase{"text.xml", "just words", true},
    BadFileCase{"binary.xml", binary(), true},
    BadFileCase{"huge.xml", QByteArray(50 * 1024 * 1024, 'x'), false}));

TEST(Xml, MissingFileLoadsAsNothing)
{
    EXPECT_FALSE(LoadXmlFile(QStringLiteral("/nonexistent/folder/file.xml")));
    EXPECT_FALSE(LoadXmlFile(QString()));
    EXPECT_FALSE(LoadXmlText(QString()));
}

// A failed save must leave the previous file whole.
class XmlFailedSaveTest : public ::testing::TestWithParam<const char *> {};

TEST_P(XmlFailedSaveTest, LeavesThePreviousFile)
{
    const std::string how = GetParam();
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("settings"));
    const QString path = test::writeFile(QDir(folder).filePath(QStringLiteral("a.xml")), "<old/>");

    auto doc = CreateXmlDocument(QStringLiteral("New"));
    SetXmlValue(QStringLiteral("Big"), QString(200000, QLatin1Char('x')), doc->document_element());

    bool saved = true;
    if (how == "read-only folder") {
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
        if (QFile probe(QDir(folder).filePath(QStringLiteral("probe"))); probe.open(QIODevice::WriteOnly)) {
            probe.remove();
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            GTEST_SKIP() << "folder permissions do not bind this user (root)";
        }
        saved = SaveXmlDocument(*doc, path);
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    } else if (how == "disk full") {
        // A file size limit makes the write fail part way, as a full disk would.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit old{};
        getrlimit(RLIMIT_FSIZE, &old);
        rlimit small = old;
        small.rlim_cur = 4096;
        setrlimit(RLIMIT_FSIZE, &small);
        saved = SaveXmlDocument(*doc, path);
        setrlimit(RLIMIT_FSIZE, &old);
    } else {
        saved = SaveXmlDocument(*doc, QDir(folder).filePath(QStringLiteral("missing/a.xml")));
    }
    EXPECT_FALSE(saved);
    EXPECT_EQ(test::readFile(path), QByteArray("<old/>"));
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList{QStringLiteral("a.xml")})
        << "no temporary file is left behind";
}

INSTANTIATE_TEST_SUITE_P(Table, XmlFailedSaveTest,
                         ::testing::Values("read-only folder", "disk full", "missing folder"));

} // namespace
