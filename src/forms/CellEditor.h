#pragma once

// The in-place editor of a report-style list. A rule of the dialog's decides, cell by cell,
// whether the cell is read-only, edited as text, or edited with a drop-down of choices
// (built afresh each time the editor opens and dropped down at once). Nothing is written
// to the list here: when the user picks a choice or finishes typing, `edited` says so and
// the dialog decides what becomes of the value.
//
// Cells are drawn by Qt's item delegate, so a cell's own font (Qt::FontRole) and colour
// (Qt::ForegroundRole) show as they are; a row's Qt::SizeHintRole, when set, is its height.
// An empty cell with a GridHintRole text shows that text muted, as a line edit shows its
// placeholder; the cell's own text stays empty.

#include <QStringList>
#include <QStyledItemDelegate>
#include <functional>

namespace bravcpl5 {

inline constexpr int GridHintRole = Qt::UserRole + 0x100;

// How one cell is edited. A list's choices are asked for only when its editor opens, so
// that deciding what a cell is stays cheap (a list may come from the host's database).
struct GridCell {
    enum Kind { ReadOnly, Text, List };
    Kind kind = ReadOnly;
    std::function<QStringList()> choices; // List only, in order

    static GridCell readOnly() { return {}; }
    static GridCell text() { return {Text, {}}; }
    static GridCell list(std::function<QStringList()> choices)
    {
        return {List, std::move(choices)};
    }
};

class CellEditor : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // Asked whenever the grid needs to know how a cell is edited.
    using CellRule = std::function<GridCell(const QModelIndex &)>;

    explicit CellEditor(CellRule rule, QObject *parent = nullptr);

    // Whether the cell can be edited at all.
    bool isEditable(const QModelIndex &index) const;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    // Rows a little taller than their text, so that an open editor fits its row, unless the
    // row sets its own height.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

signals:
    void edited(const QModelIndex &index, const QString &text);
    // F2, Enter or a double click on a row whose cell has no editor (ReportGrid).
    void activated(const QModelIndex &index);

private:
    CellRule m_rule;
    QStyle *m_listStyle;
};

} // namespace bravcpl5
