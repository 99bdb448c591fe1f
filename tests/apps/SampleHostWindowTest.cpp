// The sample host's main window in process: a report whose printer cannot print its
// configuration is marked in the list, named in the status line, and printed only when the
// dealer says so after being told why; a report whose configuration has no printer is not
// sent at all. The list's columns show their texts whole, the window keeps its place and
// columns in the data folder, and the status line outlasts a menu's status tips.

#include "MainWindow.h"
#include "SampleHost.h"

#include "library/Library.h"
#include "library/RegistryFile.h"
#include "printing/PrinterConfigurations.h"
#include "support/DialogDriver.h"
#include "support/MessageRecorder.h"
#include "support/StoreFixture.h"
#include "support/TestHost.h"

#include <QAction>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScreen>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

constexpr int inch = 1440;

// A laser with Letter in an automatic bin, and a label printer with nothing but its own
// 4 x 6 in labels.
struct OfficePrinters final : PaperPrinterInfo {
    // A third, of a name too long for its column, as the laser.
    OfficePrinters()
    {
        printers.insert(QStringLiteral("Front Office Color Laser MFP"), printers["Laser"]);
    }
    QStringList printerNames() const override { return printers.keys(); }
    QString defaultPrinterName() const override { return QStringLiteral("Laser"); }
    PrinterPaper paper(const QString &printer) const override { return printers.value(printer); }

    QMap<QString, PrinterPaper> printers = {
        {QStringLiteral("Laser"),
         {{{QStringLiteral("Letter"), 1, 17 * inch / 2, 11 * inch}},
          {{QStringLiteral("Automatic"), 7}},
          1,
          7}},
        {QStringLiteral("Labels"),
         {{{QStringLiteral("4 x 6"), 256, 4 * inch, 6 * inch}}, {}, 256, 0}},
    };
};

class SampleHostWindow : public ::testing::Test
{
protected:
    void SetUp() override
    {
        previousRegistry = RegistryFile();
        SetRegistryFile(QDir(data.path()).filePath(QStringLiteral("registry.ini")));
        SetPrinterInfo(std::make_unique<OfficePrinters>());
        // The quote prints with "Letter", the labels with "Product Labels": both Letter.
        for (const char *name : {"Letter", "Product Labels"})
            writeFile(
                QDir(data.path())
                    .filePath(QStringLiteral("System/Reports/%1.pcx").arg(QLatin1String(name))),
                configurationXml("<PaperSize>1</PaperSize><PaperSource>7</PaperSource>", 1));
        host = std::make_unique<SampleHost>(data.path());
        library.Initialize(host.get());
        library.printerConfigurations()->assignPrinter(QStringLiteral("Letter"),
                                                       QStringLiteral("Laser"));
        library.printerConfigurations()->assignPrinter(QStringLiteral("Product Labels"),
                                                       QStringLiteral("Labels"));
        openWindow();
    }
    // A window as the sample host opens one on start: a fresh one over the same data.
    void openWindow()
    {
        window = std::make_unique<MainWindow>(&library, host.get(), data.path());
        list = window->findChild<QTreeWidget *>(QStringLiteral("reports"));
        ASSERT_TRUE(list);
    }
    QString statusLine() const
    {
        const auto *line = window->findChild<QLabel *>(QStringLiteral("statusLine"));
        return line && line->isVisible() ? line->text() : QStringLiteral("(hidden)");
    }
    void TearDown() override
    {
        window.reset();
        library.PreTerminate();
        host.reset();
        SetPrinterInfo(nullptr);
        SetRegistryFile(previousRegistry);
    }

    int rowOf(const QString &report) const
    {
        const QList<QTreeWidgetItem *> found = list->findItems(report, Qt::MatchExactly);
        return found.isEmpty() ? -1 : list->indexOfTopLevelItem(found.first());
    }
    QAction *action(const QString &text) const
    {
        for (QAction *action : window->findChildren<QAction *>())
            if (action->text() == text)
                return action;
        return nullptr;
    }

    QString previousRegistry;
    QTemporaryDir data;
    std::unique_ptr<SampleHost> host;
    Library library;
    std::unique_ptr<MainWindow> window;
    QTreeWidget *list = nullptr;
};

TEST_F(SampleHostWindow, MarksNamesAndAsksBeforePrintingAReportItsPrinterCannotPrint)
{
    const int labels = rowOf(QStringLiteral("Product Labels"));
    const int quote = rowOf(QStringLiteral("Customer Quote"));
    ASSERT_GE(labels, 0);
    ASSERT_GE(quote, 0);
    const int printerColumn = 3;
    const QTreeWidgetItem *marked = list->topLevelItem(labels);
    EXPECT_FALSE(marked->icon(printerColumn).isNull());
    EXPECT_EQ(marked->toolTip(printerColumn),
              "Letter / ANSI A (8.5 x 11 in) is not a paper size of Labels\n"
              "The Automatic bin (7) is not a paper source of Labels");
    EXPECT_TRUE(list->topLevelItem(quote)->icon(printerColumn).isNull());
    EXPECT_EQ(list->topLevelItem(quote)->toolTip(printerColumn), QString());

    window->show();
    window->selectReport(quote);
    EXPECT_EQ(statusLine(), "Every printer configuration has a printer of its own.");
    window->selectReport(labels);
    EXPECT_EQ(statusLine(), "Product Labels cannot be printed as configured: "
                            "Letter / ANSI A (8.5 x 11 in) is not a paper size of Labels; "
                            "The Automatic bin (7) is not a paper source of Labels");

    QAction *print = action(QStringLiteral("&Print"));
    ASSERT_TRUE(print);
    MessageRecorder recorder({QMessageBox::No});
    print->trigger();
    ASSERT_EQ(recorder.messages().size(), 1);
    EXPECT_EQ(recorder.texts().first(),
              "The printer cannot print Product Labels as configured:\n"
              "Letter / ANSI A (8.5 x 11 in) is not a paper size of Labels\n"
              "The Automatic bin (7) is not a paper source of Labels\n\nPrint anyway?");
    EXPECT_EQ(recorder.messages().first().buttons, QMessageBox::Yes | QMessageBox::No);
}

TEST_F(SampleHostWindow, PrintingAReportWhoseConfigurationHasNoPrinterSaysWhich)
{
    const struct {
        const char *name;
        QStringList unassigned;
        QString status, message;
    } cases[] = {
        {"OneWithout",
         {"Letter"},
         "1 printer configuration has no printer (Letter): Settings > Printer Configurations "
         "assigns one.",
         "The printer configuration 'Letter' of the report 'Customer Quote' has no printer on "
         "this computer. Assign one in Settings > Printer Configurations."},
        // Nothing assigned at all: the library's own word for a computer not set up.
        {"AllWithout",
         {"Letter", "Product Labels"},
         "2 printer configurations have no printer (Letter, Product Labels): Settings > Printer "
         "Configurations assigns one.",
         "The printer configurations have not been setup on this computer. Contact your system "
         "administrator for assistance on setting up your printers."},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        for (const QString &configuration : c.unassigned)
            ASSERT_TRUE(library.printerConfigurations()->assignPrinter(configuration, QString()));
        openWindow();
        window->show();
        list->setCurrentItem(nullptr); // the report's findings would take the status line
        EXPECT_EQ(statusLine(), c.status);
        window->selectReport(rowOf(QStringLiteral("Customer Quote")));
        MessageRecorder recorder({QMessageBox::Ok});
        action(QStringLiteral("&Print"))->trigger();
        EXPECT_EQ(recorder.texts(), QStringList{c.message});
    }
}

TEST_F(SampleHostWindow, ColumnsShowTheirTextsWhole)
{
    // A printer assigned after the window was made, as verifying on start-up does.
    library.printerConfigurations()->assignPrinter(QStringLiteral("Letter"),
                                                   QStringLiteral("Front Office Color Laser MFP"));
    window->refresh();
    window->resize(1500, 420);
    window->show();
    Settle();
    const QHeaderView *header = list->header();
    // Each cell's text, and its mark, within its column, and each heading too.
    for (int column = 0; column < list->columnCount(); ++column) {
        int needed = header->sectionSizeHint(column);
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            const QTreeWidgetItem *item = list->topLevelItem(row);
            needed = std::max(needed,
                              list->fontMetrics().horizontalAdvance(item->text(column))
                                  + (item->icon(column).isNull() ? 0 : list->iconSize().width()));
        }
        EXPECT_GE(header->sectionSize(column), needed)
            << list->headerItem()->text(column).toStdString();
    }
    EXPECT_EQ(header->sectionResizeMode(0), QHeaderView::Interactive);
    EXPECT_TRUE(header->stretchLastSection());
    SaveScreenshot(window.get(), QStringLiteral("sample-host-main-window-1500"));
}

TEST_F(SampleHostWindow, KeepsItsPlaceAndColumnsInItsDataFolder)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const struct {
        const char *name;
        QRect stored, restored;
    } cases[] = {
        {"OnTheScreen", QRect(screen.topLeft() + QPoint(40, 50), QSize(600, 300)),
         QRect(screen.topLeft() + QPoint(40, 50), QSize(600, 300))},
        // Stored on a screen since taken away: back where it can be seen, not off-screen.
        {"OffEveryScreen", QRect(screen.bottomRight() + QPoint(3000, 2000), QSize(600, 300)),
         QRect()},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        window->show();
        window->setGeometry(c.stored);
        ASSERT_EQ(window->geometry(), c.stored);
        list->header()->resizeSection(0, 233);
        window->close();
        ASSERT_TRUE(QFileInfo::exists(MainWindow::placeFile(data.path())));

        openWindow();
        window->show();
        Settle();
        EXPECT_EQ(list->header()->sectionSize(0), 233);
        if (c.restored.isValid())
            EXPECT_EQ(window->geometry(), c.restored);
        else
            EXPECT_TRUE(screen.intersects(window->frameGeometry()));
    }
}

TEST_F(SampleHostWindow, TheStatusLineOutlastsAMenusStatusTips)
{
    window->show();
    const QString status = statusLine();
    ASSERT_EQ(status, "Every printer configuration has a printer of its own.");
    // Passing over the commands of a menu opened from the menu bar sends the window their
    // status tips, empty ones too.
    QMenu *reportMenu = window->menu(QStringLiteral("&Report"));
    window->menuBar()->setActiveAction(reportMenu->menuAction());
    Settle();
    ASSERT_TRUE(reportMenu->isVisible());
    for (QAction *command : reportMenu->actions())
        if (!command->isSeparator())
            QTest::mouseMove(reportMenu, reportMenu->actionGeometry(command).center());
    reportMenu->close();
    Settle();
    EXPECT_EQ(statusLine(), status);
}

TEST_F(SampleHostWindow, AboutNamesTheLibrarysAndQtsVersions)
{
    QAction *about = action(QStringLiteral("&About..."));
    ASSERT_TRUE(about);
    MessageRecorder recorder({QMessageBox::Ok});
    about->trigger();
    ASSERT_EQ(recorder.texts().size(), 1);
    const QString text = recorder.texts().first();
    EXPECT_TRUE(text.contains(QRegularExpression(QStringLiteral("library, version \\d+\\.\\d+"))))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("Qt ") + QLatin1String(qVersion())))
        << text.toStdString();
}

} // namespace
} // namespace bravcpl5::test
