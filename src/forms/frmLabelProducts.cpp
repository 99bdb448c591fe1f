#include "forms/frmLabelProducts.h"

#include "ui_frmLabelProducts.h"

#include <QAbstractTableModel>
#include <QDir>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QSet>
#include <QStyle>
#include <optional>
#include <vector>

namespace bravcpl5 {

// The products the search finds, over the database without copying it: a keystroke only
// swaps the list of indexes, so that the view shows its first rows at once.
class LabelProductList : public QAbstractTableModel
{
public:
    enum Column { Brand, Part, Description, Sheet, Columns };

    LabelProductList(const QList<LabelProduct> &products, QObject *parent)
        : QAbstractTableModel(parent), m_products(products)
    {}

    // The products the search finds, and those declared equivalent to them: a dealer who
    // types "5160" is shown every sheet sold as the same.
    void filter(const QString &search)
    {
        std::vector<bool> listed(m_products.size(), false);
        QSet<QString> found;
        for (qsizetype index : FilterLabelProducts(m_products, search)) {
            listed[index] = true;
            found.insert(m_products[index].name());
        }
        beginResetModel();
        m_rows.clear();
        for (qsizetype index = 0; index < m_products.size(); ++index) {
            const QString &original = m_products[index].equivalentOf;
            if (listed[index] || (!original.isEmpty() && found.contains(original)))
                m_rows.append(index);
        }
        endResetModel();
    }
    qsizetype productAt(int row) const { return m_rows[row]; }
    bool usable(int row) const { return m_products[m_rows[row]].notRepresentable.isEmpty(); }
    const QString &part(int row) const { return m_products[m_rows[row]].part; }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : Columns;
    }

    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        if (!index.isValid())
            return Qt::NoItemFlags;
        return usable(index.row())
                   ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
                   : Qt::ItemNeverHasChildren;
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid())
            return {};
        const LabelProduct &product = m_products[m_rows[index.row()]];
        if (role == Qt::ToolTipRole) {
            if (!product.notRepresentable.isEmpty())
                return QStringLiteral("A page setup cannot hold this sheet: ")
                       + product.notRepresentable;
            if (!product.equivalentOf.isEmpty())
                return QStringLiteral("The same sheet as ") + product.equivalentOf;
            return {};
        }
        if (role != Qt::DisplayRole)
            return {};
        switch (index.column()) {
        case Brand:
            return product.brand;
        case Part:
            return product.part;
        case Description:
            if (product.equivalentOf.isEmpty())
                return product.description;
            return product.description + QStringLiteral(", as ") + product.equivalentOf;
        case Sheet:
            return sheetText(product);
        }
        return {};
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        static const char *const titles[] = {"Brand", "Part", "Description", "Sheet"};
        return section >= 0 && section < Columns ? QString::fromLatin1(titles[section])
                                                 : QVariant();
    }

private:
    static QString sizeText(const QSizeF &inches)
    {
        return QStringLiteral("%1 x %2 in")
            .arg(inches.width(), 0, 'g', 4)
            .arg(inches.height(), 0, 'g', 4);
    }

    // The sheet's name, else its size (a roll by its width), and the labels it holds.
    static QString sheetText(const LabelProduct &product)
    {
        const QSizeF &sheet = product.paperInches;
        QString text = !product.paperName.isEmpty() ? product.paperName
                       : sheet.height() <= 0
                           ? QStringLiteral("Roll %1 in wide").arg(sheet.width(), 0, 'g', 4)
                           : sizeText(sheet);
        if (product.layouts.size() == 1) {
            const LabelLayout &layout = product.layouts.first();
            text += QStringLiteral(", %1 of %2")
                        .arg(layout.nx * layout.ny)
                        .arg(sizeText(product.labelInches));
        }
        return text;
    }

    const QList<LabelProduct> &m_products;
    QList<qsizetype> m_rows;
};

frmLabelProducts::frmLabelProducts(QWidget *parent)
    : ModalForm(parent, true, Placement::Remembered),
      ui(std::make_unique<Ui::frmLabelProducts>()),
      m_list(nullptr)
{
    ui->setupUi(this);
    ui->txtSearch->installEventFilter(this);
    connect(ui->txtSearch, &QLineEdit::textChanged, this, &frmLabelProducts::txtSearch_Change);
    connect(ui->lstProducts, &QAbstractItemView::doubleClicked, this,
            &frmLabelProducts::lstProducts_DblClick);
    connect(ui->cmdOK, &QPushButton::clicked, this, &frmLabelProducts::cmdOK_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmLabelProducts::cmdCancel_Click);
    ui->cmdOK->setEnabled(false);
}

frmLabelProducts::~frmLabelProducts() = default;

void frmLabelProducts::Initialize(const LabelDatabase &database)
{
    m_database = &database;
    m_list = new LabelProductList(database.products, this);
    m_list->filter(QString());
    ui->lstProducts->setModel(m_list);
    connect(ui->lstProducts->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmLabelProducts::updateOk);

    QHeaderView *header = ui->lstProducts->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(LabelProductList::Description, QHeaderView::Stretch);
    // Each column as wide as its longest text, measured once: the view's own measuring
    // takes longer than a frame over this many rows.
    const QFontMetrics metrics(ui->lstProducts->font());
    const int padding = 3 * ui->lstProducts->style()->pixelMetric(QStyle::PM_FocusFrameHMargin)
                        + metrics.averageCharWidth();
    for (int column : {LabelProductList::Brand, LabelProductList::Part, LabelProductList::Sheet}) {
        QString longest = m_list->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        for (int row = 0; row < m_list->rowCount(); ++row) {
            const QString text = m_list->index(row, column).data().toString();
            if (text.size() > longest.size())
                longest = text;
        }
        header->resizeSection(column, metrics.horizontalAdvance(longest) + padding);
    }

    QStringList folders;
    for (const QString &folder : database.folders)
        folders << QDir::toNativeSeparators(folder);
    ui->lblSource->setText(QStringLiteral("From gLabels' label templates in ")
                           + folders.join(QStringLiteral(", ")));
    txtSearch_Change();
}

const LabelProduct *frmLabelProducts::chosen() const
{
    return m_database && m_chosen >= 0 ? &m_database->products[m_chosen] : nullptr;
}

bool frmLabelProducts::eventFilter(QObject *watched, QEvent *event)
{
    // The arrow and page keys move through the list while the search keeps the focus.
    if (watched == ui->txtSearch && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent *>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(ui->lstProducts, event);
            return true;
        default:
            break;
        }
    }
    return ModalForm::eventFilter(watched, event);
}

void frmLabelProducts::txtSearch_Change()
{
    if (!m_list)
        return;
    const QString search = ui->txtSearch->text();
    m_list->filter(search);
    // The first product that can be chosen is current, so that Enter takes it; the first
    // whose part number was typed in full comes before it ("5160" takes Avery 5160).
    const QStringList words = search.split(u' ', Qt::SkipEmptyParts);
    std::optional<int> first;
    std::optional<int> typed;
    int usable = 0;
    for (int row = 0; row < m_list->rowCount(); ++row) {
        if (!m_list->usable(row))
            continue;
        ++usable;
        if (!first)
            first = row;
        if (!typed && words.contains(m_list->part(row), Qt::CaseInsensitive))
            typed = row;
    }
    if (typed || first)
        ui->lstProducts->setCurrentIndex(m_list->index(typed ? *typed : *first, 0));
    updateOk();

    const QLocale locale;
    const int found = m_list->rowCount();
    QString count = QStringLiteral("%1 of %2 products")
                        .arg(locale.toString(found), locale.toString(m_database->products.size()));
    if (usable < found)
        count += QStringLiteral("; %1 greyed, which a page setup cannot hold")
                     .arg(locale.toString(found - usable));
    ui->lblCount->setText(count);
}

void frmLabelProducts::updateOk()
{
    const QModelIndex current = ui->lstProducts->currentIndex();
    ui->cmdOK->setEnabled(current.isValid() && m_list->usable(current.row()));
}

void frmLabelProducts::lstProducts_DblClick(const QModelIndex &index)
{
    if (!index.isValid() || !m_list->usable(index.row()))
        return;
    ui->lstProducts->setCurrentIndex(index);
    cmdOK_Click();
}

void frmLabelProducts::cmdOK_Click()
{
    const QModelIndex current = ui->lstProducts->currentIndex();
    if (!current.isValid() || !m_list->usable(current.row()))
        return;
    m_chosen = m_list->productAt(current.row());
    setCancelled(false);
    accept();
}

void frmLabelProducts::cmdCancel_Click()
{
    setCancelled(true);
    reject();
}

namespace {

struct InstalledProducts {
    QString folder;
    std::optional<LabelDatabase> database;
};

InstalledProducts &installed()
{
    static InstalledProducts products;
    return products;
}

} // namespace

const LabelDatabase &InstalledLabelProducts()
{
    InstalledProducts &products = installed();
    if (!products.database)
        products.database = LoadLabelProducts(LabelTemplateFolders(products.folder));
    return *products.database;
}

void SetLabelTemplateFolder(const QString &folder)
{
    installed() = InstalledProducts{folder, std::nullopt};
}

} // namespace bravcpl5
