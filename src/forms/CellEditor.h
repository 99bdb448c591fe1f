#pragma once

// The in-place editor of a report-style list: a drop-down of choices for rows that have
// them, built afresh each time the editor opens and dropped down at once, or a text field
// for free-text rows. Nothing is written to the list here: when the user picks a choice
// or finishes typing, `edited` says so and the dialog decides what becomes of the value.

#include <QStringList>
#include <QStyledItemDelegate>
#include <functional>
#include <optional>

namespace bravcpl5 {

class CellEditor : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // A row's choices, in order; nullopt for a free-text row.
    using Choices = std::function<std::optional<QStringList>(const QModelIndex &)>;

    // Only cells of `column` are edited.
    CellEditor(int column, Choices choices, QObject *parent = nullptr);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    // Rows a little taller than the text, so that an open editor fits its row.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

signals:
    void edited(const QModelIndex &index, const QString &text);

private:
    int m_column;
    Choices m_choices;
    QStyle *m_listStyle;
};

} // namespace bravcpl5
