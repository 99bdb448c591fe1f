#pragma once

// The report-style lists of the dialogs (`rpt...`): a QTreeWidget with one line per row,
// whole-row selection and alternating shades, whose rows are edited in one column.
// F2, Enter or a double click anywhere on a row edits that row's cell in the edit column;
// a click on the edit cell of the current row, or typing, does too.

#include "forms/CellEditor.h"

#include <QList>

class QTreeWidget;
class QTreeWidgetItem;

namespace bravcpl5 {

// Returns the grid's in-place editor, whose `edited` signal the dialog handles. Rows must
// be ItemIsEditable; only the edit column ever gets an editor.
CellEditor *SetupReportGrid(QTreeWidget *grid, int editColumn, CellEditor::Choices choices = {});

// Shows `rows` in the grid, widens the first column to its captions (within a third and
// two thirds of the list, the rest going to the last column) and puts the current cell on
// the first row's `editColumn`, ready for the keyboard.
void ShowGridRows(QTreeWidget *grid, const QList<QTreeWidgetItem *> &rows, int editColumn);

} // namespace bravcpl5
