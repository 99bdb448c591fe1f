#pragma once

#include "bravcpl5_export.h"
#include "library/Service.h"
#include "library/XmlDocument.h"

#include <QString>
#include <memory>

namespace bravcpl5 {

class ReportFontsIndex;

// The report-layout service: report fonts, the formatting of report controls and the
// general report layout.
//
// XML documents are published as their text ("" for no document); C++ callers may take
// the document itself from the ...Document members.
//
// Report controls are reached late-bound: any object with a `Font` object (Name, Bold,
// Italic, Size, Underline, Strikethrough), ForeColor, BackColor, BackStyle, Alignment and a
// `Border` object (LeftStyle...BottomStyle, LeftColor...BottomColor) will do.
// ApplyFontSettingsToControl and ApplyTextFormatSettingsToControl ignore what the control
// refuses. The other Apply... members report a refused assignment to their caller as an
// automation error would: they stop at the failing assignment and return false (true
// when every assignment they made succeeded, including when the code asks for none).
class BRAVCPL5_EXPORT ReportLayout : public Service
{
    Q_OBJECT
    Q_CLASSINFO("ProgId", "bravcpl5.ReportLayout")

public:
    Q_INVOKABLE explicit ReportLayout(QObject *parent = nullptr);
    ~ReportLayout() override;

    // The report's own layout file: beside the configuration file, same base name, ".lyx".
    // The file need not exist.
    Q_INVOKABLE QString GetLayoutFile(const QString &ConfigurationFile);
    // The report's own layout when it exists, else the general one; "" when neither does.
    Q_INVOKABLE QString LoadGeneralReportLayout(const QString &ConfigurationFile = QString());
    // The report fonts dialogs of general and of process reports; true unless the user
    // cancelled. Saving does not change the fonts this service cached when it was created.
    // Defined beside their dialog, in forms/frmGeneralReportFonts.cpp.
    Q_INVOKABLE bool ShowGeneralReportFonts();
    Q_INVOKABLE bool ShowProcessReportFonts();
    // The layout dialog on `LayoutFile`, or on the general layout file when it is empty or
    // left out; true unless the user cancelled. Defined beside its dialog, in
    // forms/frmGeneralReportLayout.cpp.
    Q_INVOKABLE bool ShowGeneralReportLayout(const QString &LayoutFile = QString());
    // The user copy of "General Report Layout.lyx" when it exists (or whenever ForceUser is
    // set and there is a user folder), else the system copy when it exists, else "".
    Q_INVOKABLE QString GeneralReportLayoutFile(bool ForceUser = false);
    // The document of GeneralReportFontsFile(CopyToUser), or "". CopyToUser only forces the
    // user path; nothing is copied.
    Q_INVOKABLE QString LoadGeneralReportFonts(bool CopyToUser = false);
    Q_INVOKABLE QString GeneralReportFontsFile(bool ForceUser = false);
    Q_INVOKABLE QString LoadProcessReportFonts();
    Q_INVOKABLE QString ProcessReportFontsFile(bool ForceUser = false);

    // From the fonts documents as they were when the Library created this service; both
    // must have been there. Twips for a one-line control: 242 unless the report type's
    // document has a font of that type.
    Q_INVOKABLE float GetFontHeight(qint16 ReportType, qint16 FieldType);
    Q_INVOKABLE void ApplyFontSettingsToControl(QObject *oControl, qint16 ReportType,
                                                qint16 FieldType);

    // Bold 1 clears Font.Bold, 2 sets it; anything else changes nothing.
    Q_INVOKABLE void ApplyTextFormatSettingsToControl(QObject *oControl, qint16 Bold);
    // 0 left, 1 right, 2 centre; anything else changes nothing.
    Q_INVOKABLE bool ApplyAlignmentToControl(QObject *oControl, qint16 Alignment);
    // Sets the sides the preset names (layout/FormatPickers.h), never clearing one, so
    // presets accumulate; 0 and unknown presets change nothing.
    Q_INVOKABLE bool ApplyBorderToControl(QObject *oControl, qint16 BorderPreset);
    // All four side colours, whatever their styles.
    Q_INVOKABLE bool ApplyBorderColorSettingsToControl(QObject *oControl, qint32 Color);
    Q_INVOKABLE bool ApplyTextColorSettingsToControl(QObject *oControl, qint32 Color);
    // Opaque with that colour, or transparent for 0 (the way to remove a fill).
    Q_INVOKABLE bool ApplyBackColorSettingsToControl(QObject *oControl, qint32 Color);

    // The documents behind the Load... members; null for no document.
    XmlDocumentPtr generalReportLayoutDocument(const QString &configurationFile) const;
    XmlDocumentPtr generalReportFontsDocument(bool copyToUser) const;
    XmlDocumentPtr processReportFontsDocument() const;

protected:
    // Caches both fonts documents when the Library attaches this service, and forgets
    // them when it lets go.
    void ownerAttached() override;
    void ownerReleasing() override;

private:
    const ReportFontsIndex *fonts(qint16 reportType) const;

    std::unique_ptr<const ReportFontsIndex> m_generalFonts;
    std::unique_ptr<const ReportFontsIndex> m_processFonts;
};

} // namespace bravcpl5
