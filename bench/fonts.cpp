// GetFontHeight and ApplyFontSettingsToControl from the indexed fonts documents, side by
// side with evaluating the XPath on every call, over the default fonts of both families.

#include "layout/FontTypes.h"
#include "layout/ReportLayout.h"
#include "library/LateBinding.h"
#include "library/Library.h"
#include "library/ValueRules.h"
#include "library/Xml.h"
#include "report/ReportField.h"
#include "support/TestHost.h"

#include <QCoreApplication>
#include <QLocale>
#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace bravcpl5;

QByteArray fontsDocument(const char *family, std::int16_t reportType)
{
    QByteArray xml = QByteArray("<?xml version=\"1.0\"?>\n<ReportFonts><") + family + '>';
    for (const FontDefinition &f : DefaultFonts(reportType)) {
        xml += QStringLiteral(
                   "<Font type=\"%1\" name=\"%2\" bold=\"%3\" italic=\"%4\" underline=\"%5\" "
                   "strikeout=\"%6\" size=\"%7\" color=\"%8\"/>")
                   .arg(f.type)
                   .arg(f.name)
                   .arg(int(f.bold))
                   .arg(int(f.italic))
                   .arg(int(f.underline))
                   .arg(int(f.strikeout))
                   .arg(values::singleToText(f.size))
                   .arg(f.color)
                   .toUtf8();
    }
    return xml + "</" + family + "></ReportFonts>";
}

struct Setup {
    test::TestHost host;
    Library library;
    ReportLayout *layout = nullptr;
    XmlDocumentPtr general;

    Setup()
    {
        host.writeSystemFile(QStringLiteral("General Report Fonts.fox"),
                             fontsDocument("GeneralReports", generalReports));
        host.writeSystemFile(QStringLiteral("Process Report Fonts.fox"),
                             fontsDocument("ProcessReports", processReports));
        library.Initialize(&host);
        layout = library.reportLayout();
        general = layout->generalReportFontsDocument(false);
    }
};

Setup &setup()
{
    static Setup s;
    return s;
}

// Types 1 to 13 and one unknown, so that both found and missing types are measured.
std::int16_t nextType(std::int16_t &i) { return i = std::int16_t(i % 14 + 1); }

// The look-up as a per-call XPath would do it.
float heightByXPath(const pugi::xml_document &document, std::int16_t fieldType)
{
    const pugi::xml_node font =
        SelectSingleNode(
            document,
            QStringLiteral("//ReportFonts/GeneralReports/Font[@type = '%1']").arg(fieldType))
            .node();
    if (!font)
        return 242;
    const auto size = values::textToSingle(
        GetXmlAttribute(font, QStringLiteral("size"), QStringLiteral("10")));
    return size ? *size * 22 + 22 : 242;
}

void applyByXPath(const pugi::xml_document &document, QObject *control, std::int16_t fieldType)
{
    for (const pugi::xpath_node &selected :
         document.select_nodes("//ReportFonts/GeneralReports/Font")) {
        const pugi::xml_node node = selected.node();
        if (values::textToInt16(GetXmlAttribute(node, QStringLiteral("type"), QStringLiteral("0")))
            != fieldType)
            continue;
        auto attribute = [&](const char *name, const char *fallback) {
            return GetXmlAttribute(node, QString::fromLatin1(name), QString::fromLatin1(fallback));
        };
        auto flag = [&](const char *name) {
            return QVariant(values::leadingNumber(attribute(name, "0")) != 0);
        };
        QObject *font = late::object(control, "Font");
        late::set(font, "Name", attribute("name", "Arial"));
        late::set(font, "Bold", flag("bold"));
        late::set(font, "Italic", flag("italic"));
        if (const auto size = values::textToInt16(attribute("size", "12")))
            late::set(font, "Size", int(*size));
        late::set(font, "Underline", flag("underline"));
        late::set(font, "Strikethrough", flag("strikeout"));
        if (const auto color = values::textToInt32(attribute("color", "0")))
            late::set(control, "ForeColor", *color);
        return;
    }
}

void GetFontHeight_Indexed(benchmark::State &state)
{
    ReportLayout *layout = setup().layout;
    std::int16_t type = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(layout->GetFontHeight(generalReports, nextType(type)));
}
BENCHMARK(GetFontHeight_Indexed);

void GetFontHeight_XPathPerCall(benchmark::State &state)
{
    const pugi::xml_document &document = *setup().general;
    std::int16_t type = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(heightByXPath(document, nextType(type)));
}
BENCHMARK(GetFontHeight_XPathPerCall);

void ApplyFontSettingsToControl_Indexed(benchmark::State &state)
{
    ReportLayout *layout = setup().layout;
    ReportField control;
    std::int16_t type = 0;
    for (auto _ : state)
        layout->ApplyFontSettingsToControl(&control, generalReports, nextType(type));
}
BENCHMARK(ApplyFontSettingsToControl_Indexed);

void ApplyFontSettingsToControl_XPathPerCall(benchmark::State &state)
{
    const pugi::xml_document &document = *setup().general;
    ReportField control;
    std::int16_t type = 0;
    for (auto _ : state)
        applyByXPath(document, &control, nextType(type));
}
BENCHMARK(ApplyFontSettingsToControl_XPathPerCall);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
