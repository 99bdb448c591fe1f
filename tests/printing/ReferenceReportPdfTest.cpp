// Where the reference report's pages put what is drawn, seen on the rendered PDF.

#include "printing/ReferenceReport.h"

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

// Renders a PDF page at 72 dpi (one pixel per point).
QImage renderPage(const QString &pdf, int page)
{
    const QString prefix = pdf + QStringLiteral("-page");
    QProcess::execute(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("72"),
                                                   QStringLiteral("-f"), QString::number(page), QStringLiteral("-singlefile"),
                                                   pdf, prefix});
    return QImage(prefix + QStringLiteral(".png"));
}

bool dark(const QImage &image, int x, int y) { return qGray(image.pixel(x, y)) < 64; }

TEST(ReferenceReportPdfTest, ContentAreaSitsInsideMarginsAndGutterOnMirroredPages)
{
    QTemporaryDir folder;
    ReferenceReport report;
    report.setOutputFileName(folder.filePath(QStringLiteral("mirrored.pdf")));
    ReportPageSettings &settings = *report.pageSettings();
    settings.setLeftMargin(1440);     // 72 pt
    settings.setRightMargin(720);     // 36 pt
    settings.setTopMargin(2880);      // 144 pt
    settings.setBottomMargin(1440);
    settings.setGutter(720);          // 36 pt
    settings.setMirrorMargins(true);
    ASSERT_TRUE(report.print([](QPainter &painter, const ReportPageToDraw &page) {
        painter.fillRect(page.content, Qt::black);
        return page.number < 2;
    }));

    const QImage odd = renderPage(report.outputFileName(), 1);
    ASSERT_EQ(odd.size(), QSize(612, 792));
    // Odd page: left margin and gutter (108 pt), right margin 36 pt, top 144 pt.
    EXPECT_FALSE(dark(odd, 105, 400));
    EXPECT_TRUE(dark(odd, 111, 400));
    EXPECT_TRUE(dark(odd, 573, 400));
    EXPECT_FALSE(dark(odd, 579, 400));
    EXPECT_FALSE(dark(odd, 300, 141));
    EXPECT_TRUE(dark(odd, 300, 147));
    // Even page: the sides swap, the gutter moves to the right.
    const QImage even = renderPage(report.outputFileName(), 2);
    EXPECT_FALSE(dark(even, 33, 400));
    EXPECT_TRUE(dark(even, 39, 400));
    EXPECT_TRUE(dark(even, 501, 400));
    EXPECT_FALSE(dark(even, 507, 400));
}

} // namespace
