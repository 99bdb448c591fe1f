// OK in a dialog on a truly full disk: the file keeps every old byte, the user is told which
// file could not be saved and why, and the dialog still closes with its usual result. How
// much room is left and how large the file is are the whole-file writer's tests' concern.

#include "layout/ReportLayout.h"
#include "library/Library.h"
#include "library/Registry.h"
#include "printing/PrinterConfigurations.h"
#include "support/DialogDriver.h"
#include "support/ListedPrinters.h"
#include "support/MessageRecorder.h"
#include "support/SmallFileSystem.h"
#include "support/StoreFixture.h"
#include "support/TestHost.h"

#include <QDir>
#include <QPushButton>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

// A report configuration of about `size` bytes: as many fields as it takes.
QByteArray configurationOfSize(qint64 size)
{
    QByteArray xml = "<?xml version=\"1.0\"?>\n<Report>\n  <Title>Orders</Title>\n  <Fields>\n";
    for (int i = 0; xml.size() < size - 24; ++i)
        xml += "    <Field" + QByteArray::number(i) + " label=\"Field " + QByteArray::number(i)
               + "\" width=\"1\"/>\n";
    return xml + "  </Fields>\n</Report>\n";
}

// Every dialog that saves a file, confirmed with OK on a full disk.
TEST(FullDiskDialogs, EveryOkKeepsTheOldFileAndNamesIt)
{
    struct Case {
        const char *form;
        const char *file; // in the user's folder
        QByteArray content;
        std::function<bool(Library &, const QString &file)> open;
        bool result; // what the Show member returns
    };
    const Case cases[] = {
        {"frmPageSetup", "Invoice.pcx", test::configurationXml("<TopMargin>1</TopMargin>"),
         [](Library &l, const QString &) {
             return l.printerConfigurations()->ShowPageSetup(QStringLiteral("Invoice"));
         },
         true},
        {"frmGeneralReportLayout", "General Report Layout.lyx", "<Definition></Definition>\n",
         [](Library &l, const QString &) { return l.reportLayout()->ShowGeneralReportLayout(); },
         true},
        {"frmGeneralReportFonts", "General Report Fonts.fox",
         "<ReportFonts><GeneralReports></GeneralReports></ReportFonts>\n",
         [](Library &l, const QString &) { return l.reportLayout()->ShowGeneralReportFonts(); },
         true},
        {"frmGeneralReportFields", "Orders.rpx", configurationOfSize(3 * 1024),
         [](Library &l, const QString &file) { return l.ShowGeneralReportFields(file); }, true},
        {"frmGeneralReportFilters", "Orders.rpx",
         "<Report><Filters><ShipDate type=\"daterange\" value=\"Today\"/></Filters></Report>\n",
         [](Library &l, const QString &file) { return l.ShowGeneralReportFilters(file); },
         false}, // a save that failed does not confirm the filters
    };
    for (const Case &c : cases) {
        test::SmallFileSystem fs(256 * 1024);
        REQUIRE_SMALL_FILE_SYSTEM(fs);
        QTemporaryDir elsewhere; // the registry, which dialogs write their places to
        const QString previousRegistry = RegistryFile();
        SetRegistryFile(QDir(elsewhere.path()).filePath(QStringLiteral("registry.ini")));
        SetPrinterInfo(std::make_unique<test::ListedPrinters>(QStringList{"Office"},
                                                              QStringLiteral("Office")));
        test::TestHost host;
        host.testOptions().userFolder = fs.filePath(QStringLiteral("Reports"));
        const QString file = test::writeFile(
            QDir(host.userFolder()).filePath(QString::fromLatin1(c.file)), c.content);
        Library library;
        library.Initialize(&host);
        fs.fill();

        test::MessageRecorder messages;
        test::WhenModal(QString::fromLatin1(c.form), [](QWidget *dialog) {
            dialog->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
        });
        const bool result = c.open(library, file);
        EXPECT_EQ(result, c.result) << c.form;
        EXPECT_EQ(test::readFile(file), c.content) << c.form;
        ASSERT_EQ(messages.texts().size(), 1) << c.form;
        EXPECT_TRUE(messages.texts()[0].startsWith("The changes could not be saved to the file '"
                                                   + QDir::toNativeSeparators(file) + "': "))
            << c.form << ": " << messages.texts()[0].toStdString();
        EXPECT_EQ(messages.messages()[0].icon, QMessageBox::Warning) << c.form;
        library.PreTerminate();
        SetPrinterInfo(nullptr);
        SetRegistryFile(previousRegistry);
    }
}

} // namespace
} // namespace bravcpl5
