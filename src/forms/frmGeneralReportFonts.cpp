#include "forms/frmGeneralReportFonts.h"

#include "ui_frmGeneralReportFonts.h"

#include "forms/FontColorDialog.h"
#include "forms/ReportGrid.h"
#include "layout/ReportFontList.h"
#include "layout/ReportLayout.h"
#include "layout/WindowsColor.h"
#include "library/Messages.h"
#include "library/ValueRules.h"
#include "library/Xml.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QStyle>

namespace bravcpl5 {

namespace {

QString flag(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }

QFont qtFont(const FontDefinition &font)
{
    QFont qt(font.name);
    qt.setPointSizeF(qMax(1.0f, font.size));
    qt.setBold(font.bold);
    qt.setItalic(font.italic);
    qt.setUnderline(font.underline);
    qt.setStrikeOut(font.strikeout);
    return qt;
}

} // namespace

frmGeneralReportFonts::frmGeneralReportFonts(std::int16_t reportType, QWidget *parent)
    : ModalForm(parent, false, Placement::Default),
      ui(std::make_unique<Ui::frmGeneralReportFonts>())
{
    m_list.reportType = reportType;
    ui->setupUi(this);
    if (reportType == processReports) {
        setObjectName(QStringLiteral("frmProcessReportFonts"));
        setWindowTitle(QStringLiteral("Process Report Fonts"));
    }
    SetupFontList();
    connect(ui->cmdChangeFont, &QPushButton::clicked, this,
            &frmGeneralReportFonts::cmdChangeFont_Click);
    connect(ui->cmdResetToDefaults, &QPushButton::clicked, this,
            &frmGeneralReportFonts::ResetFontList);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmGeneralReportFonts::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmGeneralReportFonts::cmdCancel_Click);
}

frmGeneralReportFonts::~frmGeneralReportFonts() = default;

void frmGeneralReportFonts::SetUp(ReportLayout *layout)
{
    m_layout = layout;
    setOwner(layout ? layout->owner() : nullptr);
}

void frmGeneralReportFonts::SetupFontList()
{
    // Every cell is read-only: a row is changed through the font dialog.
    CellEditor *editor = SetupReportGrid(ui->rptFonts, {FieldColumn, {}, false});
    connect(editor, &CellEditor::activated, this, &frmGeneralReportFonts::cmdChangeFont_Click);
    ui->rptFonts->setColumnWidth(FieldColumn, 180);
    ui->rptFonts->setColumnWidth(FontColumn, 200);
    for (int column = FaceColumn; column < ColumnCount; ++column)
        ui->rptFonts->setColumnHidden(column, true);
    ui->rptFonts->header()->setSectionResizeMode(QHeaderView::Interactive);
}

void frmGeneralReportFonts::firstActivation()
{
    LoadFontList();
    m_list.addMissingTypes();
    showFonts();
}

void frmGeneralReportFonts::LoadFontList()
{
    // A fresh document, never the service's cached one.
    XmlDocumentPtr document;
    if (m_layout)
        document = m_list.reportType == processReports
                       ? m_layout->processReportFontsDocument()
                       : m_layout->generalReportFontsDocument(false);
    if (!document) {
        ResetFontList();
        return;
    }
    m_list.read(*document);
    showFonts();
}

void frmGeneralReportFonts::ResetFontList()
{
    m_list.fonts = DefaultFonts(m_list.reportType);
    showFonts();
}

QTreeWidgetItem *frmGeneralReportFonts::rowItem(const FontDefinition &font) const
{
    auto *item = new QTreeWidgetItem(
        {FontTypeDisplayName(m_list.reportType, font.type), FontTypeSample(font.type), font.name,
         flag(font.bold), flag(font.italic), flag(font.underline), flag(font.strikeout),
         values::singleToText(font.size), values::integerToText(font.color),
         values::integerToText(font.type)});
    // The row is as tall as its font at this screen's resolution, and 14 pixels more. A
    // font whose lines are taller still is drawn a little smaller, so that the sample stays
    // whole within its row.
    const int height = qRound(font.size * logicalDpiY() / 72.0) + 14;
    const QFont sample = fittedFont(qtFont(font), height);
    item->setData(FontColumn, Qt::FontRole, sample);
    item->setData(FontColumn, Qt::ForegroundRole, ColorFromWindows(font.color));
    // Each shown cell asks for that height, and for the width its text takes, so that a
    // column fitted to its contents still shows them whole.
    const int margins = 2
                        * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, ui->rptFonts)
                           + 1);
    const QFontMetrics fieldMetrics = ui->rptFonts->fontMetrics();
    const QFontMetrics sampleMetrics(sample, this);
    item->setSizeHint(
        FieldColumn,
        QSize(fieldMetrics.horizontalAdvance(item->text(FieldColumn)) + margins, height));
    item->setSizeHint(
        FontColumn,
        QSize(sampleMetrics.horizontalAdvance(item->text(FontColumn)) + margins, height));
    return item;
}

QFont frmGeneralReportFonts::fittedFont(QFont font, int height) const
{
    int pixels = qRound(font.pointSizeF() * logicalDpiY() / 72.0);
    while (pixels > 1 && QFontMetrics(font, this).height() > height)
        font.setPixelSize(--pixels);
    return font;
}

void frmGeneralReportFonts::showFonts()
{
    const int current = ui->rptFonts->indexOfTopLevelItem(ui->rptFonts->currentItem());
    ui->rptFonts->clear();
    QList<QTreeWidgetItem *> rows;
    rows.reserve(m_list.fonts.size());
    for (const FontDefinition &font : std::as_const(m_list.fonts))
        rows.append(rowItem(font));
    ui->rptFonts->addTopLevelItems(rows);
    if (!rows.isEmpty())
        ui->rptFonts->setCurrentItem(rows.at(qBound(0, current, int(rows.size()) - 1)),
                                     FieldColumn);
}

void frmGeneralReportFonts::cmdChangeFont_Click()
{
    const int row = ui->rptFonts->indexOfTopLevelItem(ui->rptFonts->currentItem());
    if (row < 0 || row >= m_list.fonts.size())
        return;
    FontDefinition &font = m_list.fonts[row];
    FontColorDialog dialog(this);
    dialog.setCurrentFont(qtFont(font));
    dialog.setColor(ColorFromWindows(font.color));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QFont chosen = dialog.currentFont();
    if (chosen.family().isEmpty())
        return;
    font.name = chosen.family();
    font.size = float(chosen.pointSizeF());
    font.bold = chosen.bold();
    font.italic = chosen.italic();
    font.underline = chosen.underline();
    font.strikeout = chosen.strikeOut();
    font.color = WindowsColor(dialog.color());
    showFonts();
}

void frmGeneralReportFonts::SaveFontList()
{
    // The user's copy, even where only the system's exists; a failed save is named to the
    // user, and the dialog closes as confirmed all the same.
    if (!m_layout)
        return;
    const QString file = m_list.reportType == processReports
                             ? m_layout->ProcessReportFontsFile(true)
                             : m_layout->GeneralReportFontsFile(true);
    QString why;
    if (!file.isEmpty() && !m_list.save(file, &why) && !why.isEmpty())
        ShowSaveFailure(file, why, this);
}

void frmGeneralReportFonts::cmdOK_Click()
{
    SaveFontList();
    setCancelled(false);
    accept();
}

void frmGeneralReportFonts::cmdCancel_Click()
{
    setCancelled(true);
    reject();
}

bool ReportLayout::ShowGeneralReportFonts()
{
    return ShowModalForm<frmGeneralReportFonts>(
        [this](frmGeneralReportFonts &form) { form.SetUp(this); }, [](frmGeneralReportFonts &) {},
        generalReports);
}

bool ReportLayout::ShowProcessReportFonts()
{
    return ShowModalForm<frmGeneralReportFonts>(
        [this](frmGeneralReportFonts &form) { form.SetUp(this); }, [](frmGeneralReportFonts &) {},
        processReports);
}

} // namespace bravcpl5
