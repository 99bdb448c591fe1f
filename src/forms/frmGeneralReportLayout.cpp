#include "forms/frmGeneralReportLayout.h"

#include "ui_frmGeneralReportLayout.h"

#include "layout/FontTypes.h"
#include "layout/FormatPickers.h"
#include "layout/FurnitureFormats.h"
#include "layout/ReportFontsIndex.h"
#include "layout/ReportFurniture.h"
#include "layout/ReportLayout.h"
#include "library/LateBinding.h"
#include "library/Messages.h"
#include "library/Units.h"
#include "library/ValueRules.h"
#include "printers/PaperSizeCodes.h"
#include "printing/PageSetupFields.h"
#include "printing/PrinterConfigurations.h"

#include <QCloseEvent>
#include <QFileInfo>

namespace bravcpl5 {

namespace {

// What the preview shows for the report's own texts.
const ReportTitles sampleTitles{QStringLiteral("Report Title"), QStringLiteral("Report Subtitle"),
                                QStringLiteral("What the report lists")};
constexpr int samplePage = 1;
constexpr int samplePageCount = 3;

void addAlignments(QComboBox *list, std::initializer_list<std::int16_t> codes)
{
    for (std::int16_t code : codes) {
        const char *caption = code == pickers::alignLeft    ? "Left"
                              : code == pickers::alignRight ? "Right"
                                                            : "Center";
        list->addItem(QString::fromLatin1(caption), code);
    }
}

// The formats of a list, each with what it prints now as its tooltip.
template <typename Format>
void addFormats(QComboBox *list, const QStringList &formats, Format example)
{
    for (const QString &format : formats) {
        list->addItem(format);
        list->setItemData(list->count() - 1, example(format), Qt::ToolTipRole);
    }
    list->setCurrentIndex(-1);
}

QString fileDate(const QDateTime &when) { return values::toGeneralDate(when); }

// Windows' code for Letter: the paper of a page setup that names none the preview knows.
constexpr int letterPaperCode = 1;

// The page a configuration prints on, in inches: its paper turned as it says, with its
// margins. A standard paper code stores no size of its own, so the code gives it. None
// without a page setup.
std::optional<FurniturePreview::Page> configurationPage(PrinterConfigurations *store,
                                                        const QString &configuration)
{
    PageSetupChoices asStored;
    asStored.storedCodes = true;
    PageSetup setup;
    if (!store || configuration.isEmpty()
        || !store->readPageSetup(configuration, asStored, PaperDefaults(), setup))
        return std::nullopt;
    if (setup.paperSize.value_or(0) < FirstPrinterPaperCode) {
        QSizeF points = PaperCodePoints(setup.paperSize.value_or(letterPaperCode));
        if (points.isEmpty())
            points = PaperCodePoints(letterPaperCode);
        setup.paperWidth = PaperLengthText(qRound(points.width() * TwipsPerPoint));
        setup.paperHeight = PaperLengthText(qRound(points.height() * TwipsPerPoint));
    }
    const PageSetupPreviewInfo page = PreviewRecord(setup);
    if (page.PaperWidth <= 0 || page.PaperHeight <= 0)
        return std::nullopt;
    return FurniturePreview::Page{
        QSizeF(page.PaperWidth, page.PaperHeight) / TwipsPerInch,
        QMarginsF(page.LeftMargin, page.TopMargin, page.RightMargin, page.BottomMargin)
            / TwipsPerInch};
}

} // namespace

frmGeneralReportLayout::frmGeneralReportLayout(QWidget *parent)
    : ModalForm(parent, false, Placement::Default),
      ui(std::make_unique<Ui::frmGeneralReportLayout>())
{
    ui->setupUi(this);
    m_items = {
        {&GeneralReportLayout::company, ui->chkCompany, ui->txtCompany, nullptr,
         ui->cboCompanyAlignment},
        {&GeneralReportLayout::title, ui->chkTitle, nullptr, nullptr, ui->cboTitleAlignment},
        {&GeneralReportLayout::description, ui->chkDescription, nullptr, nullptr,
         ui->cboDescriptionAlignment},
        {&GeneralReportLayout::subTitle, ui->chkSubTitle, nullptr, nullptr,
         ui->cboSubTitleAlignment},
        {&GeneralReportLayout::printDate, ui->chkPrintDate, nullptr, ui->cboPrintDateFormat,
         ui->cboPrintDateAlignment},
        {&GeneralReportLayout::printTime, ui->chkPrintTime, nullptr, ui->cboPrintTimeFormat,
         nullptr},
        {&GeneralReportLayout::extraLine, ui->chkExtraLine, ui->txtExtraLine, nullptr,
         ui->cboExtraLineAlignment},
        {&GeneralReportLayout::pageNumber, ui->chkPageNumber, nullptr, ui->cboPageNumberFormat,
         ui->cboPageNumberAlignment},
    };

    // The alignment lists; the extra line and the page number are never centred.
    for (QComboBox *list :
         {ui->cboLogoAlignment, ui->cboCompanyAlignment, ui->cboTitleAlignment,
          ui->cboDescriptionAlignment, ui->cboSubTitleAlignment, ui->cboPrintDateAlignment})
        addAlignments(list, {pickers::alignLeft, pickers::alignRight, pickers::alignCenter});
    for (QComboBox *list : {ui->cboExtraLineAlignment, ui->cboPageNumberAlignment})
        addAlignments(list, {pickers::alignLeft, pickers::alignRight});
    const QDateTime now = QDateTime::currentDateTime();
    addFormats(ui->cboPrintDateFormat, PrintDateFormats(),
               [&](const QString &format) { return FormatPrintDate(format, now.date()); });
    addFormats(ui->cboPrintTimeFormat, PrintTimeFormats(),
               [&](const QString &format) { return FormatPrintTime(format, now.time()); });
    addFormats(ui->cboPageNumberFormat, PageNumberFormats(), [](const QString &format) {
        return FormatPageNumber(format, samplePage, samplePageCount);
    });
    ui->cboLogoAlignment->setCurrentIndex(-1);

    // What shows before (or without) a document is the document's own defaults.
    toControls(GeneralReportLayout());

    for (QCheckBox *box : findChildren<QCheckBox *>())
        connect(box, &QCheckBox::clicked, this, &frmGeneralReportLayout::UpdateEnabledStates);
    for (QCheckBox *box : findChildren<QCheckBox *>())
        connect(box, &QCheckBox::toggled, this, &frmGeneralReportLayout::updatePreview);
    for (QComboBox *list : findChildren<QComboBox *>())
        connect(list, &QComboBox::currentTextChanged, this, &frmGeneralReportLayout::updatePreview);
    for (QLineEdit *field : {ui->txtCompany, ui->txtExtraLine})
        connect(field, &QLineEdit::textChanged, this, &frmGeneralReportLayout::updatePreview);
    connect(ui->chkUseCustomPrinterConfiguration, &QCheckBox::toggled, this,
            &frmGeneralReportLayout::updatePage);
    connect(ui->cboCustomPrinterConfiguration, &QComboBox::currentTextChanged, this,
            &frmGeneralReportLayout::updatePage);
    connect(ui->lblManagePrinterConfigurations, &QLabel::linkActivated, this,
            &frmGeneralReportLayout::lblManagePrinterConfigurations_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmGeneralReportLayout::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmGeneralReportLayout::cmdCancel_Click);
    UpdateEnabledStates();
}

frmGeneralReportLayout::~frmGeneralReportLayout() = default;

void frmGeneralReportLayout::SetUp(const QString &LayoutFile, ReportLayout *layout)
{
    m_layout = layout;
    setOwner(layout ? layout->owner() : nullptr);
    m_layoutFile = LayoutFile;
    m_generalMode = LayoutFile.isEmpty();
    if (m_generalMode && layout)
        m_layoutFile = layout->GeneralReportLayoutFile(false);
    if (layout) {
        if (const XmlDocumentPtr fonts = layout->generalReportFontsDocument(false))
            ui->picFurniture->setFonts(ReportFontsIndex(*fonts, generalReports));
    }
}

void frmGeneralReportLayout::firstActivation()
{
    m_busy = true;
    FillPrinterConfigurations();
    ReadDocument();
    UpdateEnabledStates();
    updatePage();
    m_busy = false;
}

void frmGeneralReportLayout::closeEvent(QCloseEvent *event)
{
    if (m_busy) {
        event->ignore();
        return;
    }
    ModalForm::closeEvent(event);
}

void frmGeneralReportLayout::FillPrinterConfigurations()
{
    QComboBox *list = ui->cboCustomPrinterConfiguration;
    const QString remembered = list->currentText();
    list->clear();
    QObject *configurations = late::object(m_layout ? m_layout->ownerObject() : nullptr,
                                           "PrinterConfigurations");
    list->addItems(late::value(configurations, "GetPrinterConfigurations").toStringList());
    if (!remembered.isEmpty())
        list->setCurrentText(remembered);
    if (list->currentText().isEmpty() && list->count() > 0)
        list->setCurrentIndex(0);
}

void frmGeneralReportLayout::ReadDocument()
{
    if (!m_layout)
        return;
    const QString shown = m_generalMode ? m_layout->GeneralReportLayoutFile(true) : m_layoutFile;
    if (!shown.isEmpty()) {
        ui->txtFile->setText(shown);
        // A file that is not there yet keeps the labels' own text.
        if (const QFileInfo file(shown); file.exists()) {
            const QDateTime created = file.birthTime().isValid() ? file.birthTime()
                                                                 : file.metadataChangeTime();
            ui->lblCreated->setText(QStringLiteral("Created: ") + fileDate(created));
            ui->lblLastModififed->setText(QStringLiteral("Modified: ")
                                          + fileDate(file.lastModified()));
        }
    }
    if (const XmlDocumentPtr document = m_layout->generalReportLayoutDocument(shown)) {
        GeneralReportLayout layout = fromControls();
        layout.read(*document);
        toControls(layout);
    }
}

void frmGeneralReportLayout::UpdateEnabledStates()
{
    ui->cboLogoAlignment->setEnabled(ui->chkLogo->isChecked());
    ui->chkWatermark->setEnabled(ui->chkLogo->isChecked());
    for (const ItemControls &c : m_items) {
        for (QWidget *dependent :
             {static_cast<QWidget *>(c.label), static_cast<QWidget *>(c.format),
              static_cast<QWidget *>(c.alignment)}) {
            if (dependent)
                dependent->setEnabled(c.show->isChecked());
        }
    }
    ui->cboCustomPrinterConfiguration->setEnabled(
        ui->chkUseCustomPrinterConfiguration->isChecked());
}

void frmGeneralReportLayout::lblManagePrinterConfigurations_Click()
{
    m_busy = true;
    late::call(m_layout ? m_layout->ownerObject() : nullptr, "ShowPrinterConfigurations");
    FillPrinterConfigurations();
    m_busy = false;
}

GeneralReportLayout frmGeneralReportLayout::fromControls() const
{
    const GeneralReportLayout defaults;
    GeneralReportLayout layout;
    layout.useOwnPrinterConfiguration = ui->chkUseCustomPrinterConfiguration->isChecked();
    layout.printerConfiguration = ui->cboCustomPrinterConfiguration->currentText();
    layout.headerOnAllPages = ui->chkHeaderAllPages->isChecked();
    layout.footerOnAllPages = ui->chkFooterAllPages->isChecked();
    for (const ItemControls &c : m_items) {
        LayoutItem &item = layout.*c.item;
        item.show = c.show->isChecked();
        if (c.label)
            item.label = c.label->text();
        if (c.format)
            item.format = c.format->currentText();
        // A list with nothing selected writes its item's default alignment.
        if (c.alignment)
            item.alignment = c.alignment->currentIndex() >= 0
                                 ? std::int16_t(c.alignment->currentData().toInt())
                                 : (defaults.*c.item).alignment;
    }
    return layout;
}

void frmGeneralReportLayout::toControls(const GeneralReportLayout &layout)
{
    ui->chkUseCustomPrinterConfiguration->setChecked(layout.useOwnPrinterConfiguration);
    ui->cboCustomPrinterConfiguration->setCurrentText(layout.printerConfiguration);
    ui->chkHeaderAllPages->setChecked(layout.headerOnAllPages);
    ui->chkFooterAllPages->setChecked(layout.footerOnAllPages);
    for (const ItemControls &c : m_items) {
        const LayoutItem &item = layout.*c.item;
        c.show->setChecked(item.show);
        if (c.label) {
            c.label->setText(item.label);
            c.label->setCursorPosition(0); // show the text's beginning
        }
        if (c.format)
            c.format->setCurrentText(item.format);
        // A code the list does not offer selects nothing.
        if (c.alignment)
            c.alignment->setCurrentIndex(c.alignment->findData(item.alignment));
    }
    updatePreview();
}

void frmGeneralReportLayout::updatePreview()
{
    const GeneralReportLayout layout = fromControls();
    ui->picFurniture->setLines(HeaderFurniture(layout, sampleTitles, QDateTime::currentDateTime()),
                               FooterFurniture(layout, samplePage, samplePageCount));
}

void frmGeneralReportLayout::updatePage()
{
    // A report without a configuration of its own prints on its own page, which the dialog
    // does not know: the preview shows a Letter page then.
    const auto page = ui->chkUseCustomPrinterConfiguration->isChecked() && m_layout
                          ? configurationPage(
                              qobject_cast<PrinterConfigurations *>(
                                  late::object(m_layout->ownerObject(), "PrinterConfigurations")),
                              ui->cboCustomPrinterConfiguration->currentText())
                          : std::nullopt;
    ui->picFurniture->setPage(page.value_or(FurniturePreview::Page()));
}

void frmGeneralReportLayout::cmdOK_Click()
{
    QString why;
    if (!fromControls().save(m_layoutFile, &why) && !why.isEmpty())
        ShowSaveFailure(m_layoutFile, why, this);
    setCancelled(false);
    accept();
}

void frmGeneralReportLayout::cmdCancel_Click()
{
    setCancelled(true);
    reject();
}

bool ReportLayout::ShowGeneralReportLayout(const QString &LayoutFile)
{
    return ShowModalForm<frmGeneralReportLayout>(
        [&](frmGeneralReportLayout &form) { form.SetUp(LayoutFile, this); });
}

} // namespace bravcpl5
