// Report configurations that other programs wrote in another encoding than UTF-8 (an
// ISO-8859-1 declaration, UTF-16 with a byte-order mark): OK in the fields or filters
// dialog saves them so that they read back the same, however often they are saved.
// Found by the fuzz targets: the declaration used to survive the save into UTF-8, and
// every character outside ASCII came back garbled, a little more after each OK.

#include "library/Library.h"
#include "support/DialogDriver.h"
#include "support/TestHost.h"

#include <QPushButton>
#include <QStringEncoder>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace bravcpl5 {
namespace {

const QString label = QStringLiteral("Größe ½");
const QString vendor = QStringLiteral("Müller & Söhne");

QString configuration(const QString &declaration)
{
    return declaration
           + QStringLiteral("<Report><Fields><Width label=\"%1\" width=\"2\"/></Fields>"
                            "<Filters><Vendor label=\"%1\" value=\"%2\"/></Filters></Report>")
                 .arg(label, QStringLiteral("Müller &amp; Söhne"));
}

struct Case {
    const char *name;
    QStringConverter::Encoding encoding;
    bool byteOrderMark;
    const char *declaration;
};

void PrintTo(const Case &c, std::ostream *out) { *out << c.name; }

struct Dialog {
    const char *name;
    bool (Library::*show)(const QString &);
    int valueColumn; // the column that shows what a save writes back
    QString shownValue;
};

class DeclaredEncoding : public ::testing::TestWithParam<Case>
{
protected:
    DeclaredEncoding() { library.Initialize(&host); }
    ~DeclaredEncoding() override { library.PreTerminate(); }

    // Opens the dialog on `file`, notes the first row's caption and value, and confirms it.
    std::pair<QString, QString> okIn(const Dialog &dialog, const QString &file)
    {
        std::pair<QString, QString> row;
        test::WhenModal(QString::fromLatin1(dialog.name), [&](QWidget *form) {
            const QTreeWidgetItem *item =
                form->findChild<QTreeWidget *>("rptItems")->topLevelItem(0);
            if (item)
                row = {item->text(0), item->text(dialog.valueColumn)};
            form->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
        });
        EXPECT_TRUE((library.*dialog.show)(file));
        return row;
    }

    test::TestHost host;
    Library library;
};

TEST_P(DeclaredEncoding, OkSavesWhatReadsBackTheSame)
{
    const Case c = GetParam();
    const QStringEncoder::Flags flags = c.byteOrderMark ? QStringConverter::Flag::WriteBom
                                                        : QStringConverter::Flag::Default;
    QStringEncoder encoder(c.encoding, flags);
    const QByteArray bytes = encoder.encode(configuration(QString::fromLatin1(c.declaration)));

    const Dialog dialogs[] = {
        {"frmGeneralReportFields", &Library::ShowGeneralReportFields, 1, QStringLiteral("2")},
        {"frmGeneralReportFilters", &Library::ShowGeneralReportFilters, 1, vendor},
    };
    for (const Dialog &dialog : dialogs) {
        SCOPED_TRACE(dialog.name);
        const QString file = host.writeSystemFile(QStringLiteral("Orders.rpx"), bytes);
        for (int save = 1; save <= 3; ++save) {
            SCOPED_TRACE(save);
            const auto [caption, value] = okIn(dialog, file);
            EXPECT_EQ(caption.toStdString(), label.toStdString());
            EXPECT_EQ(value.toStdString(), dialog.shownValue.toStdString());
        }
        EXPECT_FALSE(test::readFile(file).contains("encoding"))
            << test::readFile(file).toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, DeclaredEncoding,
    ::testing::Values(Case{"Latin1Declared", QStringConverter::Latin1, false,
                           "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"},
                      Case{"Latin1DeclaredInCapitals", QStringConverter::Latin1, false,
                           "<?xml version='1.0' encoding='LATIN1'?>"},
                      // What the parser's encoding guess also takes for an ISO-8859-1 declaration.
                      Case{"Latin1DeclaredAfterAStrayByte", QStringConverter::Latin1, false,
                           "<?xml version=\"1.0\" \xff"
                           "encoding=\"ISO-8859-1\"?>"},
                      Case{"Latin1HiddenInTheVersion", QStringConverter::Latin1, false,
                           "<?xml version=\"encoding='latin1'\"?>"},
                      Case{"Utf16LittleEndianDeclared", QStringConverter::Utf16LE, true,
                           "<?xml version=\"1.0\" encoding=\"UTF-16\"?>"},
                      Case{"Utf16BigEndian", QStringConverter::Utf16BE, true, ""},
                      Case{"Utf8WithMarkDeclared", QStringConverter::Utf8, true,
                           "<?xml version=\"1.0\" encoding=\"utf-8\"?>"},
                      Case{"Utf8Plain", QStringConverter::Utf8, false,
                           "<?xml version=\"1.0\" standalone=\"yes\"?>"}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
} // namespace bravcpl5
