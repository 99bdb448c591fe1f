#include "layout/ReportLayout.h"

#include "layout/FontTypes.h"
#include "layout/FormatPickers.h"
#include "layout/ReportFontsIndex.h"
#include "layout/ReportsFolderFile.h"
#include "library/LateBinding.h"
#include "library/Xml.h"

namespace bravcpl5 {

namespace {

QString documentText(const XmlDocumentPtr &document)
{
    return document ? QString::fromUtf8(XmlDocumentText(*document)) : QString();
}

XmlDocumentPtr loadIfExists(const QString &path)
{
    return FileExists(path) ? LoadXmlFile(path) : nullptr;
}

// The configuration file's folder (separator kept), base name and ".lyx".
QString layoutFileBeside(const QString &configurationFile)
{
    if (configurationFile.isEmpty())
        return QString();
    const qsizetype separator = qMax(configurationFile.lastIndexOf(u'/'),
                                     configurationFile.lastIndexOf(u'\\'));
    QString baseName = configurationFile.mid(separator + 1);
    const qsizetype dot = baseName.lastIndexOf(u'.');
    if (dot >= 0)
        baseName.truncate(dot);
    return configurationFile.left(separator + 1) + baseName + QStringLiteral(".lyx");
}

} // namespace

ReportLayout::ReportLayout(QObject *parent) : Service(parent) {}

ReportLayout::~ReportLayout() = default;

QString ReportLayout::GetLayoutFile(const QString &ConfigurationFile)
{
    return layoutFileBeside(ConfigurationFile);
}

XmlDocumentPtr ReportLayout::generalReportLayoutDocument(const QString &configurationFile) const
{
    QString path = layoutFileBeside(configurationFile);
    if (!FileExists(path))
        path = ResolveReportsFile(host(), QString::fromLatin1(generalReportLayoutFileName), false);
    return loadIfExists(path);
}

QString ReportLayout::LoadGeneralReportLayout(const QString &ConfigurationFile)
{
    return documentText(generalReportLayoutDocument(ConfigurationFile));
}

QString ReportLayout::GeneralReportLayoutFile(bool ForceUser)
{
    return ResolveReportsFile(host(), QString::fromLatin1(generalReportLayoutFileName), ForceUser);
}

XmlDocumentPtr ReportLayout::generalReportFontsDocument(bool copyToUser) const
{
    return loadIfExists(
        ResolveReportsFile(host(), QString::fromLatin1(generalReportFontsFileName), copyToUser));
}

XmlDocumentPtr ReportLayout::processReportFontsDocument() const
{
    return loadIfExists(
        ResolveReportsFile(host(), QString::fromLatin1(processReportFontsFileName), false));
}

QString ReportLayout::LoadGeneralReportFonts(bool CopyToUser)
{
    return documentText(generalReportFontsDocument(CopyToUser));
}

QString ReportLayout::GeneralReportFontsFile(bool ForceUser)
{
    return ResolveReportsFile(host(), QString::fromLatin1(generalReportFontsFileName), ForceUser);
}

QString ReportLayout::LoadProcessReportFonts()
{
    return documentText(processReportFontsDocument());
}

QString ReportLayout::ProcessReportFontsFile(bool ForceUser)
{
    return ResolveReportsFile(host(), QString::fromLatin1(processReportFontsFileName), ForceUser);
}

void ReportLayout::ownerAttached()
{
    m_generalFonts.reset();
    m_processFonts.reset();
    if (const XmlDocumentPtr general = generalReportFontsDocument(false))
        m_generalFonts = std::make_unique<const ReportFontsIndex>(*general, generalReports);
    if (const XmlDocumentPtr process = processReportFontsDocument())
        m_processFonts = std::make_unique<const ReportFontsIndex>(*process, processReports);
}

void ReportLayout::ownerReleasing()
{
    m_processFonts.reset();
    m_generalFonts.reset();
}

const ReportFontsIndex *ReportLayout::fonts(qint16 reportType) const
{
    // Both documents must be there, whichever family is asked for.
    if (!m_generalFonts || !m_processFonts)
        return nullptr;
    if (reportType == generalReports)
        return m_generalFonts.get();
    if (reportType == processReports)
        return m_processFonts.get();
    return nullptr;
}

float ReportLayout::GetFontHeight(qint16 ReportType, qint16 FieldType)
{
    const ReportFontsIndex *index = fonts(ReportType);
    return index ? index->height(FieldType) : ReportFontsIndex::defaultHeight;
}

void ReportLayout::ApplyFontSettingsToControl(QObject *oControl, qint16 ReportType,
                                              qint16 FieldType)
{
    if (const ReportFontsIndex *index = fonts(ReportType)) {
        if (const ControlFont *font = index->font(FieldType))
            ApplyControlFont(oControl, *font);
    }
}

void ReportLayout::ApplyTextFormatSettingsToControl(QObject *oControl, qint16 Bold)
{
    if (Bold == 1 || Bold == 2)
        late::set(late::object(oControl, "Font"), "Bold", Bold == 2);
}

bool ReportLayout::ApplyAlignmentToControl(QObject *oControl, qint16 Alignment)
{
    if (Alignment != pickers::alignLeft && Alignment != pickers::alignRight
        && Alignment != pickers::alignCenter)
        return true;
    return late::set(oControl, "Alignment", int(Alignment));
}

bool ReportLayout::ApplyBorderToControl(QObject *oControl, qint16 BorderPreset)
{
    for (const pickers::BorderPreset &preset : pickers::borderPresets) {
        if (preset.code != BorderPreset)
            continue;
        const std::pair<const char *, std::int16_t> sides[] = {{"LeftStyle", preset.left},
                                                               {"TopStyle", preset.top},
                                                               {"RightStyle", preset.right},
                                                               {"BottomStyle", preset.bottom}};
        QObject *border = nullptr;
        for (const auto &[side, style] : sides) {
            if (style == pickers::lineNone)
                continue;
            if (!border)
                border = late::object(oControl, "Border");
            if (!late::set(border, side, int(style)))
                return false;
        }
    }
    return true;
}

bool ReportLayout::ApplyBorderColorSettingsToControl(QObject *oControl, qint32 Color)
{
    QObject *border = late::object(oControl, "Border");
    for (const char *side : {"LeftColor", "TopColor", "RightColor", "BottomColor"}) {
        if (!late::set(border, side, Color))
            return false;
    }
    return true;
}

bool ReportLayout::ApplyTextColorSettingsToControl(QObject *oControl, qint32 Color)
{
    return late::set(oControl, "ForeColor", Color);
}

bool ReportLayout::ApplyBackColorSettingsToControl(QObject *oControl, qint32 Color)
{
    const int backStyle = Color != 0 ? 1 : 0; // opaque, or transparent for 0
    return late::set(oControl, "BackStyle", backStyle) && late::set(oControl, "BackColor", Color);
}

} // namespace bravcpl5
