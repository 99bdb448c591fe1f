#include "printing/LabelProducts.h"

#include "library/Logging.h"
#include "library/ValueRules.h"
#include "library/Xml.h"
#include "printers/PaperSizeCodes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <variant>

namespace bravcpl5 {

namespace {

constexpr double pointsPerInch = 72;
// No sheet or roll of labels is this large; a length beyond it is a broken file.
constexpr double maxInches = 200;
constexpr int maxLabelsPerLine = 1000;
// An equivalent of an equivalent is followed this far; further is taken as a loop.
constexpr int maxEquivalentChain = 16;
// Taken off the right and bottom margins so that a sheet filled exactly to its edge passes
// the preview's fit check, which takes a sum equal to the paper's size as too large.
constexpr double fitAllowance = 0.001;
// Labels may overlap or reach past the sheet's edge by this much (templates round their
// millimetres and points); the page setup's label is made that much smaller.
constexpr double maxShrink = 0.01;

// No more of a file is read again for a log line's line number than a settings file may hold.
constexpr qint64 maxTextForLines = 16 * 1024 * 1024;

// Where a template came from, for log lines: the file, and its text to find line numbers in
// (a file's is read when a line is first needed, which a sound file never needs).
struct Source {
    QString path;
    mutable QByteArray text;

    QString where(pugi::xml_node node) const
    {
        if (text.isEmpty() && !path.isEmpty()) {
            QFile file(path);
            if (file.open(QIODevice::ReadOnly))
                text = file.read(maxTextForLines);
        }
        const ptrdiff_t offset = node.offset_debug();
        const QString name = path.isEmpty() ? QStringLiteral("template text") : path;
        if (offset < 0 || offset > text.size())
            return name;
        return QStringLiteral("%1, line %2").arg(name).arg(text.first(offset).count('\n') + 1);
    }
    void skip(pugi::xml_node node, const QString &why) const
    {
        qCWarning(lcXml).noquote() << "skipping a label template at" << where(node) << "-" << why;
    }
};

// A gLabels length ("2.625in", "66.7mm", "9pt", "1.5cm", "1pc", or a bare number of points)
// in inches; none when it is missing, not a number, has an unknown unit, is negative or
// beyond any sheet.
std::optional<double> inches(const pugi::xml_attribute &attribute)
{
    if (!attribute)
        return std::nullopt;
    QByteArrayView text = QByteArrayView(attribute.value()).trimmed();
    qsizetype unitStart = text.size();
    while (unitStart > 0 && std::isalpha(static_cast<unsigned char>(text[unitStart - 1])))
        --unitStart;
    const QByteArrayView unit = text.sliced(unitStart);
    double perInch = 0;
    if (unit.isEmpty() || unit == "pt")
        perInch = pointsPerInch;
    else if (unit == "in")
        perInch = 1;
    else if (unit == "mm")
        perInch = 25.4;
    else if (unit == "cm")
        perInch = 2.54;
    else if (unit == "pc")
        perInch = 6;
    else
        return std::nullopt;
    bool ok = false;
    const double number = text.first(unitStart).trimmed().toByteArray().toDouble(&ok);
    if (!ok || !std::isfinite(number) || number < 0 || number / perInch > maxInches)
        return std::nullopt;
    return number / perInch;
}

std::optional<int> count(const pugi::xml_attribute &attribute)
{
    bool ok = false;
    const int value = QByteArrayView(attribute.value()).trimmed().toInt(&ok);
    if (!ok || value < 1 || value > maxLabelsPerLine)
        return std::nullopt;
    return value;
}

QString text(const pugi::xml_attribute &attribute) { return QString::fromUtf8(attribute.value()); }

// The shape's element of a template: its one "Label-..." child.
pugi::xml_node labelElement(pugi::xml_node tmpl)
{
    for (pugi::xml_node child : tmpl.children())
        if (child.type() == pugi::node_element && QByteArrayView(child.name()).startsWith("Label-"))
            return child;
    return {};
}

// The label's bounding box; none when the shape is unknown or its size is missing or bad.
std::optional<QSizeF> labelBox(const QString &shape, pugi::xml_node label)
{
    if (shape == u"rectangle" || shape == u"ellipse") {
        const auto w = inches(label.attribute("width"));
        const auto h = inches(label.attribute("height"));
        if (w && h && *w > 0 && *h > 0)
            return QSizeF(*w, *h);
        return std::nullopt;
    }
    if (shape == u"round" || shape == u"cd") {
        const auto r = inches(label.attribute("radius"));
        if (!r || *r <= 0)
            return std::nullopt;
        // A CD label cut to a business card's width and height keeps only that box.
        const auto w = inches(label.attribute("width"));
        const auto h = inches(label.attribute("height"));
        if (shape == u"cd" && w && h && *w > 0 && *h > 0)
            return QSizeF(*w, *h);
        return QSizeF(2 * *r, 2 * *r);
    }
    if (shape == u"continuous") {
        const auto w = inches(label.attribute("width"));
        if (w && *w > 0)
            return QSizeF(*w, 0);
    }
    return std::nullopt;
}

std::optional<LabelLayout> layout(pugi::xml_node node)
{
    const auto nx = count(node.attribute("nx"));
    const auto ny = count(node.attribute("ny"));
    // gLabels reads a missing or empty position or step as 0 (a single column needs no step).
    const auto orZero = [&](const char *name) {
        const pugi::xml_attribute attribute = node.attribute(name);
        return QByteArrayView(attribute.value()).trimmed().isEmpty() ? std::optional(0.0)
                                                                     : inches(attribute);
    };
    const auto x0 = orZero("x0");
    const auto y0 = orZero("y0");
    const auto dx = orZero("dx");
    const auto dy = orZero("dy");
    if (!nx || !ny || !x0 || !y0 || !dx || !dy)
        return std::nullopt;
    return LabelLayout{*nx, *ny, *x0, *y0, *dx, *dy};
}

// A length as the page setup's fields hold it: inches, rounded to a millionth so that
// converted millimetres and points stay short ("2.625", "0.15625", "3.901575").
QString lengthText(double value)
{
    const double rounded = std::round(value * 1e6) / 1e6;
    return values::singleToText(float(rounded == 0 ? 0.0 : rounded));
}

// What a product makes of a page setup's lengths, in inches.
struct Mapping {
    double labelWidth = 0;
    double labelHeight = 0;
    double horizontalGap = 0;
    double verticalGap = 0;
    double leftMargin = 0;
    double topMargin = 0;
    double rightMargin = 0;
    double bottomMargin = 0;
};

// What one direction of the sheet gives the page setup, in inches.
struct Axis {
    double size = 0;
    double gap = 0;
    double endMargin = 0;
};

// One direction of the sheet: a label of `size` every `step`, `count` of them from `start`,
// on a sheet of `paper`; `checked` is the number of labels the preview's fit check counts in
// this direction. The label is made smaller by what the file's rounding lets labels overlap
// or run off the sheet, and by the fit check's allowance, so that the labels keep their
// places; the gap takes up what the label gives.
std::variant<Axis, QString> axis(double size, double step, int count, double start, double paper,
                                 int checked)
{
    // One label in this direction has no gap to speak of, whatever step the file gives.
    const double pitch = count > 1 ? step : size;
    const double overlap = size - pitch;
    if (overlap > maxShrink)
        return QStringLiteral("overlapping labels");
    const double extent = start + (count - 1) * pitch + size;
    if (extent + fitAllowance - paper > maxShrink)
        return QStringLiteral("labels beyond the sheet");
    // What the fit check adds up: with a single label the gap is 0 and every counted label
    // is a whole label, else all but the last are whole steps.
    const double checkedExtent = count > 1 ? start + (checked - 1) * pitch + size
                                           : start + checked * size;
    const double perShrink = count > 1 ? 1.0 : checked;
    const double shrink = std::max({0.0, overlap, extent + fitAllowance - paper,
                                    (checkedExtent + fitAllowance - paper) / perShrink});
    if (shrink > maxShrink)
        return QStringLiteral("more columns than rows fit");
    Axis a;
    a.size = size - shrink;
    a.gap = count > 1 ? pitch - a.size : 0;
    const double checkedAfter = checkedExtent - perShrink * shrink;
    a.endMargin = std::max(0.0, paper - std::max(extent - shrink, checkedAfter) - fitAllowance);
    return a;
}

// The page setup's lengths for a product, or why it cannot hold the product.
std::variant<Mapping, QString> mapping(const LabelProduct &p)
{
    if (p.shape == u"continuous" || p.paperInches.height() <= 0)
        return QStringLiteral("a continuous roll");
    if (p.layouts.size() != 1)
        return QStringLiteral("several layouts");
    const LabelLayout &l = p.layouts.first();
    const auto across = axis(p.labelInches.width(), l.dx, l.nx, l.x0, p.paperInches.width(), l.nx);
    if (const auto *why = std::get_if<QString>(&across))
        return *why;
    // The preview's fit check counts as many rows as there are columns.
    const auto down = axis(p.labelInches.height(), l.dy, l.ny, l.y0, p.paperInches.height(),
                           std::max(l.nx, l.ny));
    if (const auto *why = std::get_if<QString>(&down))
        return *why;
    const Axis &x = std::get<Axis>(across);
    const Axis &y = std::get<Axis>(down);
    return Mapping{x.size, y.size, x.gap, y.gap, l.x0, l.y0, x.endMargin, y.endMargin};
}

// One template element as a product; none, with a log line, when it cannot be one.
std::optional<LabelProduct> product(pugi::xml_node tmpl, const QHash<QString, QSizeF> &paperSizes,
                                    const Source &source)
{
    LabelProduct p;
    p.brand = text(tmpl.attribute("brand")).trimmed();
    p.part = text(tmpl.attribute("part")).trimmed();
    if (p.brand.isEmpty() || p.part.isEmpty()) {
        source.skip(tmpl, QStringLiteral("no brand or part"));
        return std::nullopt;
    }
    p.description = text(tmpl.attribute("_description"));
    if (p.description.isEmpty())
        p.description = text(tmpl.attribute("description"));
    const QString equivalent = text(tmpl.attribute("equiv")).trimmed();
    if (!equivalent.isEmpty()) {
        p.equivalentOf = p.brand + u' ' + equivalent;
        return p;
    }
    for (pugi::xml_node meta : tmpl.children("Meta"))
        if (const QString category = text(meta.attribute("category")); !category.isEmpty())
            p.categories.append(category);

    const QString size = text(tmpl.attribute("size"));
    if (size == u"Other") {
        const auto w = inches(tmpl.attribute("width"));
        const auto h = inches(tmpl.attribute("height"));
        if (!w || !h || *w <= 0 || *h <= 0) {
            source.skip(tmpl, QStringLiteral("no valid sheet width and height"));
            return std::nullopt;
        }
        p.paperInches = QSizeF(*w, *h);
    } else if (size == u"roll") {
        const auto w = inches(tmpl.attribute("width"));
        p.paperInches = QSizeF(w.value_or(0), 0);
    } else if (const auto found = paperSizes.constFind(size); found != paperSizes.cend()) {
        p.paperName = size;
        p.paperInches = *found;
    } else {
        source.skip(tmpl, QStringLiteral("unknown paper size \"%1\"").arg(size));
        return std::nullopt;
    }

    const pugi::xml_node label = labelElement(tmpl);
    p.shape = QString::fromUtf8(label.name()).mid(6);
    const auto box = labelBox(p.shape, label);
    if (!box) {
        source.skip(tmpl, QStringLiteral("no label shape with a valid size"));
        return std::nullopt;
    }
    p.labelInches = *box;
    for (pugi::xml_node node : label.children("Layout")) {
        const auto read = layout(node);
        if (!read) {
            source.skip(node, QStringLiteral("a layout without valid counts and lengths"));
            return std::nullopt;
        }
        p.layouts.append(*read);
    }
    if (p.layouts.isEmpty() && p.shape != u"continuous") {
        source.skip(tmpl, QStringLiteral("no layout"));
        return std::nullopt;
    }
    const auto mapped = mapping(p);
    if (const auto *why = std::get_if<QString>(&mapped))
        p.notRepresentable = *why;
    return p;
}

QList<LabelProduct> products(const pugi::xml_document &document,
                             const QHash<QString, QSizeF> &paperSizes, const Source &source)
{
    QList<LabelProduct> found;
    const pugi::xml_node root = document.document_element();
    if (std::string_view(root.name()) != "Glabels-templates") {
        source.skip(root, QStringLiteral("not a gLabels template file"));
        return found;
    }
    for (pugi::xml_node tmpl : root.children("Template"))
        if (auto p = product(tmpl, paperSizes, source))
            found.append(std::move(*p));
    return found;
}

// Case-insensitive, with runs of digits compared as numbers: "5160" before "15160",
// "L7160" before "L7651".
int naturalCompare(const QString &a, const QString &b)
{
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            qsizetype ei = i;
            qsizetype ej = j;
            while (ei < a.size() && a[ei].isDigit())
                ++ei;
            while (ej < b.size() && b[ej].isDigit())
                ++ej;
            // Leading zeros do not count: "007" and "7" are the same number.
            while (i + 1 < ei && a[i] == u'0')
                ++i;
            while (j + 1 < ej && b[j] == u'0')
                ++j;
            if (ei - i != ej - j)
                return ei - i < ej - j ? -1 : 1;
            if (const int c = QStringView(a).sliced(i, ei - i).compare(
                    QStringView(b).sliced(j, ej - j));
                c != 0)
                return c;
            i = ei;
            j = ej;
            continue;
        }
        const QChar ca = a[i].toCaseFolded();
        const QChar cb = b[j].toCaseFolded();
        if (ca != cb)
            return ca < cb ? -1 : 1;
        ++i;
        ++j;
    }
    return (a.size() - i > 0) - (b.size() - j > 0);
}

struct PaperSizes {
    QHash<QString, QSizeF> inches; // by id
    QHash<QString, QString> names; // "US-Letter" -> "US Letter"
};

void readPaperSizes(const QString &path, PaperSizes &sizes)
{
    const XmlDocumentPtr document = LoadXmlFile(path);
    if (!document)
        return;
    for (pugi::xml_node paper : document->document_element().children("Paper-size")) {
        const QString id = text(paper.attribute("id"));
        const auto w = inches(paper.attribute("width"));
        const auto h = inches(paper.attribute("height"));
        if (id.isEmpty() || !w || !h || *w <= 0 || *h <= 0)
            continue;
        sizes.inches.insert(id, QSizeF(*w, *h));
        const QString name = text(paper.attribute("_name"));
        sizes.names.insert(id, name.isEmpty() ? id : name);
    }
}

QStringList templateFiles(const QString &folder)
{
    QStringList files;
    const QDir dir(folder);
    for (const QString &name :
         dir.entryList({QStringLiteral("*-templates.xml"), QStringLiteral("*.template")},
                       QDir::Files | QDir::Readable, QDir::Name))
        files.append(dir.filePath(name));
    return files;
}

// Gives each equivalent the geometry of the product it names, following equivalents of
// equivalents; an equivalent of an unknown product, or of itself around a loop, is dropped.
QList<LabelProduct> resolveEquivalents(QList<LabelProduct> all)
{
    QHash<QString, qsizetype> byName;
    for (qsizetype i = 0; i < all.size(); ++i)
        byName.insert(all[i].name().toCaseFolded(), i);
    QList<LabelProduct> resolved;
    resolved.reserve(all.size());
    for (const LabelProduct &p : all) {
        const LabelProduct *target = &p;
        int steps = 0;
        while (target && !target->equivalentOf.isEmpty() && steps++ < maxEquivalentChain) {
            const auto found = byName.constFind(target->equivalentOf.toCaseFolded());
            target = found == byName.cend() ? nullptr : &all[*found];
        }
        if (!target || !target->equivalentOf.isEmpty()) {
            qCWarning(lcXml).noquote()
                << "skipping label product" << p.name() << "- its equivalent" << p.equivalentOf
                << (target ? "leads around a loop" : "is not known");
            continue;
        }
        LabelProduct copy = *target;
        copy.brand = p.brand;
        copy.part = p.part;
        if (!p.description.isEmpty())
            copy.description = p.description;
        copy.equivalentOf = p.equivalentOf;
        resolved.append(std::move(copy));
    }
    return resolved;
}

} // namespace

QStringList LabelTemplateFolders(const QString &hostFolder)
{
    if (!hostFolder.isEmpty())
        return {hostFolder};
    const QStringList candidates = {
        QStringLiteral("/usr/share/libglabels-3.0/templates"),
        QStringLiteral("/usr/share/glabels/templates"),
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
            + QStringLiteral("/libglabels-3.0/templates"),
        QDir::homePath() + QStringLiteral("/.glabels"),
    };
    QStringList folders;
    for (const QString &folder : candidates)
        if (QFileInfo(folder).isDir() && !folders.contains(folder))
            folders.append(folder);
    return folders;
}

LabelDatabase LoadLabelProducts(const QStringList &folders)
{
    LabelDatabase database;
    PaperSizes papers;
    for (const QString &folder : folders)
        readPaperSizes(QDir(folder).filePath(QStringLiteral("paper-sizes.xml")), papers);

    // A product read again from a later folder (the user's own) replaces the earlier one.
    QList<LabelProduct> all;
    QHash<QString, qsizetype> seen;
    for (const QString &folder : folders) {
        const QStringList files = templateFiles(folder);
        if (files.isEmpty())
            continue;
        database.folders.append(folder);
        for (const QString &path : files) {
            const XmlDocumentPtr document = LoadXmlFile(path);
            if (!document)
                continue;
            for (LabelProduct &p : products(*document, papers.inches, Source{path, {}})) {
                p.paperName = papers.names.value(p.paperName, p.paperName);
                const QString key = p.name().toCaseFolded();
                if (const auto found = seen.constFind(key); found != seen.cend()) {
                    all[*found] = std::move(p);
                } else {
                    seen.insert(key, all.size());
                    all.append(std::move(p));
                }
            }
        }
    }
    database.products = resolveEquivalents(std::move(all));
    std::stable_sort(database.products.begin(), database.products.end(),
                     [](const LabelProduct &a, const LabelProduct &b) {
                         if (const int c = naturalCompare(a.brand, b.brand); c != 0)
                             return c < 0;
                         return naturalCompare(a.part, b.part) < 0;
                     });
    return database;
}

QList<LabelProduct> ParseLabelTemplates(const QByteArray &text,
                                        const QHash<QString, QSizeF> &paperSizes)
{
    const XmlDocumentPtr document = LoadXmlText(QString::fromUtf8(text));
    if (!document) {
        qCWarning(lcXml).noquote() << "skipping label template text -" << LastXmlError();
        return {};
    }
    return products(*document, paperSizes, Source{QString(), text});
}

QList<qsizetype> FilterLabelProducts(const QList<LabelProduct> &products, const QString &search)
{
    const QStringList words = search.simplified().split(u' ', Qt::SkipEmptyParts);
    QList<qsizetype> found;
    found.reserve(products.size());
    for (qsizetype i = 0; i < products.size(); ++i) {
        const LabelProduct &p = products[i];
        const bool all = std::all_of(words.cbegin(), words.cend(), [&](const QString &word) {
            return p.brand.contains(word, Qt::CaseInsensitive)
                   || p.part.contains(word, Qt::CaseInsensitive)
                   || p.description.contains(word, Qt::CaseInsensitive);
        });
        if (all)
            found.append(i);
    }
    return found;
}

bool ApplyLabelProduct(const LabelProduct &product, PageSetup &setup)
{
    const auto mapped = mapping(product);
    const auto *m = std::get_if<Mapping>(&mapped);
    if (!m)
        return false;
    const LabelLayout &l = product.layouts.first();
    const QSizeF paper = product.paperInches;
    const int code = StandardPaperSizeCode(paper * pointsPerInch);
    setup.paperSize = code > 0 ? code : FirstPrinterPaperCode;
    setup.paperWidth = lengthText(paper.width());
    setup.paperHeight = lengthText(paper.height());
    setup.landscape = false;
    setup.mirrorMargins = false;
    setup.gutter = lengthText(0);
    setup.leftMargin = lengthText(m->leftMargin);
    setup.topMargin = lengthText(m->topMargin);
    setup.rightMargin = lengthText(m->rightMargin);
    setup.bottomMargin = lengthText(m->bottomMargin);
    setup.columnsPerSheet = values::integerToText(l.nx);
    setup.labelWidth = lengthText(m->labelWidth);
    setup.labelHeight = lengthText(m->labelHeight);
    setup.horizontalGap = lengthText(m->horizontalGap);
    setup.verticalGap = lengthText(m->verticalGap);
    return true;
}

} // namespace bravcpl5
