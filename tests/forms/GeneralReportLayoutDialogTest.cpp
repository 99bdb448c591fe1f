// The general report layout dialog through ReportLayout.ShowGeneralReportLayout, driven by
// control name: which file it shows and which it writes, the document in the controls,
// enabled states, the lists' odd cases, and what OK, Cancel and the close box leave behind.

#include "forms/FurniturePreview.h"
#include "layout/ReportLayout.h"
#include "library/LateBinding.h"
#include "library/Library.h"
#include "library/Xml.h"
#include "support/DialogDriver.h"
#include "support/TestHost.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

using test::child;

const QByteArray systemLayout = R"(<?xml version="1.0"?>
<Definition>
  <Report><PrinterConfiguration enabled="1" configuration="Retired Labels"/></Report>
  <Header allpages="1">
    <Company show="1" label="Acme Blinds" alignment="0"/>
    <Title show="0" alignment="1"/>
    <PrintDate show="1" format="mmmm d, yyyy" alignment="2"/>
  </Header>
  <Footer allpages="0">
    <ExtraLine show="1" label="Thank you" alignment="2"/>
    <PageNumber show="1" format="Page: nnn/mmm" alignment="1"/>
  </Footer>
</Definition>
)";

struct LayoutDialog : ::testing::Test {
    LayoutDialog()
    {
        library.Initialize(&host);
        layout = library.reportLayout();
        systemFile = host.writeSystemFile(QStringLiteral("General Report Layout.lyx"),
                                          systemLayout);
        host.writeSystemFile(QStringLiteral("Letter.pcx"), "<PrinterConfiguration/>");
    }
    ~LayoutDialog() override { library.PreTerminate(); }

    // Runs `action` in the dialog, then leaves it the way `close` says.
    bool run(
        const QString &layoutFile, std::function<void(QWidget *)> action,
        std::function<void(QWidget *)> close = [](QWidget *d) {
            child<QPushButton>(d, "cmdOK")->click();
        })
    {
        test::WhenModal(QStringLiteral("frmGeneralReportLayout"), [&](QWidget *dialog) {
            action(dialog);
            close(dialog);
        });
        return layout->ShowGeneralReportLayout(layoutFile);
    }
    QString attribute(const QString &file, const QString &xpath) const
    {
        const XmlDocumentPtr document = LoadXmlFile(file);
        return document ? NodeText(SelectSingleNode(*document, xpath))
                        : QStringLiteral("<no file>");
    }

    test::TestHost host;
    Library library;
    ReportLayout *layout = nullptr;
    QString systemFile;
};

TEST_F(LayoutDialog, GeneralModeShowsTheUserPathReadsTheSystemCopyAndOkWritesIt)
{
    const QString userPath = host.userFolder() + QStringLiteral("/General Report Layout.lyx");
    EXPECT_TRUE(run(QString(), [&](QWidget *d) {
        EXPECT_EQ(d->windowTitle(), "General Report Layout");
        EXPECT_EQ(child<QLineEdit>(d, "txtFile")->text(), userPath);
        // No user copy yet: the labels keep their own text.
        EXPECT_EQ(child<QLabel>(d, "lblCreated")->text(), "Created:");
        EXPECT_EQ(child<QLabel>(d, "lblLastModififed")->text(), "Modified:");
        EXPECT_EQ(child<QLineEdit>(d, "txtCompany")->text(), "Acme Blinds");
        EXPECT_EQ(child<QComboBox>(d, "cboCompanyAlignment")->currentText(), "Left");
        EXPECT_FALSE(child<QCheckBox>(d, "chkTitle")->isChecked());
        EXPECT_EQ(child<QComboBox>(d, "cboTitleAlignment")->currentText(), "Right");
        EXPECT_FALSE(child<QComboBox>(d, "cboTitleAlignment")->isEnabled());
        EXPECT_EQ(child<QComboBox>(d, "cboPrintDateFormat")->currentText(), "mmmm d, yyyy");
        EXPECT_EQ(child<QComboBox>(d, "cboPrintDateAlignment")->currentText(), "Center");
        EXPECT_TRUE(child<QCheckBox>(d, "chkHeaderAllPages")->isChecked());
        // Missing elements and sections read as the document's defaults.
        EXPECT_TRUE(child<QCheckBox>(d, "chkSubTitle")->isChecked());
        EXPECT_EQ(child<QComboBox>(d, "cboSubTitleAlignment")->currentText(), "Center");
        EXPECT_EQ(child<QComboBox>(d, "cboPageNumberFormat")->currentText(), "Page: nnn/mmm");
        child<QLineEdit>(d, "txtCompany")->setText("Acme Blinds & Shutters");
    }));
    EXPECT_FALSE(QFile::exists(userPath));
    EXPECT_EQ(attribute(systemFile, "//Company/@label"), "Acme Blinds & Shutters");
}

TEST_F(LayoutDialog, ByNameWithoutALayoutFileItOpensOnTheGeneralLayout)
{
    QString shown;
    test::WhenModal(QStringLiteral("frmGeneralReportLayout"), [&](QWidget *d) {
        shown = child<QLineEdit>(d, "txtFile")->text();
        child<QPushButton>(d, "cmdCancel")->click();
    });
    // As an automation client leaves out the optional argument.
    const QVariant confirmed = late::value(late::object(&library, "ReportLayout"),
                                           "ShowGeneralReportLayout");
    EXPECT_EQ(shown, host.userFolder() + QStringLiteral("/General Report Layout.lyx"));
    EXPECT_EQ(confirmed, QVariant(false));
}

TEST_F(LayoutDialog, OddValuesSurviveOk)
{
    const QString own = host.writeSystemFile(QStringLiteral("Sales.lyx"), systemLayout);
    EXPECT_TRUE(run(own, [&](QWidget *d) {
        EXPECT_EQ(child<QLineEdit>(d, "txtFile")->text(), own);
        EXPECT_TRUE(child<QLabel>(d, "lblCreated")->text().startsWith("Created: "));
        // The extra line is never centred: its stored "2" selects nothing.
        EXPECT_EQ(child<QComboBox>(d, "cboExtraLineAlignment")->currentIndex(), -1);
        // A configuration that no longer exists stays as the list's text.
        auto *configurations = child<QComboBox>(d, "cboCustomPrinterConfiguration");
        EXPECT_EQ(configurations->currentText(), "Retired Labels");
        EXPECT_EQ(configurations->findText("Letter"), 1) << "after the empty first entry";
        // Unticking hides nothing of the values: they are disabled at once and still written.
        child<QCheckBox>(d, "chkCompany")->click();
        EXPECT_FALSE(child<QLineEdit>(d, "txtCompany")->isEnabled());
        EXPECT_FALSE(child<QComboBox>(d, "cboCompanyAlignment")->isEnabled());
    }));
    EXPECT_EQ(attribute(own, "//ExtraLine/@alignment"), "0");
    EXPECT_EQ(attribute(own, "//Company/@show"), "0");
    EXPECT_EQ(attribute(own, "//Company/@label"), "Acme Blinds");
    EXPECT_EQ(attribute(own, "//PrinterConfiguration/@configuration"), "Retired Labels");
    EXPECT_EQ(attribute(own, "//Header/@allpages"), "1");
}

TEST_F(LayoutDialog, CancelWritesNothingAndTheCloseBoxReadsAsConfirmed)
{
    const QByteArray before = test::readFile(systemFile);
    for (const auto &[way, close] : test::WaysToCancel(QStringLiteral("txtCompany"))) {
        const bool result = run(
            QString(), [](QWidget *d) { child<QLineEdit>(d, "txtCompany")->setText("Changed"); },
            close);
        EXPECT_EQ(result, std::string(way) == "CloseBox") << way;
        EXPECT_EQ(test::readFile(systemFile), before) << way;
    }
}

// The preview follows the controls, and its page is the chosen configuration's paper, turned
// as it prints; a report without a configuration of its own, or one whose file has no page
// setup, shows Letter upright.
TEST_F(LayoutDialog, ThePreviewFollowsTheControlsOnTheConfigurationsPaper)
{
    const auto pageSetup = [](const char *elements) {
        return QByteArray("<PrinterConfiguration><PageSetup>") + elements
               + "</PageSetup></PrinterConfiguration>";
    };
    host.writeSystemFile(QStringLiteral("Landscape.pcx"),
                         pageSetup("<PaperSize>1</PaperSize><Orientation>1</Orientation>"));
    host.writeSystemFile(QStringLiteral("Legal.pcx"), pageSetup("<PaperSize>5</PaperSize>"));
    host.writeSystemFile(QStringLiteral("Shipping Labels.pcx"),
                         pageSetup("<PaperSize>260</PaperSize><PaperWidth>4</PaperWidth>"
                                   "<PaperHeight>6</PaperHeight><Orientation>1</Orientation>"));
    host.writeSystemFile(QStringLiteral("Turned Only.pcx"),
                         pageSetup("<Orientation>1</Orientation>"));
    const struct {
        const char *configuration;
        bool used;
        double widthToHeight;
    } cases[] = {
        {"Landscape", true, 11 / 8.5},     {"Legal", true, 8.5 / 14},
        {"Shipping Labels", true, 6 / 4.}, {"Turned Only", true, 11 / 8.5},
        {"Letter", true, 8.5 / 11},        {"Landscape", false, 8.5 / 11},
    };
    run(
        QString(),
        [&](QWidget *d) {
            auto *preview = child<FurniturePreview>(d, "picFurniture");
            child<QComboBox>(d, "cboPageNumberFormat")->setCurrentText("Page nnn of mmm");
            child<QComboBox>(d, "cboPageNumberAlignment")->setCurrentIndex(1);
            ASSERT_FALSE(preview->footerLines().isEmpty());
            EXPECT_EQ(preview->footerLines().last().text, "Page 1 of 3");
            EXPECT_EQ(preview->footerLines().last().alignment, 1);
            EXPECT_EQ(preview->headerLines().first().text, "Acme Blinds");
            child<QCheckBox>(d, "chkCompany")->click();
            EXPECT_NE(preview->headerLines().first().text, "Acme Blinds");
            test::SaveScreenshot(d, QStringLiteral("frmGeneralReportLayout"));
            for (const auto &c : cases) {
                SCOPED_TRACE(std::string(c.configuration) + (c.used ? "" : ", not used"));
                child<QCheckBox>(d, "chkUseCustomPrinterConfiguration")->setChecked(c.used);
                child<QComboBox>(d, "cboCustomPrinterConfiguration")
                    ->setCurrentText(QLatin1String(c.configuration));
                const QRectF page = preview->pageRect();
                EXPECT_NEAR(page.width() / page.height(), c.widthToHeight, 0.01);
                if (c.configuration == std::string("Landscape") && c.used) {
                    preview->repaint();
                    test::SaveScreenshot(d, QStringLiteral("frmGeneralReportLayout-landscape"));
                }
            }
        },
        [](QWidget *d) { child<QPushButton>(d, "cmdCancel")->click(); });
}

TEST_F(LayoutDialog, ManageRefillsTheConfigurationsKeepingTheChoice)
{
    const QString own = host.writeSystemFile(QStringLiteral("Own.lyx"), systemLayout);
    run(own, [&](QWidget *d) {
        // A configuration added while the printer configurations dialog is open.
        test::WhenModal(
            QStringLiteral("frmPrinterConfigurations"), [&](QWidget *configurationsDialog) {
                host.writeSystemFile(QStringLiteral("Added.pcx"), "<PrinterConfiguration/>");
                configurationsDialog->close();
            });
        emit child<QLabel>(d, "lblManagePrinterConfigurations")
            ->linkActivated(QStringLiteral("manage"));
        auto *configurations = child<QComboBox>(d, "cboCustomPrinterConfiguration");
        EXPECT_GE(configurations->findText("Added"), 0);
        EXPECT_EQ(configurations->currentText(), "Retired Labels");
    });
}

} // namespace
} // namespace bravcpl5
