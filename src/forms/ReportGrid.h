#pragma once

// The report-style lists of the dialogs (`rpt...`): a QTreeWidget with one line per row,
// whole-row selection and alternating shades. The dialog's cell rule (CellEditor) decides
// which cells are edited and how. The current cell stays on an editable cell of its row,
// else on the row's key column. F2, Enter or a double click on a row edits that cell; on a
// row with nothing to edit there they emit `activated` instead (the fonts list opens its
// font dialog so). A click on the current editable cell, or typing, edits it too.
//
// The dialog keeps its rows as values and shows them here; it never reads them back from
// the widget.

#include "forms/CellEditor.h"

#include <QList>

class QTreeWidget;
class QTreeWidgetItem;

namespace bravcpl5 {

struct GridSetup {
    int keyColumn = 0;          // where the current cell goes when its column is read-only
    CellEditor::CellRule cells; // none: every cell is read-only
    bool uniformRowHeights = true;
};

// Returns the grid's in-place editor, whose `edited` and `activated` signals the dialog
// handles.
CellEditor *SetupReportGrid(QTreeWidget *grid, GridSetup setup);

// A rule for the simplest grid: one column edited as text, every other cell read-only.
CellEditor::CellRule EditColumnAsText(int column);

// Shows `rows` in the grid in place of what it showed, widens the first column to its
// captions (within a third and two thirds of the list, the rest going to the last column)
// and puts the current cell on the first row's `column`, ready for the keyboard.
void ShowGridRows(QTreeWidget *grid, const QList<QTreeWidgetItem *> &rows, int column);

// The height at which the grid shows its header and `rows` rows without scrolling, each row
// as high as its cell editor makes it in the grid's font. The grid must still be empty.
int GridHeightForRows(QTreeWidget *grid, int rows);

} // namespace bravcpl5
