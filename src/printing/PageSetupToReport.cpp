#include "printing/PageSetupToReport.h"

#include "library/LateBinding.h"
#include "library/ValueRules.h"
#include "library/Xml.h"
#include "printing/ConfigurationElements.h"
#include "printing/ReportContract.h"

#include <optional>

namespace bravcpl5 {

namespace {

QString name(const char *member) { return QString::fromLatin1(member); }

// A length in inches as twips; none when the twip count is beyond a single.
std::optional<float> twips(pugi::xml_node node, const char *member, float defaultInches)
{
    return values::toSingle(double(GetXmlSingle(name(member), node, defaultInches)) * TwipsPerInch);
}

void setLength(QObject *settings, const char *member, std::optional<float> value)
{
    if (value)
        late::set(settings, member, *value);
}

std::optional<double> readNumber(QObject *settings, const char *member)
{
    bool ok = false;
    const double number = late::value(settings, member).toDouble(&ok);
    return ok ? std::optional<double>(number) : std::nullopt;
}

} // namespace

void ApplyPageSetupToReport(pugi::xml_node node, QObject *report)
{
    QObject *settings = late::object(report, report::pageSettings);

    late::set(settings, report::paperSize, int(GetXmlInteger(name(pagesetup::paperSize), node, 1)));
    setLength(settings, report::paperWidth, twips(node, pagesetup::paperWidth, 8));
    setLength(settings, report::paperHeight, twips(node, pagesetup::paperHeight, 11));
    late::set(settings, report::paperSource,
              int(GetXmlInteger(name(pagesetup::paperSource), node, 7)));
    setLength(settings, report::topMargin, twips(node, pagesetup::topMargin, 1));
    setLength(settings, report::bottomMargin, twips(node, pagesetup::bottomMargin, 1));
    setLength(settings, report::leftMargin, twips(node, pagesetup::leftMargin, 1));
    setLength(settings, report::rightMargin, twips(node, pagesetup::rightMargin, 1));
    // The gutter goes through the twips conversion twice: 0.5 inch reaches the report as
    // 1036800. Reports laid out against this behaviour depend on it, so it stays.
    if (const auto gutter = twips(node, pagesetup::gutter, 0))
        setLength(settings, report::gutter, values::toSingle(double(*gutter) * TwipsPerInch));
    late::set(settings, report::mirrorMargins,
              GetXmlInteger(name(pagesetup::mirrorMargins), node, 0) > 0);
    late::set(settings, report::orientation,
              GetXmlInteger(name(pagesetup::orientation), node, 0) == 0 ? report::portrait
                                                                        : report::landscape);

    const auto width = readNumber(settings, report::paperWidth);
    const auto right = readNumber(settings, report::rightMargin);
    const auto left = readNumber(settings, report::leftMargin);
    if (width && right && left)
        setLength(report, report::printWidth, values::toSingle(*width - *right - *left));
}

} // namespace bravcpl5
