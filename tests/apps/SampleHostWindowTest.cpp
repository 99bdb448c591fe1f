// The sample host's main window in process: a report whose printer cannot print its
// configuration is marked in the list, named in the status line, and printed only when the
// dealer says so after being told why.

#include "MainWindow.h"
#include "SampleHost.h"

#include "library/Library.h"
#include "library/RegistryFile.h"
#include "printing/PrinterConfigurations.h"
#include "support/MessageRecorder.h"
#include "support/StoreFixture.h"
#include "support/TestHost.h"

#include <QAction>
#include <QMap>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

constexpr int inch = 1440;

// A laser with Letter in an automatic bin, and a label printer with nothing but its own
// 4 x 6 in labels.
struct OfficePrinters final : PaperPrinterInfo {
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
        window = std::make_unique<MainWindow>(&library, host.get(), data.path());
        list = window->findChild<QTreeWidget *>(QStringLiteral("reports"));
        ASSERT_TRUE(list);
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

TEST_F(SampleHostWindow, MarksAndNamesAReportItsPrinterCannotPrint)
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

    window->selectReport(labels);
    EXPECT_EQ(window->statusBar()->currentMessage(),
              "Product Labels cannot be printed as configured: "
              "Letter / ANSI A (8.5 x 11 in) is not a paper size of Labels; "
              "The Automatic bin (7) is not a paper source of Labels");
    window->selectReport(quote);
    EXPECT_EQ(window->statusBar()->currentMessage(),
              "Every printer configuration has a printer of its own.");
}

TEST_F(SampleHostWindow, PrintingAReportItsPrinterCannotPrintAsksFirst)
{
    window->selectReport(rowOf(QStringLiteral("Product Labels")));
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

} // namespace
} // namespace bravcpl5::test
