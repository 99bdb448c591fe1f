// Label products as gLabels' installed template files (Debian's glabels-data) describe them,
// what each makes of a page setup, and template files no real program would write.

#include "printing/LabelProducts.h"
#include "library/ValueRules.h"
#include "library/Xml.h"
#include "printing/PageSetupFields.h"
#include "printing/PageSetupPreview.h"
#include "support/RecordingPreviewSurface.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <iostream>

namespace bravcpl5::test {
namespace {

const QString systemFolder = QStringLiteral("/usr/share/libglabels-3.0/templates");

const LabelDatabase &installed()
{
    static const LabelDatabase database = LoadLabelProducts(LabelTemplateFolders());
    return database;
}

const LabelProduct *find(const LabelDatabase &database, const QString &name)
{
    for (const LabelProduct &p : database.products)
        if (p.name() == name)
            return &p;
    return nullptr;
}

float number(const QString &text)
{
    const auto value = values::textToSingle(text);
    EXPECT_TRUE(value) << text.toStdString();
    return value.value_or(-1);
}

// The label tab's preview draws the sheet rather than "Invalid Settings".
bool previewAccepts(const PageSetup &s)
{
    PageSetupPreviewInfo info = PreviewRecord(s);
    info.ShowLabels = true;
    RecordingPreviewSurface surface(3000, 3000);
    DrawPageSetupPreview(info, surface);
    return surface.texts.isEmpty();
}

// The cases that read gLabels' installed files.
class InstalledLabelProducts : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!QFileInfo(systemFolder).isDir())
            GTEST_SKIP() << "glabels-data is not installed (scripts/install-deps)";
    }
};

TEST_F(InstalledLabelProducts, TheWholeInstalledDatabaseLoadsSortedByBrandAndPartNumber)
{
    const LabelDatabase &database = installed();
    EXPECT_TRUE(database.folders.contains(systemFolder));
    EXPECT_GT(database.products.size(), 1400);

    int equivalents = 0;
    for (const LabelProduct &p : database.products)
        equivalents += !p.equivalentOf.isEmpty();
    EXPECT_GT(equivalents, 560);

    const auto indexOf = [&](const QString &name) {
        const LabelProduct *p = find(database, name);
        return p ? p - database.products.constData() : -1;
    };
    const struct {
        const char *before;
        const char *after;
    } order[] = {
        {"Avery 5160", "Avery 15160"},    {"Avery 5160", "Avery 8160"},
        {"Avery 8160", "Avery L7160"},    {"Avery L7160", "Herma 4283"},
        {"Herma 4283", "Zweckform 3477"},
    };
    for (const auto &o : order) {
        SCOPED_TRACE(o.before);
        ASSERT_GE(indexOf(QString::fromLatin1(o.before)), 0);
        EXPECT_LT(indexOf(QString::fromLatin1(o.before)), indexOf(QString::fromLatin1(o.after)));
    }
}

TEST_F(InstalledLabelProducts, KnownProductsMapToTheirSheets)
{
    // Expected lengths in inches; the metric ones are what their files give in points.
    const struct {
        const char *name;
        const char *equivalentOf;
        const char *paperName;
        int paperCode;
        int columns;
        double width, height, hgap, vgap, left, top;
    } cases[] = {
        {"Avery 5160", "", "US Letter", 1, 3, 2.625, 1, 0.15625, 0, 0.15625, 0.5},
        {"Avery 8160", "Avery 5160", "US Letter", 1, 3, 2.625, 1, 0.15625, 0, 0.15625, 0.5},
        {"Avery L7160", "Avery 7160", "A4", 9, 3, 181.4 / 72, 108.0 / 72, 5.8 / 72, 0, 21.2 / 72,
         43.9 / 72},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const LabelProduct *p = find(installed(), QString::fromLatin1(c.name));
        ASSERT_TRUE(p);
        EXPECT_EQ(p->equivalentOf, QString::fromLatin1(c.equivalentOf));
        EXPECT_EQ(p->paperName, QString::fromLatin1(c.paperName));
        PageSetup setup;
        setup.printDirection = 2;
        ASSERT_TRUE(ApplyLabelProduct(*p, setup));
        EXPECT_EQ(setup.paperSize, c.paperCode);
        EXPECT_FALSE(setup.landscape);
        EXPECT_EQ(setup.printDirection, 2); // left as it was
        EXPECT_EQ(setup.columnsPerSheet, QString::number(c.columns));
        const struct {
            const QString &text;
            double expected;
        } lengths[] = {{setup.labelWidth, c.width},
                       {setup.labelHeight, c.height},
                       {setup.horizontalGap, c.hgap},
                       {setup.verticalGap, c.vgap},
                       {setup.leftMargin, c.left},
                       {setup.topMargin, c.top},
                       {setup.gutter, 0}};
        for (const auto &l : lengths)
            EXPECT_NEAR(number(l.text), l.expected, 1e-5) << l.text.toStdString();
    }
    // As the page setup shows them.
    PageSetup avery;
    ASSERT_TRUE(ApplyLabelProduct(*find(installed(), QStringLiteral("Avery 5160")), avery));
    EXPECT_EQ(QStringList({avery.labelWidth, avery.labelHeight, avery.horizontalGap,
                           avery.verticalGap, avery.leftMargin, avery.topMargin}),
              QStringList({"2.625", "1", "0.15625", "0", "0.15625", "0.5"}));
}

TEST_F(InstalledLabelProducts, EverySingleLayoutSheetMapsWithItsLabelsWhereTheProductHasThem)
{
    int mapped = 0;
    for (const LabelProduct &p : installed().products) {
        SCOPED_TRACE(p.name().toStdString());
        PageSetup setup;
        setup.topMargin = QStringLiteral("untouched");
        if (!p.notRepresentable.isEmpty()) {
            EXPECT_FALSE(ApplyLabelProduct(p, setup));
            EXPECT_EQ(setup.topMargin, QStringLiteral("untouched"));
            continue;
        }
        ASSERT_EQ(p.layouts.size(), 1);
        ASSERT_TRUE(ApplyLabelProduct(p, setup));
        ++mapped;
        const LabelLayout &l = p.layouts.first();
        EXPECT_EQ(number(setup.columnsPerSheet), l.nx);
        EXPECT_NEAR(number(setup.paperWidth), p.paperInches.width(), 1e-5);
        EXPECT_NEAR(number(setup.paperHeight), p.paperInches.height(), 1e-5);
        const double stepX = number(setup.labelWidth) + number(setup.horizontalGap);
        const double stepY = number(setup.labelHeight) + number(setup.verticalGap);
        for (int i = 0; i < l.nx; ++i)
            EXPECT_NEAR(number(setup.leftMargin) + i * stepX, l.x0 + i * l.dx, 0.01) << i;
        for (int j = 0; j < l.ny; ++j)
            EXPECT_NEAR(number(setup.topMargin) + j * stepY, l.y0 + j * l.dy, 0.01) << j;
        EXPECT_NEAR(number(setup.labelWidth), p.labelInches.width(), 0.01);
        EXPECT_NEAR(number(setup.labelHeight), p.labelInches.height(), 0.01);
        EXPECT_GE(number(setup.rightMargin), 0);
        EXPECT_GE(number(setup.bottomMargin), 0);
        EXPECT_TRUE(previewAccepts(setup));
    }
    std::cout << mapped << " products map to a page setup\n";
    EXPECT_GT(mapped, 1200);
}

// The fields hold texts in the user's locale, as typed, and the file keeps them so: the
// numbers read back are the product's in every locale.
TEST_F(InstalledLabelProducts, AMappedProductIsSavedAsItsNumbersInEveryLocale)
{
    const LabelProduct *avery = find(installed(), QStringLiteral("Avery 5160"));
    ASSERT_TRUE(avery);
    const QLocale original;
    for (const char *locale : {"C", "de_DE", "ja_JP", "ar_EG"}) {
        SCOPED_TRACE(locale);
        QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
        PageSetup setup;
        ASSERT_TRUE(ApplyLabelProduct(*avery, setup));
        const XmlDocumentPtr document = CreateXmlDocument(QStringLiteral("PrinterConfiguration"));
        AppendChildElement(QStringLiteral("PageSetup"), document->document_element());
        ASSERT_TRUE(setup.write(*document));
        const pugi::xml_node saved = document->document_element().child("PageSetup");
        const auto stored = [&](const char *name) {
            return QString::fromUtf8(saved.child(name).text().get());
        };
        EXPECT_EQ(stored("PaperSize"), QStringLiteral("1"));
        EXPECT_EQ(stored("ColumnsPerSheet"), QStringLiteral("3"));
        const struct {
            const char *element;
            float inches;
        } lengths[] = {{"LabelWidth", 2.625f},      {"LabelHeight", 1},
                       {"HorizontalGap", 0.15625f}, {"VerticalGap", 0},
                       {"LeftMargin", 0.15625f},    {"TopMargin", 0.5f}};
        for (const auto &l : lengths)
            EXPECT_EQ(values::textToSingle(stored(l.element)), l.inches) << l.element;
    }
    QLocale::setDefault(original);
}

TEST_F(InstalledLabelProducts, FilteringFindsEveryWordInBrandPartOrDescription)
{
    const QList<LabelProduct> &products = installed().products;
    const struct {
        const char *search;
        const char *mustFind; // "" for nothing found
    } cases[] = {
        {"5160", "Avery 5160"},    {"avery 5160", "Avery 5160"}, {" AVERY\t 5160\n", "Avery 5160"},
        {"address", "Avery 5160"}, {"herma 4283", "Herma 4283"}, {"l7160", "Avery L7160"},
        {"5160 nosuchword", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.search);
        const QString search = QString::fromLatin1(c.search);
        const QList<qsizetype> found = FilterLabelProducts(products, search);
        QStringList names;
        for (qsizetype i : found) {
            names.append(products[i].name());
            const LabelProduct &p = products[i];
            for (const QString &word : search.simplified().split(u' ', Qt::SkipEmptyParts))
                EXPECT_TRUE((p.brand + u' ' + p.part + u' ' + p.description)
                                .contains(word, Qt::CaseInsensitive))
                    << p.name().toStdString();
        }
        if (*c.mustFind)
            EXPECT_TRUE(names.contains(QString::fromLatin1(c.mustFind)));
        else
            EXPECT_TRUE(found.isEmpty());
    }
    EXPECT_EQ(FilterLabelProducts(products, QString()).size(), products.size());
}

// A folder with the installed paper sizes, one installed template file, and one more file.
LabelDatabase loadBeside(const QByteArray &hostile)
{
    QTemporaryDir dir;
    EXPECT_TRUE(QFile::copy(systemFolder + QStringLiteral("/paper-sizes.xml"),
                            dir.filePath(QStringLiteral("paper-sizes.xml"))));
    EXPECT_TRUE(QFile::copy(systemFolder + QStringLiteral("/avery-us-templates.xml"),
                            dir.filePath(QStringLiteral("avery-us-templates.xml"))));
    QFile file(dir.filePath(QStringLiteral("hostile-templates.xml")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(hostile);
    file.close();
    return LoadLabelProducts({dir.path()});
}

QByteArray templates(const QByteArray &body)
{
    return "<?xml version=\"1.0\"?>\n<Glabels-templates>\n" + body + "\n</Glabels-templates>\n";
}

QByteArray sheet(const QByteArray &part, const QByteArray &size, const QByteArray &label,
                 const QByteArray &layout)
{
    return "<Template brand=\"Hostile\" part=\"" + part + "\" " + size
           + " _description=\"Hostile\"><Label-rectangle " + label + ">" + layout
           + "</Label-rectangle></Template>";
}

TEST_F(InstalledLabelProducts, HostileTemplateFilesAreSkippedAndTheRestLoads)
{
    const QByteArray good = "width=\"1in\" height=\"1in\"";
    const QByteArray layout =
        "<Layout nx=\"2\" ny=\"2\" x0=\"1in\" y0=\"1in\" dx=\"1in\" dy=\"1in\"/>";
    const QByteArray letter = "size=\"US-Letter\"";
    QByteArray binary(4096, '\0');
    for (int i = 0; i < binary.size(); ++i)
        binary[i] = char((i * 7919) % 256);
    const QByteArray real = [] {
        QFile f(systemFolder + QStringLiteral("/avery-iso-templates.xml"));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }();
    const struct {
        const char *name;
        QByteArray text;
        QStringList loaded; // Hostile products expected, the rest are dropped
    } cases[] = {
        {"truncated real file", real.first(real.size() / 2), {}},
        {"binary", binary, {}},
        {"deeply nested",
         templates(QByteArray("<a>").repeated(100000) + QByteArray("</a>").repeated(100000)),
         {}},
        {"not templates", "<Glabels-paper-sizes/>", {}},
        {"huge", templates(QByteArray(17 * 1024 * 1024, ' ')), {}},
        {"equivalent loop",
         templates("<Template brand=\"Hostile\" part=\"A\" equiv=\"B\"/>"
                   "<Template brand=\"Hostile\" part=\"B\" equiv=\"A\"/>"
                   "<Template brand=\"Hostile\" part=\"C\" equiv=\"C\"/>"),
         {}},
        {"equivalent of an unknown product",
         templates("<Template brand=\"Hostile\" part=\"A\" equiv=\"nothing\"/>"),
         {}},
        {"missing attributes",
         templates("<Template part=\"1\" size=\"A4\"/><Template brand=\"Hostile\"/>"
                   + sheet("2", "", good, layout) + sheet("3", letter, "", layout)
                   + sheet("4", letter, good, "") + sheet("5", letter, good, "<Layout/>")
                   + sheet("6", "size=\"Other\"", good, layout)
                   + sheet("ok", letter, good, layout)),
         {"Hostile ok"}},
        {"absurd numbers",
         templates(
             sheet("1", letter, "width=\"-1in\" height=\"1in\"", layout)
             + sheet("2", letter, "width=\"1e308in\" height=\"1in\"", layout)
             + sheet("3", letter, "width=\"nan\" height=\"inf\"", layout)
             + sheet("4", letter, good,
                     "<Layout nx=\"-3\" ny=\"99999999\" x0=\"0\" y0=\"0\" dx=\"0\" dy=\"0\"/>")
             + sheet("5", "size=\"Other\" width=\"1e9mm\" height=\"1mm\"", good, layout)
             + sheet("6", letter, "width=\"3furlongs\" height=\"1in\"", layout)
             + sheet("7", letter, "width=\"10in\" height=\"1in\"",
                     "<Layout nx=\"1\" ny=\"1\" x0=\"1in\" y0=\"1in\"/>")
             + sheet("ok", letter, good, layout)),
         {"Hostile 7", "Hostile ok"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const LabelDatabase database = loadBeside(c.text);
        EXPECT_TRUE(find(database, QStringLiteral("Avery 5160")));
        QStringList hostile;
        for (const LabelProduct &p : database.products)
            if (p.brand == u"Hostile")
                hostile.append(p.name());
        EXPECT_EQ(hostile, c.loaded);
        // Far too wide for the sheet: kept, but not for a page setup.
        if (const LabelProduct *wide = find(database, QStringLiteral("Hostile 7"))) {
            EXPECT_EQ(wide->notRepresentable, QStringLiteral("labels beyond the sheet"));
        }
    }
}

TEST(LabelProducts, LengthsReadInEveryUnitTheFilesUse)
{
    const QHash<QString, QSizeF> papers = {{QStringLiteral("US-Letter"), QSizeF(8.5, 11)}};
    // Each the same inch; a length without a unit is in points.
    for (const char *length : {"1in", "25.4mm", "2.54cm", "72pt", "6pc", "72", " 1in "}) {
        SCOPED_TRACE(length);
        const QByteArray l(length);
        const QList<LabelProduct> products = ParseLabelTemplates(
            templates(sheet("1", "size=\"US-Letter\"", "width=\"" + l + "\" height=\"" + l + "\"",
                            "<Layout nx=\"2\" ny=\"3\" x0=\"" + l + "\" y0=\"" + l + "\" dx=\"" + l
                                + "\" dy=\"" + l + "\"/>")),
            papers);
        ASSERT_EQ(products.size(), 1);
        EXPECT_NEAR(products[0].labelInches.width(), 1, 1e-9);
        EXPECT_NEAR(products[0].labelInches.height(), 1, 1e-9);
        EXPECT_EQ(products[0].layouts, QList<LabelLayout>({{2, 3, 1, 1, 1, 1}}));
        EXPECT_EQ(products[0].paperName, QStringLiteral("US-Letter"));
    }
}

// gLabels' newer files have continuous rolls; the installed package has none yet.
TEST(LabelProducts, ARollIsListedButCannotFillAPageSetup)
{
    const QList<LabelProduct> products = ParseLabelTemplates(
        templates("<Template brand=\"Hostile\" part=\"R\" size=\"roll\" width=\"62mm\">"
                  "<Label-continuous id=\"0\" width=\"62mm\"/></Template>"),
        {});
    ASSERT_EQ(products.size(), 1);
    EXPECT_EQ(products[0].shape, QStringLiteral("continuous"));
    EXPECT_NEAR(products[0].paperInches.width(), 62 / 25.4, 1e-9);
    EXPECT_EQ(products[0].notRepresentable, QStringLiteral("a continuous roll"));
    PageSetup setup;
    EXPECT_FALSE(ApplyLabelProduct(products[0], setup));
    EXPECT_EQ(setup, PageSetup());
}

TEST_F(InstalledLabelProducts, TheUsersOwnTemplatesAreReadBesideTheSystemsAndTheHostsFolderAlone)
{
    const QString userFolder = QStandardPaths::writableLocation(
                                   QStandardPaths::GenericConfigLocation)
                               + QStringLiteral("/libglabels-3.0/templates");
    ASSERT_TRUE(QDir().mkpath(userFolder));
    QFile file(userFolder + QStringLiteral("/Mine_1.template"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<?xml version=\"1.0\"?><Glabels-templates>"
               "<Template brand=\"Avery\" part=\"99160\" equiv=\"5160\" _description=\"Mine\"/>"
               "</Glabels-templates>");
    file.close();

    const QStringList folders = LabelTemplateFolders();
    EXPECT_EQ(folders.mid(0, 2), QStringList({systemFolder, userFolder}));
    const LabelDatabase database = LoadLabelProducts(folders);
    const LabelProduct *mine = find(database, QStringLiteral("Avery 99160"));
    ASSERT_TRUE(mine);
    EXPECT_EQ(mine->description, QStringLiteral("Mine"));
    EXPECT_EQ(mine->layouts, find(database, QStringLiteral("Avery 5160"))->layouts);
    EXPECT_EQ(mine->paperName, QStringLiteral("US Letter"));
    EXPECT_TRUE(QDir(userFolder).removeRecursively());

    EXPECT_EQ(LabelTemplateFolders(QStringLiteral("/host/labels")),
              QStringList({QStringLiteral("/host/labels")}));
}

} // namespace
} // namespace bravcpl5::test
