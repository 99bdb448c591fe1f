#include "forms/FontColorDialog.h"

#include "ui_FontColorDialog.h"

#include "library/ValueRules.h"

#include <QColorDialog>
#include <QPainter>
#include <QPushButton>

namespace bravcpl5 {

namespace {

// The sixteen colours a font dialog offers, with their usual names.
const struct {
    const char *name;
    QRgb rgb;
} standardColors[] = {
    {"Black", 0x000000},  {"Maroon", 0x800000},  {"Green", 0x008000}, {"Olive", 0x808000},
    {"Navy", 0x000080},   {"Purple", 0x800080},  {"Teal", 0x008080},  {"Gray", 0x808080},
    {"Silver", 0xC0C0C0}, {"Red", 0xFF0000},     {"Lime", 0x00FF00},  {"Yellow", 0xFFFF00},
    {"Blue", 0x0000FF},   {"Fuchsia", 0xFF00FF}, {"Aqua", 0x00FFFF},  {"White", 0xFFFFFF},
};
const float standardSizes[] = {8, 9, 10, 10.5f, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};
constexpr float smallestSize = 1;
constexpr float largestSize = 1638;

QIcon swatch(const QColor &color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    QPainter(&pixmap).drawRect(0, 0, 15, 15);
    return QIcon(pixmap);
}

} // namespace

FontColorDialog::FontColorDialog(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::CommonDialog1>())
{
    ui->setupUi(this);
    ui->cboFace->setFontFilters(QFontComboBox::ScalableFonts);
    for (float size : standardSizes)
        ui->cboSize->addItem(values::singleToText(size));
    for (const auto &standard : standardColors)
        ui->cboColor->addItem(swatch(QColor(standard.rgb)), tr(standard.name),
                              QColor(standard.rgb));
    ui->cboColor->addItem(tr("Custom..."));
    connect(ui->cboColor, &QComboBox::activated, this, &FontColorDialog::colorChosen);
    connect(ui->cboFace, &QFontComboBox::currentFontChanged, this, &FontColorDialog::updateSample);
    connect(ui->cboSize, &QComboBox::currentTextChanged, this, [this](const QString &text) {
        // A size that is not a number in range keeps the last one that was.
        if (const auto size = values::textToSingle(text);
            size && *size >= smallestSize && *size <= largestSize)
            m_size = *size;
        updateSample();
    });
    for (QCheckBox *effect : {ui->chkBold, ui->chkItalic, ui->chkUnderline, ui->chkStrikeout})
        connect(effect, &QCheckBox::toggled, this, &FontColorDialog::updateSample);
    connect(ui->cboColor, &QComboBox::currentIndexChanged, this, &FontColorDialog::updateSample);
    connect(ui->buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui->buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    setColor(Qt::black);
}

FontColorDialog::~FontColorDialog() = default;

QFont FontColorDialog::currentFont() const
{
    QFont font = ui->cboFace->currentFont();
    font.setPointSizeF(m_size);
    font.setBold(ui->chkBold->isChecked());
    font.setItalic(ui->chkItalic->isChecked());
    font.setUnderline(ui->chkUnderline->isChecked());
    font.setStrikeOut(ui->chkStrikeout->isChecked());
    return font;
}

void FontColorDialog::setCurrentFont(const QFont &font)
{
    ui->cboFace->setCurrentFont(font);
    ui->cboSize->setCurrentText(values::singleToText(float(font.pointSizeF())));
    ui->chkBold->setChecked(font.bold());
    ui->chkItalic->setChecked(font.italic());
    ui->chkUnderline->setChecked(font.underline());
    ui->chkStrikeout->setChecked(font.strikeOut());
    updateSample();
}

QColor FontColorDialog::color() const { return ui->cboColor->currentData().value<QColor>(); }

void FontColorDialog::setColor(const QColor &color)
{
    int index = ui->cboColor->findData(color);
    if (index < 0) {
        // A colour of its own goes just before "Custom...".
        index = ui->cboColor->count() - 1;
        ui->cboColor->insertItem(index, swatch(color), color.name(), color);
    }
    ui->cboColor->setCurrentIndex(index);
    m_lastColor = index;
}

void FontColorDialog::colorChosen(int index)
{
    if (index != ui->cboColor->count() - 1) {
        m_lastColor = index;
        return;
    }
    const QColor chosen = QColorDialog::getColor(
        ui->cboColor->itemData(m_lastColor).value<QColor>(), this);
    if (chosen.isValid())
        setColor(chosen);
    else
        ui->cboColor->setCurrentIndex(m_lastColor);
}

void FontColorDialog::updateSample()
{
    QFont font = currentFont();
    ui->lblSample->setFont(font);
    QPalette palette = ui->lblSample->palette();
    if (color().isValid())
        palette.setColor(QPalette::WindowText, color());
    ui->lblSample->setPalette(palette);
}

} // namespace bravcpl5
