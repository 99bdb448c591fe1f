// The page setup dialog through PrinterConfigurations.ShowPageSetup, driven by control
// name against the sandboxed cupsd's queues: which printer it opens on, the paper lists,
// spinners and keys, the previews, and what OK, Cancel and the close box leave in the file.
// Opening refusals use a printer information without printers or without a default.

#include "forms/PageSetupPicture.h"
#include "forms/frmPageSetup.h"
#include "library/Xml.h"
#include "printers/PrinterInfo.h"
#include "printing/PageSetupFields.h"
#include "printing/PageSetupPreview.h"
#include "printing/PrinterConfigurations.h"
#include "support/DialogDriver.h"
#include "support/ListedPrinters.h"
#include "support/MessageRecorder.h"
#include "support/PaperPrinters.h"
#include "support/RecordingPreviewSurface.h"
#include "support/SandboxCups.h"
#include "support/StoreFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>

namespace bravcpl5::test {
namespace {

// The entries of a list as "text code".
QStringList entries(const QComboBox *list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->itemText(i) + QLatin1Char(' ') + list->itemData(i).toString();
    return texts;
}
QStringList entries(const QListWidget *list)
{
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts << list->item(row)->text() + QLatin1Char(' ')
                     + list->item(row)->data(Qt::UserRole).toString();
    return texts;
}

void choose(QComboBox *list, const QString &text)
{
    const int index = list->findText(text);
    ASSERT_GE(index, 0) << text.toStdString();
    list->setCurrentIndex(index);
}

void clickOk(QWidget *dialog) { child<QPushButton>(dialog, "cmdOK")->click(); }

class PageSetupDialog : public StoreFixture
{
protected:
    void SetUp() override
    {
        StoreFixture::SetUp();
        SetPrinterInfo(nullptr); // the system's, over the sandboxed cupsd
    }
    void TearDown() override
    {
        SetPrinterInfo(nullptr);
        StoreFixture::TearDown();
    }

    QString configure(const QByteArray &pageSetup = {})
    {
        return host.writeUserFile(QStringLiteral("Invoice.pcx"), configurationXml(pageSetup));
    }
    bool run(const QString &printer, std::function<void(QWidget *)> action,
             std::function<void(QWidget *)> close = clickOk)
    {
        WhenModal(QStringLiteral("frmPageSetup"), [&](QWidget *dialog) {
            action(dialog);
            close(dialog);
        });
        return store->ShowPageSetup(QStringLiteral("Invoice"), printer);
    }
    // The child elements of the saved "PageSetup", as "name=text".
    QStringList saved(const QString &path)
    {
        QStringList texts;
        const XmlDocumentPtr xml = LoadXmlFile(path);
        if (!xml)
            return {QStringLiteral("<no file>")};
        for (pugi::xml_node element :
             SelectSingleNode(*xml, QStringLiteral("//PageSetup")).node().children())
            texts << QString::fromUtf8(element.name()) + QLatin1Char('=')
                         + QString::fromUtf8(element.text().get());
        return texts;
    }

    MessageRecorder messages;
};

class SandboxPageSetupDialog : public PageSetupDialog
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_CUPSD();
        PageSetupDialog::SetUp();
    }
};

TEST_F(SandboxPageSetupDialog, AGivenPrinterIsFoundInAnyCaseWithItsOwnSizesAndBins)
{
    configure();
    run(QStringLiteral("label-PRINTER"), [&](QWidget *d) {
        EXPECT_EQ(d->windowTitle(), "Page Setup");
        // Its sizes already have codes of 256 and up: no "Custom".
        EXPECT_EQ(entries(child<QComboBox>(d, "cboPaperSize")),
                  QStringList({"Shipping Label 4 x 6 in 256", "Address Label 2.25 x 1.25 in 257",
                               "Barcode Label 3 x 1 in 258"}));
        EXPECT_EQ(entries(child<QListWidget>(d, "lstPaperSource")),
                  QStringList({"Front Roll 256", "Rear Roll 257"}));
        // The default paper is the printer's own, a custom size: its fields are editable.
        EXPECT_EQ(child<QComboBox>(d, "cboPaperSize")->currentData().toInt(), 256);
        EXPECT_TRUE(child<QLineEdit>(d, "txtPaperWidth")->isEnabled());
        EXPECT_EQ(entries(child<QComboBox>(d, "cboPrintDirection")),
                  QStringList({"Across, then down 0", "Down, then across 1"}));
        const auto *tabs = child<QTabWidget>(d, "TabControl1");
        EXPECT_EQ(tabs->count(), 3);
        EXPECT_EQ(tabs->tabText(2), "Label Layout");
        EXPECT_FALSE(tabs->isTabEnabled(2));
        EXPECT_TRUE(tabs->isTabVisible(2));
    });
    EXPECT_TRUE(messages.texts().isEmpty());
}

TEST_F(SandboxPageSetupDialog, AnUnknownPrinterIsNamedAndTheDefaultPrinterUsed)
{
    configure();
    run(QStringLiteral("Plotter"), [&](QWidget *d) {
        EXPECT_EQ(entries(child<QComboBox>(d, "cboPaperSize")),
                  QStringList({"Letter 1", "Legal 5", "A4 9", "Executive 7", "Envelope #10 20",
                               "Custom 256"}));
        EXPECT_EQ(entries(child<QListWidget>(d, "lstPaperSource")),
                  QStringList({"Upper Tray 1", "Lower Tray 2", "Manual Feed 4", "Envelope Feeder 5",
                               "Automatically Select 7"}));
    });
    ASSERT_EQ(messages.messages().size(), 1);
    EXPECT_EQ(messages.messages()[0].text,
              "The printer 'Plotter' is invalid. The default printer will be used.");
    EXPECT_EQ(messages.messages()[0].icon, QMessageBox::Warning);
}

TEST_F(SandboxPageSetupDialog, AStandardPaperShowsItsSizeAndLocksItsFields)
{
    configure("<PaperSize>9</PaperSize><PaperWidth>3</PaperWidth><PaperHeight>4</PaperHeight>");
    run(QStringLiteral("Office-Laser"), [&](QWidget *d) {
        auto *paper = child<QComboBox>(d, "cboPaperSize");
        auto *width = child<QLineEdit>(d, "txtPaperWidth");
        auto *height = child<QLineEdit>(d, "txtPaperHeight");
        // The stored A4 shows A4's size, not the stored numbers.
        EXPECT_EQ(paper->currentText(), "A4");
        EXPECT_EQ(width->text(), "8.264");
        EXPECT_EQ(height->text(), "11.694");
        choose(paper, QStringLiteral("Letter"));
        EXPECT_EQ(width->text(), "8.5");
        EXPECT_EQ(height->text(), "11");
        for (const char *name : {"lblPaperWidth", "txtPaperWidth", "udPaperWidth", "lblPaperHeight",
                                 "txtPaperHeight", "udPaperHeight"})
            EXPECT_FALSE(child<QWidget>(d, name)->isEnabled()) << name;
        choose(paper, QStringLiteral("Custom"));
        EXPECT_EQ(width->text(), "8.5"); // kept, now editable
        for (const char *name : {"lblPaperWidth", "txtPaperWidth", "udPaperWidth", "lblPaperHeight",
                                 "txtPaperHeight", "udPaperHeight"})
            EXPECT_TRUE(child<QWidget>(d, name)->isEnabled()) << name;
        width->setText(QStringLiteral("5.5"));
    });
    const QStringList stored = saved(host.userFolder() + QStringLiteral("/Invoice.pcx"));
    EXPECT_TRUE(stored.contains("PaperSize=256")) << stored.join(' ').toStdString();
    EXPECT_TRUE(stored.contains("PaperWidth=5.5"));
    EXPECT_TRUE(stored.contains("PaperHeight=11"));
}

TEST_F(SandboxPageSetupDialog, SpinnersKeysAndTheWheelStepTheirField)
{
    configure("<TopMargin>63.95</TopMargin><BottomMargin>0.6</BottomMargin>");
    run(QStringLiteral("Office-Laser"), [&](QWidget *d) {
        const auto step = [&](const char *spinner, const char *slot) {
            ASSERT_TRUE(QMetaObject::invokeMethod(child<QWidget>(d, spinner), slot));
        };
        step("udTopMargin", "stepUp");
        EXPECT_EQ(child<QLineEdit>(d, "txtTopMargin")->text(), "64");
        child<QLineEdit>(d, "txtLeftMargin")->clear();
        step("udLeftMargin", "stepUp");
        EXPECT_EQ(child<QLineEdit>(d, "txtLeftMargin")->text(), "0.1");
        step("udColumnsPerSheet", "stepDown");
        EXPECT_EQ(child<QLineEdit>(d, "txtColumnsPerSheet")->text(), "1");
        QTest::keyClick(child<QLineEdit>(d, "txtBottomMargin"), Qt::Key_Up);
        EXPECT_EQ(child<QLineEdit>(d, "txtBottomMargin")->text(), "0.7");
        QTest::keyClick(child<QLineEdit>(d, "txtBottomMargin"), Qt::Key_Down);
        EXPECT_EQ(child<QLineEdit>(d, "txtBottomMargin")->text(), "0.6");
        auto *right = child<QLineEdit>(d, "txtRightMargin");
        QWheelEvent wheel(QPointF(5, 5), right->mapToGlobal(QPointF(5, 5)), QPoint(),
                          QPoint(0, 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(right, &wheel);
        EXPECT_EQ(right->text(), "1.1");
    });
}

TEST_F(SandboxPageSetupDialog, OkStoresWhatIsTypedAndKeepsTheLabelSheet)
{
    const QString file = configure(
        "<LabelWidth>2.625</LabelWidth><ColumnsPerSheet>3</ColumnsPerSheet>"
        "<PrintDirection>1</PrintDirection>");
    EXPECT_TRUE(run(QStringLiteral("Office-Laser"), [&](QWidget *d) {
        child<QLineEdit>(d, "txtTopMargin")
            ->setText(QStringLiteral("100")); // beyond the spinner's 64
        child<QRadioButton>(d, "optLandscape")->click();
        child<QListWidget>(d, "lstPaperSource")->setCurrentRow(3);
    }));
    // Every element in the order it is written; the label sheet as it was read.
    EXPECT_EQ(saved(file),
              QStringList({"LabelWidth=2.625", "ColumnsPerSheet=3", "PrintDirection=1",
                           "TopMargin=100", "BottomMargin=1", "LeftMargin=1", "RightMargin=1",
                           "Gutter=0", "MirrorMargins=0", "Orientation=1", "PaperSize=1",
                           "PaperWidth=8.5", "PaperHeight=11", "PaperSource=5",
                           "HorizontalGap=0.125", "VerticalGap=0", "LabelHeight=1"}));
}

TEST_F(SandboxPageSetupDialog, LeavingWithoutOkLeavesTheFileByteForByte)
{
    const QString file = configure("<TopMargin>.5</TopMargin>");
    QFile original(file);
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray before = original.readAll();
    for (const auto &[way, leave] : WaysToCancel(QStringLiteral("txtTopMargin"))) {
        EXPECT_FALSE(run(
            QStringLiteral("Office-Laser"),
            [&](QWidget *d) { child<QLineEdit>(d, "txtTopMargin")->setText(QStringLiteral("2")); },
            leave))
            << way;
        QFile after(file);
        ASSERT_TRUE(after.open(QIODevice::ReadOnly));
        EXPECT_EQ(after.readAll(), before) << way;
    }
}

TEST_F(SandboxPageSetupDialog, PreviewsFollowTheFieldsAndTurnForLandscape)
{
    configure("<PaperSize>1</PaperSize>");
    run(QStringLiteral("Office-Laser"), [&](QWidget *d) {
        auto *tabs = child<QTabWidget>(d, "TabControl1");
        const auto record = [&](const char *picture) {
            return child<PageSetupPicture>(d, picture)->record();
        };
        EXPECT_EQ(record("picPreview1").PaperWidth, 12240);
        EXPECT_EQ(record("picPreview1").LeftMargin, 1440);
        EXPECT_TRUE(record("picPreview1") == record("picPreview2"));
        EXPECT_TRUE(record("picPreview1") == record("picPreview3"));
        SaveScreenshot(d, QStringLiteral("page-setup-margins-portrait"));

        child<QRadioButton>(d, "optLandscape")->click();
        EXPECT_EQ(record("picPreview1").PaperWidth, 15840);
        EXPECT_EQ(record("picPreview1").PaperHeight, 12240);
        EXPECT_EQ(child<QWidget>(d, "picLandscape")->palette().color(QPalette::Window),
                  QColor(0xE7E2C9));
        EXPECT_EQ(child<QWidget>(d, "picPortrait")->palette().color(QPalette::Window),
                  QColor(0xF5F5F5));
        Settle();
        SaveScreenshot(d, QStringLiteral("page-setup-margins-landscape"));

        child<QLineEdit>(d, "txtTopMargin")->setText(QStringLiteral("64"));
        RecordingPreviewSurface surface(2880, 3600);
        DrawPageSetupPreview(record("picPreview1"), surface);
        QStringList texts;
        for (const DrawnText &text : surface.texts)
            texts << text.text;
        EXPECT_TRUE(texts.contains("Invalid Settings")) << texts.join('|').toStdString();
        Settle();
        SaveScreenshot(d, QStringLiteral("page-setup-margins-invalid"));

        child<QLineEdit>(d, "txtTopMargin")->setText(QStringLiteral("1"));
        child<QRadioButton>(d, "optPortrait")->click();
        tabs->setCurrentIndex(1);
        choose(child<QComboBox>(d, "cboPaperSize"), QStringLiteral("Custom"));
        child<QLineEdit>(d, "txtPaperWidth")->setText(QStringLiteral("4"));
        child<QLineEdit>(d, "txtPaperHeight")->setText(QStringLiteral("6"));
        EXPECT_EQ(record("picPreview2").PaperWidth, 5760);
        Settle();
        SaveScreenshot(d, QStringLiteral("page-setup-paper-custom"));
        tabs->setCurrentIndex(2);
        Settle();
        SaveScreenshot(d, QStringLiteral("page-setup-label-layout"));
    });
}

TEST_F(PageSetupDialog, WithoutAPrinterToUseItRefusesWithoutShowingItself)
{
    struct Case {
        QStringList printers;
        QString defaultPrinter;
        QString given;
        QStringList expected;
        QList<QMessageBox::Icon> icons;
    };
    const QString none = QStringLiteral(
        "No printers have been setup on this computer. You must setup at least one "
        "printer in order to configure page settings.");
    const QString noDefault = QStringLiteral(
        "Unable to perform page setup. Make sure a valid default printer is setup on this computer "
        "and that the "
        "print spooler service is running. (1)");
    const Case cases[] = {
        {{}, {}, QStringLiteral("Office"), {none}, {QMessageBox::Warning}},
        {{QStringLiteral("Office")}, {}, {}, {noDefault}, {QMessageBox::Critical}},
        {{QStringLiteral("Office")},
         QStringLiteral("Gone"),
         QStringLiteral("Plotter"),
         {QStringLiteral("The printer 'Plotter' is invalid. The default printer will be used."),
          noDefault},
         {QMessageBox::Warning, QMessageBox::Critical}},
    };
    configure();
    for (const Case &c : cases) {
        SetPrinterInfo(std::make_unique<ListedPrinters>(c.printers, c.defaultPrinter));
        MessageRecorder recorder;
        EXPECT_FALSE(store->ShowPageSetup(QStringLiteral("Invoice"), c.given));
        EXPECT_EQ(recorder.texts(), c.expected);
        for (int i = 0; i < recorder.messages().size() && i < c.icons.size(); ++i)
            EXPECT_EQ(recorder.messages()[i].icon, c.icons[i]);
        for (QWidget *window : QApplication::topLevelWidgets())
            EXPECT_NE(window->objectName(), "frmPageSetup");
    }
}

TEST_F(PageSetupDialog, WithoutSizesOrBinsOffersCustomAndNoSource)
{
    SetPrinterInfo(std::make_unique<ListedPrinters>(QStringList{"Bare"}, QStringLiteral("Bare")));
    const QString file = configure("<PaperSize>1</PaperSize><PaperWidth>3</PaperWidth>");
    EXPECT_TRUE(run({}, [&](QWidget *d) {
        // The stored code is not offered: the first entry, a custom size with the stored width.
        EXPECT_EQ(entries(child<QComboBox>(d, "cboPaperSize")), QStringList({"Custom 256"}));
        EXPECT_EQ(child<QComboBox>(d, "cboPaperSize")->currentIndex(), 0);
        EXPECT_EQ(child<QLineEdit>(d, "txtPaperWidth")->text(), "3");
        EXPECT_EQ(child<QListWidget>(d, "lstPaperSource")->count(), 0);
    }));
    EXPECT_TRUE(saved(file).contains("PaperSize=256"));
}

// One printer with two sheets and two bins, Letter and Automatic its current ones.
struct OfficePrinter final : PaperPrinterInfo {
    QStringList printerNames() const override { return {QStringLiteral("Office")}; }
    QString defaultPrinterName() const override { return QStringLiteral("Office"); }
    PrinterPaper paper(const QString &) const override
    {
        return {
            {{QStringLiteral("Letter"), 1, 12240, 15840}, {QStringLiteral("A4"), 9, 11906, 16838}},
            {{QStringLiteral("Automatic"), 7}, {QStringLiteral("Manual Feed"), 4}},
            1,
            7};
    }
};

// The form built directly, its controls set by name: the one value it holds changes with
// the control that changed, the previews draw that value, and OK saves exactly it.
TEST_F(PageSetupDialog, TheFormHoldsOneValueThatEachControlChanges)
{
    SetPrinterInfo(std::make_unique<OfficePrinter>());
    const QString file = configure("<PaperSize>9</PaperSize><TopMargin>.5</TopMargin>");
    frmPageSetup form;
    ASSERT_TRUE(form.Open(QStringLiteral("Invoice"), QStringLiteral("Office"), store));
    PageSetup expected{".5",     "1", "1", "1", "0",    false, false, 9,  "8.268",
                       "11.693", 7,   "1", 0,   ".125", "0",   "3.5", "1"};
    EXPECT_TRUE(form.value() == expected);

    child<QLineEdit>(&form, "txtLeftMargin")->setText(QStringLiteral("0.75"));
    choose(child<QComboBox>(&form, "cboPaperSize"), QStringLiteral("Letter"));
    child<QRadioButton>(&form, "optLandscape")->setChecked(true);
    child<QCheckBox>(&form, "chkMirrorMargins")->setChecked(true);
    child<QListWidget>(&form, "lstPaperSource")->setCurrentRow(1);
    expected.leftMargin = "0.75";
    expected.paperSize = 1;
    expected.paperWidth = "8.5";
    expected.paperHeight = "11";
    expected.landscape = true;
    expected.mirrorMargins = true;
    expected.paperSource = 4;
    EXPECT_TRUE(form.value() == expected);
    EXPECT_EQ(child<QLineEdit>(&form, "txtPaperWidth")->text(), "8.5");
    for (const char *picture : {"picPreview1", "picPreview2", "picPreview3"})
        EXPECT_TRUE(child<PageSetupPicture>(&form, picture)->record() == PreviewRecord(expected))
            << picture;

    child<QPushButton>(&form, "cmdOK")->click();
    EXPECT_EQ(saved(file),
              QStringList({"PaperSize=1", "TopMargin=0.5", "BottomMargin=1", "LeftMargin=0.75",
                           "RightMargin=1", "Gutter=0", "MirrorMargins=1", "Orientation=1",
                           "PaperWidth=8.5", "PaperHeight=11", "PaperSource=4", "ColumnsPerSheet=1",
                           "PrintDirection=0", "HorizontalGap=0.125", "VerticalGap=0",
                           "LabelWidth=3.5", "LabelHeight=1"}));
}

// The line under the previews against a laser that cannot print within a quarter inch of
// the edge and is stopped besides: it follows each change of the value, says what the
// printer cannot print and why, leaves the printer's state out, and never stops OK.
TEST_F(PageSetupDialog, TheWarningLineFollowsTheValueAgainstThePrintersPaper)
{
    auto info = std::make_unique<PaperPrinters>();
    PrinterPaper laser = QuarterInchLaser();
    laser.state.stopped = true;
    info->add(QStringLiteral("Office"), laser);
    info->defaultName = QStringLiteral("Office");
    SetPrinterInfo(std::move(info));
    const auto text = [](const char *name, const char *value) {
        return [name, value](QWidget *d) {
            child<QLineEdit>(d, name)->setText(QString::fromLatin1(value));
        };
    };
    const QString margins = "Office cannot print so near the edge: ";
    struct Step {
        std::function<void(QWidget *)> change;
        QString warning; // "" for none
    };
    struct Case {
        const char *name;
        QByteArray stored;
        QList<Step> steps;
    };
    const Case cases[] = {
        {"margins below the printer's and raised again",
         "<PaperSize>1</PaperSize>",
         {{[](QWidget *) {}, ""},
          {text("txtTopMargin", ".1"), margins + "top 0.1 in (at least 0.25 in)"},
          {text("txtLeftMargin", "0"), margins
                                           + "top 0.1 in (at least 0.25 in), left 0 in (at "
                                             "least 0.25 in)"},
          {text("txtTopMargin", ".25"), margins + "left 0 in (at least 0.25 in)"},
          {text("txtGutter", ".5"), ""}}},
        {"turned to landscape",
         "<PaperSize>1</PaperSize><RightMargin>.1</RightMargin>",
         {{[](QWidget *) {}, margins + "right 0.1 in (at least 0.25 in)"},
          {[](QWidget *d) { child<QRadioButton>(d, "optLandscape")->setChecked(true); },
           margins + "right 0.1 in (at least 0.25 in)"},
          {text("txtRightMargin", "1"), ""}}},
        {"a custom size the printer does not take",
         "<PaperSize>9</PaperSize>",
         {{[](QWidget *) {}, ""},
          // Custom keeps A4's size at first, which the printer has.
          {[](QWidget *d) { choose(child<QComboBox>(d, "cboPaperSize"), "Custom"); }, ""},
          {text("txtPaperWidth", "5"), "The custom size 5 x 11.69 in is not a paper size of "
                                       "Office"},
          {[](QWidget *d) { choose(child<QComboBox>(d, "cboPaperSize"), "A4"); }, ""}}},
        // The stored bin is not offered: the dialog takes the printer's first, which it has.
        {"a stored bin the printer lacks",
         "<PaperSize>1</PaperSize><PaperSource>5</PaperSource>",
         {{[](QWidget *) {}, ""}}},
        {"a stored label sheet wider than the paper",
         "<PaperSize>1</PaperSize><ColumnsPerSheet>3</ColumnsPerSheet><LabelWidth>3</LabelWidth>",
         {{[](QWidget *) {}, "The labels with their margins need 11.25 in across on paper 8.5 in "
                             "wide"},
          {text("txtLeftMargin", ".25"), "The labels with their margins need 10.5 in across on "
                                         "paper 8.5 in wide"}}},
    };
    for (const Case &c : cases) {
        configure(c.stored);
        frmPageSetup form;
        ASSERT_TRUE(form.Open(QStringLiteral("Invoice"), QStringLiteral("Office"), store))
            << c.name;
        form.show();
        const auto *line = child<QLabel>(&form, "lblPrinterWarning");
        for (int i = 0; i < c.steps.size(); ++i) {
            c.steps[i].change(&form);
            EXPECT_EQ(line->isVisible(), !c.steps[i].warning.isEmpty()) << c.name << " " << i;
            EXPECT_EQ(line->text(), c.steps[i].warning) << c.name << " " << i;
        }
    }
    EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join('\n').toStdString();
}

TEST_F(PageSetupDialog, OkSavesWithAWarningShowing)
{
    auto info = std::make_unique<PaperPrinters>();
    info->add(QStringLiteral("Office"), QuarterInchLaser());
    info->defaultName = QStringLiteral("Office");
    SetPrinterInfo(std::move(info));
    const QString file = configure("<PaperSize>1</PaperSize>");
    EXPECT_TRUE(run(QStringLiteral("Office"), [&](QWidget *d) {
        child<QTabWidget>(d, "TabControl1")->setCurrentIndex(0);
        child<QLineEdit>(d, "txtTopMargin")->setText(QStringLiteral(".1"));
        child<QLineEdit>(d, "txtBottomMargin")->setText(QStringLiteral(".05"));
        EXPECT_TRUE(child<QLabel>(d, "lblPrinterWarning")->isVisible());
        Settle();
        SaveScreenshot(d, QStringLiteral("page-setup-printer-warning"));
    }));
    EXPECT_TRUE(saved(file).contains("TopMargin=0.1")) << saved(file).join(' ').toStdString();
    EXPECT_TRUE(saved(file).contains("BottomMargin=0.05"));
    EXPECT_TRUE(messages.texts().isEmpty()) << messages.texts().join('\n').toStdString();
}

} // namespace
} // namespace bravcpl5::test
