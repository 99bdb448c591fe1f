#include "forms/CellEditor.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QProxyStyle>
#include <QStringListModel>
#include <QTimer>
#include <utility>

namespace bravcpl5 {

namespace {

// A drop-down that closes its cell editor when its list closes: picking commits the
// choice, Esc or a click elsewhere leaves the cell as it was.
class ChoiceBox : public QComboBox
{
public:
    explicit ChoiceBox(QWidget *parent) : QComboBox(parent) {}

    std::function<void(bool picked)> onClosed;
    bool picked = false;

    void hidePopup() override
    {
        QComboBox::hidePopup();
        // `activated` may follow the hiding, so the outcome is read once events have run.
        QTimer::singleShot(0, this, [this]() {
            if (onClosed)
                std::exchange(onClosed, nullptr)(picked);
        });
    }
};

// Drops the list down under the cell as a list box does, rather than laying it over the
// cell as a menu: the menu form measures every entry before it shows, which takes long
// on a list of every vendor.
class DropDownListStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        if (hint == SH_ComboBox_Popup)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

} // namespace

CellEditor::CellEditor(CellRule rule, QObject *parent)
    : QStyledItemDelegate(parent), m_rule(std::move(rule)), m_listStyle(new DropDownListStyle)
{
    m_listStyle->setParent(this);
}

bool CellEditor::isEditable(const QModelIndex &index) const
{
    return index.isValid() && m_rule && m_rule(index).kind != GridCell::ReadOnly;
}

QWidget *CellEditor::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    GridCell cell = m_rule ? m_rule(index) : GridCell::readOnly();
    if (cell.kind == GridCell::ReadOnly)
        return nullptr;
    if (cell.kind == GridCell::Text)
        return QStyledItemDelegate::createEditor(parent, option, index);

    auto *box = new ChoiceBox(parent);
    box->setStyle(m_listStyle);
    box->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    // A plain list model and uniform rows keep long lists (every vendor) quick to open.
    box->setModel(new QStringListModel(cell.choices ? cell.choices() : QStringList(), box));
    if (auto *list = qobject_cast<QListView *>(box->view()))
        list->setUniformItemSizes(true);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMaxVisibleItems(16);
    connect(box, &QComboBox::activated, box, [box]() { box->picked = true; });
    auto *self = const_cast<CellEditor *>(this);
    box->onClosed = [self, box](bool picked) {
        // The view hides an editor it has closed itself (the focus moved elsewhere while
        // the list was down); closing it again would be refused.
        if (!box->isVisible())
            return;
        if (picked)
            emit self->commitData(box);
        emit self->closeEditor(box, QAbstractItemDelegate::NoHint);
    };
    QTimer::singleShot(0, box, &QComboBox::showPopup);
    return box;
}

void CellEditor::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *box = qobject_cast<QComboBox *>(editor);
    if (!box) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    // The choice that the shown value is, or begins with (a custom date range shows its
    // dates after the choice's name).
    const QString shown = index.data(Qt::DisplayRole).toString();
    int best = box->findText(shown, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    for (int i = 0; best < 0 && i < box->count(); ++i) {
        const QString choice = box->itemText(i);
        if (!choice.isEmpty() && shown.startsWith(choice + QLatin1Char(' ')))
            best = i;
    }
    box->setCurrentIndex(best);
}

void CellEditor::setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const
{
    // A list commits only what the user picked; the view may ask for a commit otherwise
    // (when the current row changes under an open editor).
    if (auto *box = dynamic_cast<ChoiceBox *>(editor)) {
        if (box->picked)
            emit const_cast<CellEditor *>(this)->edited(index, box->currentText());
    } else if (auto *field = qobject_cast<QLineEdit *>(editor))
        emit const_cast<CellEditor *>(this)->edited(index, field->text());
}

void CellEditor::paint(QPainter *painter, const QStyleOptionViewItem &option,
                       const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QString hint = index.data(GridHintRole).toString();
    if (hint.isEmpty() || !index.data(Qt::DisplayRole).toString().isEmpty())
        return;
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QWidget *widget = cell.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    const QRect text = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, widget) + 1;
    painter->save();
    painter->setPen(cell.palette.color(cell.state & QStyle::State_Selected
                                           ? QPalette::HighlightedText
                                           : QPalette::PlaceholderText));
    painter->setFont(cell.font);
    painter->drawText(text.adjusted(margin, 0, -margin, 0), Qt::AlignVCenter | Qt::AlignLeft,
                      cell.fontMetrics.elidedText(hint, Qt::ElideRight, text.width() - 2 * margin));
    painter->restore();
}

QSize CellEditor::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (index.data(Qt::SizeHintRole).isValid())
        return size;
    // A cell in a font of its own is measured in that font.
    const QVariant font = index.data(Qt::FontRole);
    const QFontMetrics metrics = font.isValid() ? QFontMetrics(font.value<QFont>())
                                                : option.fontMetrics;
    size.setHeight(qMax(size.height(), metrics.height() * 3 / 2 + 4));
    return size;
}

} // namespace bravcpl5
