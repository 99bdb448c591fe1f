#pragma once

// The report-style lists of the dialogs (`rpt...`): a QTreeWidget with one line per row,
// whole-row selection and alternating shades, whose rows are edited in one column.
// F2, Enter or a double click anywhere on a row edits that row's cell in the edit column;
// a click on the edit cell of the current row, or typing, does too.

#include "forms/CellEditor.h"

class QTreeWidget;

namespace bravcpl5 {

// Returns the grid's in-place editor, whose `edited` signal the dialog handles. Rows must
// be ItemIsEditable; only the edit column ever gets an editor.
CellEditor *SetupReportGrid(QTreeWidget *grid, int editColumn, CellEditor::Choices choices = {});

// Widens the first column to its captions (within a third and two thirds of the list),
// leaving the rest to the last column.
void FitFirstColumn(QTreeWidget *grid);

} // namespace bravcpl5
