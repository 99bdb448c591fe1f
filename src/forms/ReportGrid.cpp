#include "forms/ReportGrid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeWidget>

namespace bravcpl5 {

namespace {

// Sends the edit keys to the current row's cell, so Enter edits or activates a row rather
// than confirming the dialog.
class EditKeys : public QObject
{
public:
    EditKeys(QTreeWidget *grid, CellEditor *editor, int keyColumn)
        : QObject(grid), m_grid(grid), m_editor(editor), m_keyColumn(keyColumn)
    {}

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

    // The cell to edit in the row of `index`: that cell when it is editable, else the
    // key column's.
    QModelIndex cellFor(const QModelIndex &index) const
    {
        return m_editor->isEditable(index) ? index : index.siblingAtColumn(m_keyColumn);
    }

    void editRow(const QModelIndex &index)
    {
        const QModelIndex cell = cellFor(index);
        m_grid->setCurrentIndex(cell);
        if (m_editor->isEditable(cell))
            m_grid->edit(cell);
        else
            emit m_editor->activated(cell);
    }

private:
    QTreeWidget *m_grid;
    CellEditor *m_editor;
    int m_keyColumn;
};

} // namespace

CellEditor *SetupReportGrid(QTreeWidget *grid, GridSetup setup)
{
    grid->setRootIsDecorated(false);
    grid->setItemsExpandable(false);
    grid->setUniformRowHeights(setup.uniformRowHeights);
    grid->setAlternatingRowColors(true);
    grid->setAllColumnsShowFocus(true);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setEditTriggers(QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed
                          | QAbstractItemView::AnyKeyPressed);
    grid->header()->setSectionsMovable(false);
    grid->header()->setStretchLastSection(true);
    auto *editor = new CellEditor(std::move(setup.cells), grid);
    grid->setItemDelegate(editor);
    auto *keys = new EditKeys(grid, editor, setup.keyColumn);
    grid->installEventFilter(keys);
    QObject::connect(grid, &QAbstractItemView::doubleClicked, keys, &EditKeys::editRow);
    // The current cell stays where typing and F2 can edit it.
    QObject::connect(grid->selectionModel(), &QItemSelectionModel::currentChanged, grid,
                     [grid, keys](const QModelIndex &current) {
                         if (!current.isValid())
                             return;
                         if (const QModelIndex cell = keys->cellFor(current); cell != current)
                             grid->setCurrentIndex(cell);
                     });
    return editor;
}

CellEditor::CellRule EditColumnAsText(int column)
{
    return [column](const QModelIndex &index) {
        return index.column() == column ? GridCell::text() : GridCell::readOnly();
    };
}

void ShowGridRows(QTreeWidget *grid, const QList<QTreeWidgetItem *> &rows, int column)
{
    grid->clear();
    grid->addTopLevelItems(rows);
    const int available = grid->viewport()->width();
    grid->resizeColumnToContents(0);
    const int wanted = grid->columnWidth(0) + grid->fontMetrics().averageCharWidth() * 2;
    grid->setColumnWidth(0, qBound(available / 3, wanted, available * 2 / 3));
    if (!rows.isEmpty())
        grid->setCurrentItem(rows.first(), column);
}

int GridHeightForRows(QTreeWidget *grid, int rows)
{
    // One row as the grid would show it, measured and taken out again.
    QTreeWidgetItem probe(QStringList{QStringLiteral("Xg")});
    grid->addTopLevelItem(&probe);
    const int row = grid->sizeHintForRow(0);
    grid->takeTopLevelItem(0);
    return grid->header()->sizeHint().height() + rows * row + 2 * grid->frameWidth();
}

} // namespace bravcpl5
