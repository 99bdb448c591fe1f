// Settings files that no one here wrote and no real program would: nested tens of
// thousands of levels deep, in UTF-16, or malformed. Every published member that reads
// them gives its empty answer quickly and the host keeps running.

#include "layout/ReportLayout.h"
#include "library/Xml.h"
#include "support/FakeReport.h"
#include "support/StoreFixture.h"

#include <QStringEncoder>

namespace bravcpl5::test {
namespace {

// `levels` nested elements holding `inner`.
QByteArray nested(int levels, const QByteArray &inner)
{
    return QByteArray("<a>").repeated(levels) + inner + QByteArray("</a>").repeated(levels);
}

class HostileFiles : public StoreFixture, public ::testing::WithParamInterface<int>
{
};

TEST_P(HostileFiles, DeeplyNestedSettingsReadAsNothing)
{
    const int levels = GetParam();
    host.writeSystemFile(QStringLiteral("Deep.pcx"),
                         "<PrinterConfiguration><Identification><System>" + nested(levels, "1")
                             + "</System></Identification><PageSetup><TopMargin>"
                             + nested(levels, "2")
                             + "</TopMargin></PageSetup></PrinterConfiguration>");
    host.writeSystemFile(QStringLiteral("General Report Layout.lyx"),
                         "<Definition><Header>" + nested(levels, "") + "</Header></Definition>");
    host.writeSystemFile(QStringLiteral("General Report Fonts.fox"),
                         "<ReportFonts><GeneralReports>"
                             + nested(levels, "<Font type=\"1\" size=\"30\"/>")
                             + "</GeneralReports></ReportFonts>");

    EXPECT_FALSE(store->PrinterConfigurationIsSystem(QStringLiteral("Deep")));
    FakeReport report;
    EXPECT_FALSE(store->SetupPageFromPrinterConfiguration(QStringLiteral("Deep"), &report));
    EXPECT_FALSE(report.writes.join(' ').contains("TopMargin"))
        << report.writes.join(' ').toStdString();
    ReportLayout *layout = library.reportLayout();
    EXPECT_EQ(layout->LoadGeneralReportLayout(), QString());
    EXPECT_EQ(layout->LoadGeneralReportFonts(), QString());
    EXPECT_EQ(layout->GetFontHeight(1, 1), layout->GetFontHeight(1, 2)); // the defaults, not 30
    EXPECT_TRUE(LastXmlError().contains("nested")) << LastXmlError().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Levels, HostileFiles, ::testing::Values(65, 52000, 100000));

TEST_F(StoreFixture, DocumentsUpToSixtyFourLevelsLoadAndSaveAtAboutTheirOwnSize)
{
    // 64 levels with many small elements: what a save adds stays a small factor.
    const QByteArray body = QByteArray("<b/>").repeated(2000);
    const QByteArray text = "<R>" + nested(61, "<c>" + body + "</c>") + "</R>"; // b is level 64
    const XmlDocumentPtr document = LoadXmlText(QString::fromUtf8(text));
    ASSERT_TRUE(document) << LastXmlError().toStdString();
    const QByteArray saved = XmlDocumentText(*document);
    EXPECT_LT(saved.size(), 3 * text.size());
    EXPECT_TRUE(LoadXmlText(QString::fromUtf8(saved)));
    EXPECT_FALSE(LoadXmlText(QString::fromUtf8("<R>" + nested(64, "") + "</R>")));

    // Shallow documents stay indented for people to read.
    const XmlDocumentPtr shallow = LoadXmlText(QStringLiteral("<R><A><B>x</B></A></R>"));
    ASSERT_TRUE(shallow);
    EXPECT_EQ(XmlDocumentText(*shallow),
              "<?xml version=\"1.0\"?>\n<R>\n  <A>\n    <B>x</B>\n  </A>\n</R>\n");
}

TEST_F(StoreFixture, AnEditorsUtf16FileLoadsAndAMalformedOneSaysWhere)
{
    const QString xml = QStringLiteral(
        "<PrinterConfiguration><Identification><System>1</System>"
        "</Identification><Note>Größe ½</Note></PrinterConfiguration>");
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        host.writeSystemFile(QStringLiteral("Wide.pcx"), encoder.encode(xml));
        EXPECT_TRUE(store->PrinterConfigurationIsSystem(QStringLiteral("Wide")));
        const XmlDocumentPtr document = LoadXmlFile(
            store->GetPrinterConfigurationFileFromName("Wide"));
        ASSERT_TRUE(document);
        EXPECT_EQ(GetXmlValue(QStringLiteral("//Note"), *document, {}), QStringLiteral("Größe ½"));
    }
    const QString broken = host.writeSystemFile(QStringLiteral("Broken.pcx"),
                                                "<PrinterConfiguration><System>1</Sys>");
    EXPECT_FALSE(LoadXmlFile(broken));
    EXPECT_TRUE(LastXmlError().endsWith("at offset 33")) << LastXmlError().toStdString();
}

} // namespace
} // namespace bravcpl5::test
