#pragma once

// The report fonts dialogs: one row per font type of a report family with its name and a
// sample drawn in the font; "Change..." (or a double click, or Enter on a row) edits a row
// through the font dialog, "Reset Fonts to Defaults" puts the family's defaults back, and
// OK saves the list as the user's copy of the family's fonts file. The same dialog serves
// general reports (frmGeneralReportFonts) and process reports (frmProcessReportFonts).
// Cancelled starts False, so the close box reads as confirmed although nothing is saved.

#include "forms/ModalForm.h"
#include "layout/FontTypes.h"
#include "layout/ReportFontList.h"

#include <QFont>
#include <QPointer>
#include <memory>

namespace Ui {
class frmGeneralReportFonts;
}
class QTreeWidgetItem;

namespace bravcpl5 {

class ReportLayout;

class frmGeneralReportFonts : public ModalForm
{
    Q_OBJECT

public:
    // `reportType` is generalReports or processReports: it picks the face.
    explicit frmGeneralReportFonts(std::int16_t reportType, QWidget *parent = nullptr);
    ~frmGeneralReportFonts() override;

    void SetUp(ReportLayout *layout);

protected:
    void firstActivation() override;

private:
    enum Column {
        FieldColumn,
        FontColumn,
        FaceColumn,
        BoldColumn,
        ItalicColumn,
        UnderlineColumn,
        StrikeoutColumn,
        SizeColumn,
        ColorColumn,
        TypeColumn,
        ColumnCount
    };

    void SetupFontList();
    void LoadFontList();
    void ResetFontList();
    void SaveFontList();
    void cmdChangeFont_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    // Shows the list as it stands, keeping the current row.
    void showFonts();
    QTreeWidgetItem *rowItem(const FontDefinition &font) const;
    // `font`, or the largest smaller size of it whose lines fit `height` pixels here.
    QFont fittedFont(QFont font, int height) const;

    std::unique_ptr<Ui::frmGeneralReportFonts> ui;
    QPointer<ReportLayout> m_layout;
    ReportFontList m_list; // what the grid shows, row for row
};

} // namespace bravcpl5
