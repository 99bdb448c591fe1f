#include "printing/PageSetupFields.h"

#include "library/Units.h"
#include "library/ValueRules.h"

#include <cmath>

namespace bravcpl5 {

namespace {

// The number a spinner starts from: the minimum for text that is not a number.
float startingValue(const QString &text, float minimum)
{
    const auto number = values::textToSingle(text);
    return number ? *number : minimum;
}

float inTwips(const QString &text) { return float(values::leadingNumber(text) * TwipsPerInch); }

} // namespace

const QList<FieldLimits> &PageSetupFieldLimits()
{
    static const QList<FieldLimits> limits = {
        {PageSetupField::TopMargin, "TopMargin", &PageSetup::topMargin, 0.1f, 0, 64},
        {PageSetupField::BottomMargin, "BottomMargin", &PageSetup::bottomMargin, 0.1f, 0, 64},
        {PageSetupField::LeftMargin, "LeftMargin", &PageSetup::leftMargin, 0.1f, 0, 64},
        {PageSetupField::RightMargin, "RightMargin", &PageSetup::rightMargin, 0.1f, 0, 64},
        {PageSetupField::Gutter, "Gutter", &PageSetup::gutter, 0.1f, 0, 64},
        {PageSetupField::PaperWidth, "PaperWidth", &PageSetup::paperWidth, 0.1f, 0, 16},
        {PageSetupField::PaperHeight, "PaperHeight", &PageSetup::paperHeight, 0.1f, 0, 16},
        {PageSetupField::LabelWidth, "LabelWidth", &PageSetup::labelWidth, 0.1f, 0, 16},
        {PageSetupField::LabelHeight, "LabelHeight", &PageSetup::labelHeight, 0.1f, 0, 16},
        {PageSetupField::HorizontalGap, "HorizontalGap", &PageSetup::horizontalGap, 0.1f, 0, 16},
        {PageSetupField::VerticalGap, "VerticalGap", &PageSetup::verticalGap, 0.1f, 0, 16},
        {PageSetupField::ColumnsPerSheet, "ColumnsPerSheet", &PageSetup::columnsPerSheet, 1, 1, 16},
    };
    return limits;
}

const FieldLimits &LimitsOf(PageSetupField field) { return PageSetupFieldLimits().at(int(field)); }

QString IncrementFieldValue(float step, float minimum, float maximum, const QString &text)
{
    float value = startingValue(text, minimum);
    if (value > maximum)
        value = maximum;
    value += step;
    if (value > maximum)
        value = maximum;
    return values::singleToText(value);
}

QString DecrementFieldValue(float step, float minimum,
                            float /*maximum: a step down never passes it*/, const QString &text)
{
    float value = startingValue(text, minimum);
    if (value < minimum)
        value = minimum;
    value -= step;
    if (value < minimum)
        value = minimum;
    return values::singleToText(value);
}

PageSetupPreviewInfo PreviewRecord(const PageSetup &fields)
{
    PageSetupPreviewInfo info;
    info.PaperWidth = inTwips(fields.landscape ? fields.paperHeight : fields.paperWidth);
    info.PaperHeight = inTwips(fields.landscape ? fields.paperWidth : fields.paperHeight);
    info.LeftMargin = inTwips(fields.leftMargin);
    info.TopMargin = inTwips(fields.topMargin);
    info.RightMargin = inTwips(fields.rightMargin);
    info.BottomMargin = inTwips(fields.bottomMargin);
    info.Gutter = inTwips(fields.gutter);
    info.ColumnsPerSheet = float(values::leadingNumber(fields.columnsPerSheet));
    info.LabelWidth = inTwips(fields.labelWidth);
    info.LabelHeight = inTwips(fields.labelHeight);
    info.HorizontalGap = inTwips(fields.horizontalGap);
    info.VerticalGap = inTwips(fields.verticalGap);
    info.ShowLabels = false;
    return info;
}

const QList<PrintDirectionChoice> &PrintDirections()
{
    static const QList<PrintDirectionChoice> directions = {
        {PrintDirection::AcrossThenDown, QStringLiteral("Across, then down")},
        {PrintDirection::DownThenAcross, QStringLiteral("Down, then across")},
    };
    return directions;
}

QString PaperLengthText(int twips)
{
    const double inches = std::round(double(twips) / TwipsPerInch * 1000.0) / 1000.0;
    return values::singleToText(float(inches));
}

} // namespace bravcpl5
