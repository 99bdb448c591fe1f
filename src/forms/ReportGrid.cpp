#include "forms/ReportGrid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeWidget>

namespace bravcpl5 {

namespace {

// Sends the edit keys to the edit column whichever cell is current, so Enter edits a row
// rather than confirming the dialog.
class EditKeys : public QObject
{
public:
    EditKeys(QTreeWidget *grid, int editColumn) : QObject(grid), m_grid(grid), m_column(editColumn) {}

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // Keys an open editor did not take pass through here too; they are not ours.
        if (event->type() != QEvent::KeyPress || QApplication::focusWidget() != m_grid)
            return QObject::eventFilter(watched, event);
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool editKey = key->key() == Qt::Key_F2 || key->key() == Qt::Key_Return
                             || key->key() == Qt::Key_Enter;
        const QModelIndex current = m_grid->currentIndex();
        if (!editKey || key->modifiers() & ~Qt::KeypadModifier || !current.isValid())
            return QObject::eventFilter(watched, event);
        editRow(current);
        return true;
    }

    void editRow(const QModelIndex &index)
    {
        const QModelIndex cell = index.siblingAtColumn(m_column);
        m_grid->setCurrentIndex(cell);
        m_grid->edit(cell);
    }

private:
    QTreeWidget *m_grid;
    int m_column;
};

} // namespace

CellEditor *SetupReportGrid(QTreeWidget *grid, int editColumn, CellEditor::Choices choices)
{
    grid->setRootIsDecorated(false);
    grid->setItemsExpandable(false);
    grid->setUniformRowHeights(true);
    grid->setAlternatingRowColors(true);
    grid->setAllColumnsShowFocus(true);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setEditTriggers(QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed
                          | QAbstractItemView::AnyKeyPressed);
    grid->header()->setSectionsMovable(false);
    grid->header()->setStretchLastSection(true);
    auto *keys = new EditKeys(grid, editColumn);
    grid->installEventFilter(keys);
    QObject::connect(grid, &QAbstractItemView::doubleClicked, keys, &EditKeys::editRow);
    // The focus cell stays in the edit column, so typing and F2 edit the value.
    QObject::connect(grid->selectionModel(), &QItemSelectionModel::currentChanged, grid,
                     [grid, editColumn](const QModelIndex &current) {
                         if (current.isValid() && current.column() != editColumn)
                             grid->setCurrentIndex(current.siblingAtColumn(editColumn));
                     });
    auto *editor = new CellEditor(editColumn, std::move(choices), grid);
    grid->setItemDelegate(editor);
    return editor;
}

void ShowGridRows(QTreeWidget *grid, const QList<QTreeWidgetItem *> &rows, int editColumn)
{
    grid->addTopLevelItems(rows);
    const int available = grid->viewport()->width();
    grid->resizeColumnToContents(0);
    const int wanted = grid->columnWidth(0) + grid->fontMetrics().averageCharWidth() * 2;
    grid->setColumnWidth(0, qBound(available / 3, wanted, available * 2 / 3));
    if (!rows.isEmpty())
        grid->setCurrentItem(rows.first(), editColumn);
}

} // namespace bravcpl5
