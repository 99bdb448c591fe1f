// The sample host's label sheet printed on a configuration set from a label product of
// gLabels' installed templates: the PDF it writes puts every label where the product's
// sheet has it, on every row of the sheet. The PDF is rendered by poppler (pdftoppm) and
// the outlines are found in its pixels.

#include "DealerReports.h"
#include "ReportOutput.h"
#include "SampleHost.h"

#include "library/Library.h"
#include "library/RegistryFile.h"
#include "printing/LabelProducts.h"
#include "printing/PageSetup.h"
#include "printing/PrinterConfigurations.h"
#include "support/PaperPrinters.h"
#include "support/StoreFixture.h"
#include "support/TestHost.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

constexpr auto labelTemplates = "/usr/share/libglabels-3.0/templates";
constexpr double pixelsPerPoint = 2; // pages rendered at 144 dpi
constexpr double pointsPerInch = 72;

// The first page of `pdf` in grey levels.
QImage renderFirstPage(const QString &pdf)
{
    const QString prefix = pdf + QStringLiteral("-page");
    QProcess::execute(QStringLiteral("pdftoppm"),
                      {QStringLiteral("-gray"), QStringLiteral("-r"),
                       QString::number(pixelsPerPoint * 72), QStringLiteral("-f"),
                       QStringLiteral("1"), QStringLiteral("-singlefile"), pdf, prefix});
    return QImage(prefix + QStringLiteral(".pgm")).convertToFormat(QImage::Format_Grayscale8);
}

int ink(const QImage &page, int x, int y) { return 255 - qGray(page.pixel(x, y)); }

// Where a line drawn across the run of pixels from `from` to `to` (points, along x when
// `alongX`, at `at` on the other axis) lies: the middle of its ink; NaN when there is none.
double lineBetween(const QImage &page, bool alongX, double at, double from, double to)
{
    const int fixed = int(at * pixelsPerPoint);
    double weight = 0, sum = 0;
    for (int p = int(std::floor(from * pixelsPerPoint)); p <= int(std::ceil(to * pixelsPerPoint));
         ++p) {
        const int x = alongX ? p : fixed, y = alongX ? fixed : p;
        if (!page.valid(x, y) || ink(page, x, y) < 16)
            continue;
        weight += ink(page, x, y);
        sum += ink(page, x, y) * (p + 0.5);
    }
    return weight > 0 ? sum / weight / pixelsPerPoint : qQNaN();
}

// The product's own label rectangles, in points from the sheet's top left corner.
QList<QRectF> productLabels(const LabelProduct &product)
{
    const LabelLayout &l = product.layouts.first();
    QList<QRectF> labels;
    for (int row = 0; row < l.ny; ++row)
        for (int column = 0; column < l.nx; ++column)
            labels.append(QRectF((l.x0 + column * l.dx) * pointsPerInch,
                                 (l.y0 + row * l.dy) * pointsPerInch,
                                 product.labelInches.width() * pointsPerInch,
                                 product.labelInches.height() * pointsPerInch));
    return labels;
}

class LabelSheetPdf : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!QFileInfo(QString::fromLatin1(labelTemplates)).isDir())
            GTEST_SKIP() << "glabels-data is not installed";
        products =
            LoadLabelProducts(LabelTemplateFolders(QString::fromLatin1(labelTemplates))).products;
        previousRegistry = RegistryFile();
        SetRegistryFile(QDir(data.path()).filePath(QStringLiteral("registry.ini")));
        // A laser that cannot reach the outer quarter inch: the sheet's labels print where
        // they are all the same.
        auto printers = std::make_unique<PaperPrinters>();
        printers->add(QStringLiteral("Laser"), QuarterInchLaser());
        printers->defaultName = QStringLiteral("Laser");
        SetPrinterInfo(std::move(printers));
        writeFile(QDir(data.path()).filePath(QStringLiteral("System/Reports/Product Labels.pcx")),
                  configurationXml("<PaperSize>1</PaperSize><PaperSource>7</PaperSource>"
                                   "<PrintDirection>0</PrintDirection>",
                                   1));
        host = std::make_unique<SampleHost>(data.path());
        library.Initialize(host.get());
        library.printerConfigurations()->assignPrinter(QStringLiteral("Product Labels"),
                                                       QStringLiteral("Laser"));
    }
    void TearDown() override
    {
        if (!host)
            return;
        library.PreTerminate();
        host.reset();
        SetPrinterInfo(nullptr);
        SetRegistryFile(previousRegistry);
    }

    const LabelProduct *product(const QString &name) const
    {
        for (const LabelProduct &p : products)
            if (p.name() == name)
                return &p;
        return nullptr;
    }

    // The product's sheet in the label configuration, through the store.
    bool setProduct(const LabelProduct &product)
    {
        PrinterConfigurations &store = *library.printerConfigurations();
        PageSetupChoices asStored;
        asStored.storedCodes = true;
        PageSetup setup;
        return store.readPageSetup(QStringLiteral("Product Labels"), asStored, PaperDefaults(),
                                   setup)
               && ApplyLabelProduct(product, setup)
               && store.savePageSetup(QStringLiteral("Product Labels"), setup);
    }

    QImage labelSheet(const QString &name, bool outlines)
    {
        const DealerReport labels = DealerReports(data.path()).last();
        EXPECT_EQ(labels.kind, DealerReport::Kind::Labels);
        const QString pdf = QDir(data.path()).filePath(name + QStringLiteral(".pdf"));
        EXPECT_TRUE(WriteReportPdf({&library, host.get(), nullptr}, labels, pdf, outlines));
        return renderFirstPage(pdf);
    }

    QTemporaryDir data;
    QString previousRegistry;
    QList<LabelProduct> products;
    std::unique_ptr<SampleHost> host;
    Library library;
};

TEST_F(LabelSheetPdf, EveryLabelPrintsWhereTheProductHasIt)
{
    // Letter and A4 sheets, labels touching and apart, an equivalent product.
    for (const char *name : {"Avery 5160", "Avery 5163", "Avery L7160", "Avery 5167"}) {
        SCOPED_TRACE(name);
        const LabelProduct *p = product(QString::fromLatin1(name));
        ASSERT_TRUE(p && p->notRepresentable.isEmpty());
        ASSERT_TRUE(setProduct(*p));
        const QList<QRectF> labels = productLabels(*p);

        // The die cuts, as the preview prints them: each within half a point of the
        // product's label. The outline is looked for a little either side of where it
        // should be, short of the next label and of the label's text.
        const QImage outlined = labelSheet(QString::fromLatin1(name), true);
        ASSERT_FALSE(outlined.isNull());
        EXPECT_NEAR(outlined.width() / pixelsPerPoint, p->paperInches.width() * pointsPerInch, 1);
        EXPECT_NEAR(outlined.height() / pixelsPerPoint, p->paperInches.height() * pointsPerInch, 1);
        const LabelLayout &l = p->layouts.first();
        const auto reach = [](double gap) { return gap > 0.05 ? qMin(3.0, gap * 72 / 3) : 3.0; };
        const double across = reach(l.dx - p->labelInches.width());
        const double down = reach(l.dy - p->labelInches.height());
        const double corner = 5.5; // past the rounded corner, short of the text
        for (int i = 0; i < labels.size(); ++i) {
            const QRectF &r = labels[i];
            const double middle = r.center().y(), nearLeft = r.left() + corner;
            const struct {
                const char *edge;
                double expected, found;
            } edges[] = {
                {"left", r.left(),
                 lineBetween(outlined, true, middle, r.left() - across, r.left() + across)},
                {"right", r.right(),
                 lineBetween(outlined, true, middle, r.right() - across, r.right() + across)},
                {"top", r.top(),
                 lineBetween(outlined, false, nearLeft, r.top() - down, r.top() + down)},
                {"bottom", r.bottom(),
                 lineBetween(outlined, false, nearLeft, r.bottom() - down, r.bottom() + down)},
            };
            for (const auto &e : edges)
                EXPECT_NEAR(e.found, e.expected, 0.5)
                    << "label " << i << " (row " << i / l.nx << ", column " << i % l.nx << "), "
                    << e.edge << " edge";
        }

        // What is printed without the die cuts: something in every label, nothing beside
        // them.
        const QImage printed = labelSheet(QString::fromLatin1(name) + "-printed", false);
        ASSERT_FALSE(printed.isNull());
        QList<int> inkIn(labels.size(), 0);
        int outside = 0;
        for (int y = 0; y < printed.height(); ++y)
            for (int x = 0; x < printed.width(); ++x) {
                if (ink(printed, x, y) < 128)
                    continue;
                const QPointF at(x / pixelsPerPoint, y / pixelsPerPoint);
                bool inside = false;
                for (int i = 0; i < labels.size(); ++i)
                    if (labels[i].adjusted(-0.5, -0.5, 0.5, 0.5).contains(at)) {
                        ++inkIn[i];
                        inside = true;
                    }
                outside += inside ? 0 : 1;
            }
        EXPECT_EQ(outside, 0);
        for (int i = 0; i < labels.size(); ++i)
            EXPECT_GT(inkIn[i], 0) << "label " << i << " (row " << i / l.nx << ") is empty";
    }
}

} // namespace
} // namespace bravcpl5::test
