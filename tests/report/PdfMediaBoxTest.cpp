#include "report/PdfMediaBox.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

// Page dictionaries as Qt's PDF writer writes them, and files no writer should produce.
TEST(SetExactMediaBoxTest, PutsTheExactSizeBackWithoutMovingAnything)
{
    const struct {
        const char *name;
        QByteArray before;
        QSizeF points;
        bool result;
        QByteArray after;
    } cases[] = {
        {"A4 gets its fractions",
         "<<\n/MediaBox [0 0 595.000000 842.000000]\n>>",
         {595.275634765625, 841.889770507812},
         true,
         "<<\n/MediaBox [0 0 595.275635 841.889771]\n>>"},
        {"every page",
         "/MediaBox [0 0 154.000000 63.000000]/MediaBox [0 0 154.000000 63.000000]",
         {153.6, 63.12},
         true,
         "/MediaBox [0 0 153.600000 63.120000]/MediaBox [0 0 153.600000 63.120000]"},
        {"rounded up a digit: padded",
         "/MediaBox [0 0 100.000000 64.000000]",
         {99.6, 63.6},
         true,
         "/MediaBox [0 0 99.600000 63.600000 ]"},
        {"whole points stay",
         "/MediaBox [0 0 612.000000 792.000000]",
         {612, 792},
         true,
         "/MediaBox [0 0 612.000000 792.000000]"},
        {"short numbers keep what fits",
         "/MediaBox [0 0 595 842]",
         {595.28, 841.89},
         true,
         "/MediaBox [0 0 595 842]"},
        {"another page's size is left alone",
         "/MediaBox [0 0 842.000000 1191.000000]",
         {595.28, 841.89},
         false,
         "/MediaBox [0 0 842.000000 1191.000000]"},
        {"cut off", "/MediaBox [0 0 595.0", {595.28, 841.89}, false, "/MediaBox [0 0 595.0"},
        {"not numbers",
         "/MediaBox [0 0 abc def]",
         {595.28, 841.89},
         false,
         "/MediaBox [0 0 abc def]"},
        {"three numbers",
         "/MediaBox [0 0 595 842 7]",
         {595.28, 841.89},
         false,
         "/MediaBox [0 0 595 842 7]"},
        {"no box", "%PDF-1.4\n%%EOF", {595.28, 841.89}, false, "%PDF-1.4\n%%EOF"},
        {"empty", "", {595.28, 841.89}, false, ""},
    };
    for (const auto &c : cases) {
        QTemporaryDir folder;
        const QString pdf = folder.filePath(QStringLiteral("page.pdf"));
        QFile file(pdf);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(c.before);
        file.close();
        EXPECT_EQ(SetExactMediaBox(pdf, c.points), c.result) << c.name;
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), c.after) << c.name;
    }
    EXPECT_FALSE(SetExactMediaBox(QStringLiteral("/nonexistent/page.pdf"), {595, 842}));
}

} // namespace
