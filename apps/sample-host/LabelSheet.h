#pragma once

// The dealer's product labels on label sheets, laid out with the label geometry of a
// printer configuration: columns per sheet, label width and height, the gaps between
// labels, and the printing direction (across then down, or down then across). The labels
// sit inside the configuration's own margins, even where a printer would have wanted
// wider ones: a sheet's labels are where they are.

#include "Records.h"

#include "printing/PageSetupFields.h"

#include <QList>
#include <QRectF>
#include <QSizeF>

class QPainter;

struct LabelGeometry {
    int columns = 1;
    double labelWidth = 0, labelHeight = 0;          // twips
    double horizontalGap = 0, verticalGap = 0;       // twips
    double left = 0, top = 0, right = 0, bottom = 0; // the sheet's margins, twips
    bravcpl5::PrintDirection direction = bravcpl5::PrintDirection::AcrossThenDown;
};

// The geometry a printer configuration's file holds (inches there); a file without
// label geometry gives one column of 4 x 1 inch labels.
LabelGeometry ReadLabelGeometry(const QString &configurationFile);

// The places of the labels that fit on a sheet of `paper` twips, from its top left corner,
// in the order they are filled; none when a label does not fit at all.
QList<QRectF> LabelPlaces(const LabelGeometry &geometry, const QSizeF &paper);

// Draws the labels of `records` from `first` on into `places` (the painter in twips from
// the paper's top left corner), with their outlines when `outlines` (a preview: the sheet's die
// cuts are not printed); returns how many it drew.
int DrawLabels(QPainter &painter, const QList<QRectF> &places, const QList<Record> &records,
               int first, bool outlines);
