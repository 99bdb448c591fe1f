// The label product picker of the page setup dialog, over the label templates installed by
// glabels-data: the page setup form built directly on a laser with Letter and A4, its
// "Label Product..." button pressed, and the picker driven by control name.

#include "forms/PageSetupPicture.h"
#include "forms/frmLabelProducts.h"
#include "forms/frmPageSetup.h"
#include "library/ValueRules.h"
#include "printing/PageSetupFields.h"
#include "printing/PageSetupPreview.h"
#include "support/DialogDriver.h"
#include "support/MessageRecorder.h"
#include "support/PaperPrinters.h"
#include "support/RecordingPreviewSurface.h"
#include "support/StoreFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

namespace bravcpl5::test {
namespace {

const QString systemTemplates = QStringLiteral("/usr/share/libglabels-3.0/templates");

// The first product of the installed ones that `wanted` accepts.
const LabelProduct *firstProduct(const std::function<bool(const LabelProduct &)> &wanted)
{
    for (const LabelProduct &p : InstalledLabelProducts().products)
        if (wanted(p))
            return &p;
    return nullptr;
}

double inches(const QString &text) { return values::textToSingle(text).value_or(-1); }

QTreeView *productList(QWidget *picker) { return child<QTreeView>(picker, "lstProducts"); }

// The listed products as "Brand Part".
QStringList listed(QWidget *picker)
{
    const QAbstractItemModel *model = productList(picker)->model();
    QStringList names;
    for (int row = 0; row < model->rowCount(); ++row)
        names << model->index(row, 0).data().toString() + QLatin1Char(' ')
                     + model->index(row, 1).data().toString();
    return names;
}

void search(QWidget *picker, const QString &text)
{
    auto *field = child<QLineEdit>(picker, "txtSearch");
    field->clear();
    QTest::keyClicks(field, text);
}

// Makes the row of `name` current; its index, invalid when it is not listed.
QModelIndex makeCurrent(QWidget *picker, const QString &name)
{
    const int row = int(listed(picker).indexOf(name));
    if (row < 0)
        return {};
    QTreeView *list = productList(picker);
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    list->setCurrentIndex(index);
    return index;
}

void doubleClick(QWidget *picker, const QModelIndex &index)
{
    QTreeView *list = productList(picker);
    const QPoint at = list->visualRect(index).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

bool pickerIsOpen()
{
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window->objectName() == "frmLabelProducts" && window->isVisible())
            return true;
    return false;
}

class LabelProductPicker : public StoreFixture
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QFile::exists(systemTemplates + QStringLiteral("/paper-sizes.xml")))
            << "glabels-data is not installed";
        StoreFixture::SetUp();
        // A laser with Letter and A4 that prints to the sheet's edge, as label sheets need.
        PrinterPaper laser = QuarterInchLaser();
        for (PaperSizeInfo &size : laser.sizes)
            size.unprintableTwips = {};
        auto info = std::make_unique<PaperPrinters>();
        info->add(QStringLiteral("Office"), laser);
        info->defaultName = QStringLiteral("Office");
        printers = info.get();
        SetPrinterInfo(std::move(info));
        SetLabelTemplateFolder(systemTemplates);
        host.writeUserFile(QStringLiteral("Invoice.pcx"),
                           configurationXml("<PaperSize>9</PaperSize><TopMargin>.7</TopMargin>"
                                            "<Gutter>.5</Gutter><MirrorMargins>1</MirrorMargins>"));
    }
    void TearDown() override
    {
        SetLabelTemplateFolder(QString());
        SetPrinterInfo(nullptr);
        StoreFixture::TearDown();
    }

    // The page setup of "Invoice" on `printer`, shown as the user sees it.
    std::unique_ptr<frmPageSetup> open(const QString &printer = QStringLiteral("Office"))
    {
        auto form = std::make_unique<frmPageSetup>();
        EXPECT_TRUE(form->Open(QStringLiteral("Invoice"), printer, store));
        form->show();
        return form;
    }
    // Presses "Label Product..." and runs `action` in the picker once it is up.
    void pick(frmPageSetup &form, std::function<void(QWidget *)> action)
    {
        WhenModal(QStringLiteral("frmLabelProducts"), std::move(action));
        child<QPushButton>(&form, "cmdLabelProduct")->click();
    }
    // Searches `name` in the picker and takes it by OK.
    void choose(frmPageSetup &form, const QString &name)
    {
        pick(form, [&](QWidget *picker) {
            search(picker, name);
            ASSERT_TRUE(makeCurrent(picker, name).isValid()) << name.toStdString();
            child<QPushButton>(picker, "cmdOK")->click();
        });
    }

    PaperPrinters *printers = nullptr;
    MessageRecorder messages;
};

// The search finds products by part, brand and words as the user types; what the page setup
// cannot hold is listed greyed and cannot be chosen.
TEST_F(LabelProductPicker, TheSearchFindsProductsAndGreysThoseThePageSetupCannotHold)
{
    QStringList avery5160AndItsEquivalents{QStringLiteral("Avery 5160")};
    for (const LabelProduct &p : InstalledLabelProducts().products)
        if (p.equivalentOf == "Avery 5160")
            avery5160AndItsEquivalents << p.name();
    ASSERT_GT(avery5160AndItsEquivalents.size(), 1);
    const qsizetype all = InstalledLabelProducts().products.size();
    const LabelProduct *unusable = firstProduct(
        [](const LabelProduct &p) { return !p.notRepresentable.isEmpty(); });
    ASSERT_NE(unusable, nullptr);

    const auto form = open();
    const PageSetup before = form->value();
    pick(*form, [&](QWidget *picker) {
        EXPECT_EQ(listed(picker).size(), all);
        const QString source = child<QLabel>(picker, "lblSource")->text();
        EXPECT_TRUE(source.contains("gLabels' label templates")) << source.toStdString();
        EXPECT_TRUE(source.contains(systemTemplates)) << source.toStdString();

        search(picker, QStringLiteral("5160"));
        const QStringList by5160 = listed(picker);
        for (const QString &name : avery5160AndItsEquivalents)
            EXPECT_TRUE(by5160.contains(name)) << name.toStdString();
        EXPECT_LT(by5160.size(), all);
        EXPECT_TRUE(child<QLabel>(picker, "lblCount")
                        ->text()
                        .startsWith(QStringLiteral("%1 of ").arg(by5160.size())));
        // The product of the typed part number is current, so that Enter takes it.
        const QModelIndex current = productList(picker)->currentIndex();
        EXPECT_EQ(by5160.value(current.row()), "Avery 5160");
        EXPECT_TRUE(child<QPushButton>(picker, "cmdOK")->isEnabled());
        Settle();
        SaveScreenshot(picker, QStringLiteral("label-product-picker-5160"));

        // Words are matched by FilterLabelProducts; a search without a match leaves
        // nothing to choose.
        search(picker, QStringLiteral("no-such-label-sheet"));
        EXPECT_TRUE(listed(picker).isEmpty());
        EXPECT_FALSE(child<QPushButton>(picker, "cmdOK")->isEnabled());

        // A product the page setup cannot hold is greyed with its reason and cannot be chosen.
        search(picker, unusable->name());
        const QModelIndex index = makeCurrent(picker, unusable->name());
        ASSERT_TRUE(index.isValid());
        EXPECT_FALSE(index.flags() & Qt::ItemIsEnabled);
        EXPECT_TRUE(index.data(Qt::ToolTipRole).toString().contains(unusable->notRepresentable));
        EXPECT_FALSE(child<QPushButton>(picker, "cmdOK")->isEnabled());
        doubleClick(picker, index);
        EXPECT_TRUE(pickerIsOpen());
        child<QPushButton>(picker, "cmdCancel")->click();
    });
    EXPECT_TRUE(form->value() == before);
}

// Avery 5160 by OK and by a double click: three columns of 2.625 x 1 in labels on Letter,
// where the product puts them, in the value, the controls and the preview, with the label
// tab on and shown.
TEST_F(LabelProductPicker, ChoosingAvery5160FillsThePaperAndTheLabelSheet)
{
    const std::pair<const char *, std::function<void(QWidget *, const QModelIndex &)>> ways[] = {
        {"OK", [](QWidget *picker,
                  const QModelIndex &) { child<QPushButton>(picker, "cmdOK")->click(); }},
        {"double click", doubleClick},
    };
    for (const auto &[way, take] : ways) {
        const auto form = open();
        auto *tabs = child<QTabWidget>(form.get(), "TabControl1");
        const int labelTab = tabs->indexOf(child<QWidget>(form.get(), "tabLabelLayout"));
        ASSERT_FALSE(tabs->isTabEnabled(labelTab));
        const PageSetup before = form->value();
        pick(*form, [&, take = take](QWidget *picker) {
            search(picker, QStringLiteral("avery 5160"));
            const QModelIndex index = makeCurrent(picker, QStringLiteral("Avery 5160"));
            ASSERT_TRUE(index.isValid());
            take(picker, index);
        });
        EXPECT_FALSE(pickerIsOpen()) << way;

        const PageSetup &value = form->value();
        const struct {
            const char *field;
            QString text;
            double expected;
            double within;
        } lengths[] = {
            {"columns", value.columnsPerSheet, 3, 0},
            {"label width", value.labelWidth, 2.625, 1e-6},
            {"label height", value.labelHeight, 1, 1e-6},
            {"horizontal gap", value.horizontalGap, 0.15625, 1e-6},
            {"vertical gap", value.verticalGap, 0, 1e-6},
            {"left margin", value.leftMargin, 0.15625, 1e-6},
            {"top margin", value.topMargin, 0.5, 1e-6},
            // The labels stand where the product has them: no gutter shifts them.
            {"gutter", value.gutter, 0, 0},
            // What is left beside the labels, less a hair so the sheet fits exactly.
            {"right margin", value.rightMargin, 0.15625, 0.01},
            {"bottom margin", value.bottomMargin, 0.5, 0.01},
            {"paper width", value.paperWidth, 8.5, 1e-6},
            {"paper height", value.paperHeight, 11, 1e-6},
        };
        for (const auto &length : lengths)
            EXPECT_NEAR(inches(length.text), length.expected, length.within)
                << way << " " << length.field << " " << length.text.toStdString();
        EXPECT_EQ(value.paperSize, 1) << way;
        EXPECT_FALSE(value.landscape) << way;
        EXPECT_EQ(value.printDirection, before.printDirection) << way;
        EXPECT_EQ(value.paperSource, before.paperSource) << way;

        // The controls show the value; Letter is the printer's own sheet, its size locked.
        for (const FieldLimits &limits : PageSetupFieldLimits()) {
            const QString name = QStringLiteral("txt") + QString::fromLatin1(limits.name);
            EXPECT_EQ(child<QLineEdit>(form.get(), name.toLatin1())->text(), value.*limits.text)
                << way << " " << limits.name;
        }
        EXPECT_FALSE(child<QCheckBox>(form.get(), "chkMirrorMargins")->isChecked()) << way;
        EXPECT_EQ(child<QComboBox>(form.get(), "cboPaperSize")->currentText(), "Letter") << way;
        EXPECT_FALSE(child<QLineEdit>(form.get(), "txtPaperWidth")->isEnabled()) << way;
        EXPECT_TRUE(tabs->isTabEnabled(labelTab)) << way;
        EXPECT_EQ(tabs->currentIndex(), labelTab) << way;

        // The previews draw the value; the label tab's draws the sheet's 3 x 10 labels.
        PageSetupPreviewInfo labels = PreviewRecord(value);
        for (const char *picture : {"picPreview1", "picPreview2"})
            EXPECT_TRUE(child<PageSetupPicture>(form.get(), picture)->record() == labels)
                << way << " " << picture;
        labels.ShowLabels = true;
        EXPECT_TRUE(child<PageSetupPicture>(form.get(), "picPreview3")->record() == labels) << way;
        RecordingPreviewSurface surface(2880, 3600);
        DrawPageSetupPreview(labels, surface);
        for (const DrawnText &text : surface.texts)
            EXPECT_NE(text.text, "Invalid Settings") << way;
        EXPECT_EQ(std::count_if(surface.rectangles.begin(), surface.rectangles.end(),
                                [](const DrawnRectangle &r) { return r.fill == QColor(0xE0E0E0); }),
                  30)
            << way;
        EXPECT_TRUE(child<QLabel>(form.get(), "lblPrinterWarning")->text().isEmpty())
            << way << " " << child<QLabel>(form.get(), "lblPrinterWarning")->text().toStdString();
        Settle();
        SaveScreenshot(form.get(), QStringLiteral("page-setup-label-product-avery-5160"));
    }
    EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join('\n').toStdString();
}

// The sheet's paper: the printer's sheet of the product's size, whatever its code, else a
// custom size of the product's own, editable.
TEST_F(LabelProductPicker, TheProductsSheetSelectsThePrintersPaperOfItsSizeElseCustom)
{
    const LabelProduct *onA4 = firstProduct(
        [](const LabelProduct &p) { return p.notRepresentable.isEmpty() && p.paperName == "A4"; });
    const LabelProduct *ownSize = firstProduct([](const LabelProduct &p) {
        return p.notRepresentable.isEmpty() && p.paperName.isEmpty() && p.paperInches.width() < 8
               && p.paperInches.height() < 8;
    });
    ASSERT_NE(onA4, nullptr);
    ASSERT_NE(ownSize, nullptr);
    const QSizeF own = ownSize->paperInches;
    // A label printer that offers that sheet under a code of its own.
    PrinterPaper labeler;
    labeler.sizes = {{QStringLiteral("Letter"), 1, 12240, 15840},
                     {QStringLiteral("Label Sheet"), 260, int(std::lround(own.width() * 1440)),
                      int(std::lround(own.height() * 1440))}};
    printers->add(QStringLiteral("Labeler"), labeler);

    const struct {
        const char *printer;
        const LabelProduct *product;
        QString paper;
        int code;
        bool editable;
    } cases[] = {
        {"Office", onA4, "A4", 9, false},
        {"Office", ownSize, "Custom", 256, true},
        // The printer's own sheets keep their size editable, as when chosen by hand.
        {"Labeler", ownSize, "Label Sheet", 260, true},
    };
    for (const auto &c : cases) {
        const auto form = open(QString::fromLatin1(c.printer));
        choose(*form, c.product->name());
        const std::string what = c.printer + (" " + c.product->name().toStdString());
        EXPECT_EQ(form->value().paperSize, c.code) << what;
        EXPECT_EQ(child<QComboBox>(form.get(), "cboPaperSize")->currentText(), c.paper) << what;
        EXPECT_NEAR(inches(child<QLineEdit>(form.get(), "txtPaperWidth")->text()),
                    c.product->paperInches.width(), 0.01)
            << what;
        EXPECT_NEAR(inches(child<QLineEdit>(form.get(), "txtPaperHeight")->text()),
                    c.product->paperInches.height(), 0.01)
            << what;
        EXPECT_EQ(child<QLineEdit>(form.get(), "txtPaperWidth")->isEnabled(), c.editable) << what;
    }
}

TEST_F(LabelProductPicker, LeavingThePickerWithoutChoosingChangesNothing)
{
    for (const auto &[way, leave] : WaysToCancel(QStringLiteral("txtSearch"))) {
        const auto form = open();
        auto *tabs = child<QTabWidget>(form.get(), "TabControl1");
        tabs->setCurrentIndex(1);
        const PageSetup before = form->value();
        pick(*form, [&, leave = leave](QWidget *picker) {
            search(picker, QStringLiteral("5160"));
            leave(picker);
        });
        EXPECT_FALSE(pickerIsOpen()) << way;
        EXPECT_TRUE(form->value() == before) << way;
        EXPECT_FALSE(tabs->isTabEnabled(2)) << way;
        EXPECT_EQ(tabs->currentIndex(), 1) << way;
    }
}

// Without label templates the button stays and says how to get them; nothing else changes.
TEST_F(LabelProductPicker, WithoutTemplatesTheButtonSaysHowToGetThem)
{
    const struct {
        const char *name;
        QByteArray file; // a template file in the folder; none when empty
    } cases[] = {
        {"an empty folder", {}},
        {"a broken template file", "<?xml version=\"1.0\"?><Glabels-templates><Template brand="},
    };
    for (const auto &c : cases) {
        QTemporaryDir folder;
        ASSERT_TRUE(folder.isValid());
        if (!c.file.isEmpty()) {
            QFile file(folder.filePath(QStringLiteral("broken-templates.xml")));
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(c.file);
        }
        SetLabelTemplateFolder(folder.path());
        const qsizetype shown = messages.messages().size();
        const auto form = open();
        const PageSetup before = form->value();
        auto *button = child<QPushButton>(form.get(), "cmdLabelProduct");
        EXPECT_TRUE(button->isEnabled()) << c.name;
        button->click();
        ASSERT_EQ(messages.messages().size(), shown + 1) << c.name;
        EXPECT_EQ(messages.messages().last().icon, QMessageBox::Information) << c.name;
        EXPECT_EQ(messages.texts().mid(shown),
                  QStringList({"No label products are installed. Install the glabels-data "
                               "package (sudo apt install glabels-data) to choose label sheets "
                               "by product."}))
            << c.name;
        EXPECT_FALSE(pickerIsOpen()) << c.name;
        EXPECT_TRUE(form->value() == before) << c.name;
        EXPECT_FALSE(child<QTabWidget>(form.get(), "TabControl1")->isTabEnabled(2)) << c.name;
    }
}

} // namespace
} // namespace bravcpl5::test
