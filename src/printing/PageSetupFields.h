#pragma once

// The rules of the page setup dialog's fields, kept apart from its widgets: the spinner
// steps and limits of each numeric field, what a spinner does to a field's text, the
// preview record the fields give, the printing directions a label sheet offers, and how a
// chosen paper's size shows in the width and height fields.

#include "printing/PageSetup.h"
#include "printing/PageSetupPreview.h"

#include <QList>
#include <QString>

namespace bravcpl5 {

// The numeric fields, in the order of the dialog's tabs.
enum class PageSetupField {
    TopMargin,
    BottomMargin,
    LeftMargin,
    RightMargin,
    Gutter,
    PaperWidth,
    PaperHeight,
    LabelWidth,
    LabelHeight,
    HorizontalGap,
    VerticalGap,
    ColumnsPerSheet,
};

struct FieldLimits {
    PageSetupField field;
    const char *name;         // the field's name, as its controls are named ("TopMargin")
    QString PageSetup::*text; // where the field's text is kept
    float step;
    float minimum;
    float maximum;
};

// Every numeric field with its spinner's step and limits, in PageSetupField order.
const QList<FieldLimits> &PageSetupFieldLimits();
const FieldLimits &LimitsOf(PageSetupField field);

// A spinner's up and down on a field's text: text that is empty or not a number counts
// as the minimum, a number beyond the far limit starts from that limit, the step is taken
// in single precision, and the result stays within the limits. The result is the shortest
// text of the single (63.95 up gives "64", "" up gives "0.1", 0.6 up gives "0.7").
QString IncrementFieldValue(float step, float minimum, float maximum, const QString &text);
QString DecrementFieldValue(float step, float minimum, float maximum, const QString &text);

// What the three previews draw: every length from its text's leading number (text that
// does not start with a number counts as 0), in twips; the paper swapped for landscape.
PageSetupPreviewInfo PreviewRecord(const PageSetup &fields);

// The order in which labels fill a sheet, as "PrintDirection" stores it; a host's label
// printing reads the same codes.
enum class PrintDirection { AcrossThenDown = 0, DownThenAcross = 1 };
struct PrintDirectionChoice {
    PrintDirection code;
    QString name;
};
const QList<PrintDirectionChoice> &PrintDirections();

// A paper length in twips as the width and height fields show it: inches rounded to
// three places, in the value rules' text ("8.5", "11", "8.268").
QString PaperLengthText(int twips);

} // namespace bravcpl5
