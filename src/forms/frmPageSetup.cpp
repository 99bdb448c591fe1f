#include "forms/frmPageSetup.h"

#include "ui_frmPageSetup.h"

#include "forms/Glyphs.h"
#include "forms/frmLabelProducts.h"
#include "library/Messages.h"
#include "library/ValueRules.h"
#include "printers/PaperSizeCodes.h"
#include "printing/PrinterCheck.h"
#include "printing/PrinterConfigurations.h"

namespace bravcpl5 {

namespace {

// The orientation pictures' backgrounds: selected, and not.
const QColor selectedSheet(0xE7, 0xE2, 0xC9);
const QColor otherSheet(0xF5, 0xF5, 0xF5);

std::optional<int> selectedCode(const QComboBox *list)
{
    if (list->currentIndex() < 0)
        return std::nullopt;
    return list->currentData().toInt();
}

std::optional<int> selectedCode(const QListWidget *list)
{
    const QListWidgetItem *item = list->currentItem();
    if (!item || !item->isSelected())
        return std::nullopt;
    return item->data(Qt::UserRole).toInt();
}

void selectCode(QComboBox *list, std::optional<int> code)
{
    list->setCurrentIndex(code ? list->findData(*code) : -1);
}

void selectCode(QListWidget *list, std::optional<int> code)
{
    for (int row = 0; row < list->count(); ++row) {
        if (code && list->item(row)->data(Qt::UserRole).toInt() == *code) {
            list->setCurrentRow(row);
            return;
        }
    }
    list->setCurrentRow(-1);
}

void paintSheetBackground(QWidget *picture, bool selected)
{
    QPalette palette = picture->palette();
    palette.setColor(QPalette::Window, selected ? selectedSheet : otherSheet);
    picture->setPalette(palette);
}

} // namespace

frmPageSetup::frmPageSetup(QWidget *parent)
    : ModalForm(parent, true, Placement::Remembered),
      ui(std::make_unique<Ui::frmPageSetup>()),
      m_info(CurrentPrinterInfo())
{
    ui->setupUi(this);

    for (const FieldLimits &limits : PageSetupFieldLimits()) {
        const QString name = QString::fromLatin1(limits.name);
        auto *text = findChild<QLineEdit *>(QStringLiteral("txt") + name);
        auto *spinner = findChild<UpDown *>(QStringLiteral("ud") + name);
        m_fields.push_back({&limits, text});
        spinner->bind(text, [text, &limits](int direction) {
            text->setText(direction > 0 ? IncrementFieldValue(limits.step, limits.minimum,
                                                              limits.maximum, text->text())
                                        : DecrementFieldValue(limits.step, limits.minimum,
                                                              limits.maximum, text->text()));
        });
        connect(text, &QLineEdit::textChanged, this, [this, &limits](const QString &typed) {
            fromControl([&]() { m_value.*limits.text = typed; });
        });
    }
    for (const PrintDirectionChoice &direction : PrintDirections())
        ui->cboPrintDirection->addItem(direction.name, int(direction.code));
    ui->cboPrintDirection->setCurrentIndex(-1);

    const qreal ratio = devicePixelRatioF();
    ui->imgPortrait->setPixmap(SheetGlyph(Qt::Vertical, ratio));
    ui->imgLandscape->setPixmap(SheetGlyph(Qt::Horizontal, ratio));
    connect(ui->optLandscape, &QRadioButton::toggled, this, [this](bool landscape) {
        fromControl([&]() { m_value.landscape = landscape; });
        UpdateOrientationPictures();
    });
    connect(ui->chkMirrorMargins, &QCheckBox::toggled, this,
            [this](bool mirror) { fromControl([&]() { m_value.mirrorMargins = mirror; }); });
    connect(ui->cboPaperSize, &QComboBox::currentIndexChanged, this, [this]() {
        fromControl([&]() {
            m_value.paperSize = selectedCode(ui->cboPaperSize);
            cboPaperSize_Click();
        });
    });
    connect(ui->lstPaperSource, &QListWidget::itemSelectionChanged, this, [this]() {
        fromControl([&]() { m_value.paperSource = selectedCode(ui->lstPaperSource); });
    });
    connect(ui->cboPrintDirection, &QComboBox::currentIndexChanged, this, [this]() {
        fromControl([&]() { m_value.printDirection = selectedCode(ui->cboPrintDirection); });
    });
    connect(ui->TabControl1, &QTabWidget::currentChanged, this, &frmPageSetup::DrawPreviews);
    connect(ui->cmdLabelProduct, &QPushButton::clicked, this, &frmPageSetup::cmdLabelProduct_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmPageSetup::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmPageSetup::cmdCancel_Click);
    UpdateOrientationPictures();
}

frmPageSetup::~frmPageSetup() = default;

template <typename Change> void frmPageSetup::fromControl(Change change)
{
    if (m_settingControls)
        return;
    change();
    DrawPreviews();
}

bool frmPageSetup::Open(const QString &configuration, const QString &printerName,
                        PrinterConfigurations *store)
{
    m_store = store;
    setOwner(store ? store->owner() : nullptr);
    m_configuration = configuration;

    // The installed printers are asked for once; the dialog keeps its choice for its lifetime.
    if (m_info.printerNames().isEmpty()) {
        ShowMessage(QStringLiteral("No printers have been setup on this computer. You must setup "
                                   "at least one printer in order to configure page settings."),
                    QMessageBox::Warning, QMessageBox::Ok, parentWidget());
        return false;
    }
    if (!printerName.isEmpty()) {
        m_printer = FindPrinter(m_info, printerName);
        if (m_printer.isEmpty())
            ShowMessage(QStringLiteral("The printer '") + printerName
                            + QStringLiteral("' is invalid. The default printer will be used."),
                        QMessageBox::Warning, QMessageBox::Ok, parentWidget());
    }
    if (m_printer.isEmpty()) {
        m_printer = FindPrinter(m_info, m_info.defaultPrinterName());
        if (m_printer.isEmpty()) {
            ShowMessage(QStringLiteral("Unable to perform page setup. Make sure a valid default "
                                       "printer is setup on this computer and that the print "
                                       "spooler service is running. (1)"),
                        QMessageBox::Critical, QMessageBox::Ok, parentWidget());
            return false;
        }
    }

    PageSetupChoices choices;
    m_settingControls = true;
    FillPaperSizes(choices);
    FillPaperSources(choices);
    m_settingControls = false;
    for (const PrintDirectionChoice &direction : PrintDirections())
        choices.printDirections.append(int(direction.code));
    // The label sheet's fields are shown and kept, but not edited here.
    ui->TabControl1->setTabEnabled(ui->TabControl1->indexOf(ui->tabLabelLayout), false);
    if (m_store)
        m_store->readPageSetup(m_configuration, choices, DefaultPrinterPaper(m_info), m_value);
    // The stored paper shows its own size, as if the user had chosen it.
    takePaperSize();
    toControls();
    UpdatePaperFields();
    DrawPreviews();
    return true;
}

void frmPageSetup::FillPaperSizes(PageSetupChoices &choices)
{
    m_paperSizes = m_info.paperSizes(m_printer);
    choices.paperSheets = m_paperSizes;
    bool hasCustomPaperSize = false;
    for (const PaperSizeInfo &size : std::as_const(m_paperSizes)) {
        ui->cboPaperSize->addItem(size.name, size.code);
        choices.paperSizes.append(size.code);
        hasCustomPaperSize = hasCustomPaperSize || size.code >= FirstPrinterPaperCode;
    }
    if (!hasCustomPaperSize) {
        ui->cboPaperSize->addItem(QStringLiteral("Custom"), FirstPrinterPaperCode);
        choices.paperSizes.append(FirstPrinterPaperCode);
    }
    ui->cboPaperSize->setCurrentIndex(-1);
}

void frmPageSetup::FillPaperSources(PageSetupChoices &choices)
{
    for (const PaperBinInfo &bin : m_info.paperBins(m_printer)) {
        auto *item = new QListWidgetItem(bin.name, ui->lstPaperSource);
        item->setData(Qt::UserRole, bin.code);
        choices.paperSources.append(bin.code);
    }
}

void frmPageSetup::takePaperSize()
{
    // A standard paper shows its own size; a custom one keeps what was typed.
    if (!m_value.paperSize || *m_value.paperSize >= FirstPrinterPaperCode)
        return;
    for (const PaperSizeInfo &size : std::as_const(m_paperSizes)) {
        if (size.code == *m_value.paperSize) {
            m_value.paperWidth = PaperLengthText(size.widthTwips);
            m_value.paperHeight = PaperLengthText(size.heightTwips);
            return;
        }
    }
}

void frmPageSetup::cboPaperSize_Click()
{
    takePaperSize();
    m_settingControls = true;
    ui->txtPaperWidth->setText(m_value.paperWidth);
    ui->txtPaperHeight->setText(m_value.paperHeight);
    m_settingControls = false;
    UpdatePaperFields();
}

void frmPageSetup::UpdateOrientationPictures()
{
    paintSheetBackground(ui->picPortrait, ui->optPortrait->isChecked());
    paintSheetBackground(ui->picLandscape, ui->optLandscape->isChecked());
}

void frmPageSetup::UpdatePaperFields()
{
    const bool custom = m_value.paperSize && *m_value.paperSize >= FirstPrinterPaperCode;
    for (QWidget *widget :
         {static_cast<QWidget *>(ui->lblPaperWidth), static_cast<QWidget *>(ui->txtPaperWidth),
          static_cast<QWidget *>(ui->udPaperWidth), static_cast<QWidget *>(ui->lblPaperHeight),
          static_cast<QWidget *>(ui->txtPaperHeight), static_cast<QWidget *>(ui->udPaperHeight)})
        widget->setEnabled(custom);
}

void frmPageSetup::DrawPreviews()
{
    if (m_settingControls)
        return;
    PageSetupPreviewInfo record = PreviewRecord(m_value);
    for (PageSetupPicture *picture : {ui->picPreview1, ui->picPreview2})
        picture->setRecord(record);
    record.ShowLabels = m_labelProductChosen;
    ui->picPreview3->setRecord(record);
    UpdatePrinterWarning();
}

void frmPageSetup::UpdatePrinterWarning()
{
    // The page against the printer's paper only: whether the printer is ready is no matter
    // of the page setup.
    const QList<PrinterFinding> findings = CheckPageSetup(
        m_value, PrinterToCheck{m_printer, m_info.paper(m_printer), false});
    ui->lblPrinterWarning->setText(findings.isEmpty() ? QString() : DescribeFindings(findings));
    ui->lblPrinterWarning->setVisible(!findings.isEmpty());
}

void frmPageSetup::toControls()
{
    m_settingControls = true;
    for (const NumericField &field : m_fields)
        field.text->setText(m_value.*field.limits->text);
    ui->chkMirrorMargins->setChecked(m_value.mirrorMargins);
    (m_value.landscape ? ui->optLandscape : ui->optPortrait)->setChecked(true);
    selectCode(ui->cboPaperSize, m_value.paperSize);
    selectCode(ui->lstPaperSource, m_value.paperSource);
    selectCode(ui->cboPrintDirection, m_value.printDirection);
    m_settingControls = false;
    UpdateOrientationPictures();
}

void frmPageSetup::cmdLabelProduct_Click()
{
    const LabelDatabase &database = InstalledLabelProducts();
    if (database.products.isEmpty()) {
        ShowMessage(QStringLiteral("No label products are installed. Install the glabels-data "
                                   "package (sudo apt install glabels-data) to choose label "
                                   "sheets by product."),
                    QMessageBox::Information, QMessageBox::Ok, this);
        return;
    }
    std::optional<LabelProduct> chosen;
    ShowModalForm<frmLabelProducts>([&](frmLabelProducts &form) { form.Initialize(database); },
                                    [&](frmLabelProducts &form) {
                                        if (form.chosen())
                                            chosen = *form.chosen();
                                    });
    if (chosen)
        takeLabelProduct(*chosen);
}

void frmPageSetup::takeLabelProduct(const LabelProduct &product)
{
    if (!ApplyLabelProduct(product, m_value))
        return;
    // The printer's sheet of the product's code or size, as a stored page setup finds it;
    // else a custom size of the product's own.
    const QSizeF inches(values::textToSingle(m_value.paperWidth).value_or(0),
                        values::textToSingle(m_value.paperHeight).value_or(0));
    const PaperSizeInfo *sheet = StoredPaperSize(
        m_paperSizes, m_value.paperSize.value_or(FirstPrinterPaperCode), inches);
    m_value.paperSize = sheet ? sheet->code : FirstPrinterPaperCode;
    takePaperSize();
    toControls();
    m_labelProductChosen = true;
    auto *tabs = ui->TabControl1;
    tabs->setTabEnabled(tabs->indexOf(ui->tabLabelLayout), true);
    tabs->setCurrentWidget(ui->tabLabelLayout);
    UpdatePaperFields();
    DrawPreviews();
}

void frmPageSetup::cmdOK_Click()
{
    // Typed values are stored as they stand. A file that could not be written is named to
    // the user; the dialog closes as confirmed all the same.
    QString why;
    if (m_store && !m_store->savePageSetup(m_configuration, m_value, &why) && !why.isEmpty())
        ShowSaveFailure(m_store->GetPrinterConfigurationFileFromName(m_configuration), why, this);
    setCancelled(false);
    accept();
}

void frmPageSetup::cmdCancel_Click()
{
    setCancelled(true);
    reject();
}

bool PrinterConfigurations::ShowPageSetup(const QString &PrinterConfiguration,
                                          const QString &PrinterName)
{
    return ShowModalForm<frmPageSetup>(
        [&](frmPageSetup &form) { return form.Open(PrinterConfiguration, PrinterName, this); });
}

} // namespace bravcpl5
