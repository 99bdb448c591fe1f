#include "Commands.h"

#include "library/LateBinding.h"
#include "library/Registry.h"
#include "library/Units.h"
#include "library/ValueRules.h"
#include "library/WholeFile.h"
#include "printers/PaperSizeCodes.h"
#include "printers/PrinterInfo.h"
#include "printing/ConfigurationCommands.h"
#include "printing/ConfigurationElements.h"
#include "printing/LabelProducts.h"
#include "printing/PageSetup.h"
#include "printing/PrinterCheck.h"
#include "printing/PrinterConfigurations.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <optional>

using namespace bravcpl5;

namespace {

constexpr auto exportFormat = "bravcpl5-printer-assignments";
constexpr int exportVersion = 1;

QObject *store(CommandContext &context)
{
    return late::object(context.library, "PrinterConfigurations");
}

QObject *host(CommandContext &context)
{
    return late::object(context.library, "SharedCodeLibrary");
}

QStringList configurationNames(CommandContext &context)
{
    QStringList names =
        late::value(store(context), "GetPrinterConfigurations", {true}).toStringList();
    names.removeAll(QString());
    return names;
}

// The configuration's own spelling of `name`; "" when there is none.
QString findConfiguration(CommandContext &context, const QString &name)
{
    for (const QString &configuration : configurationNames(context)) {
        if (configuration.compare(name, Qt::CaseInsensitive) == 0)
            return configuration;
    }
    return QString();
}

QString ownPrinter(CommandContext &context, const QString &configuration)
{
    return late::text(store(context), "GetPrinterForConfiguration", {configuration, true});
}

// The store's lists of every configuration: a lookup per name would list the folders and
// read the registry once per configuration.
PrinterConfigurations &typedStore(CommandContext &context)
{
    return *qobject_cast<PrinterConfigurations *>(store(context));
}

// Every assignment of this workstation's profile, names as they were first written.
QList<std::pair<QString, QString>> assignments(CommandContext &context)
{
    const QString key = PrinterConfigurationsKey(host(context));
    return key.isEmpty() ? QList<std::pair<QString, QString>>()
                         : GetRegValues(HKEY_CURRENT_USER_HANDLE, key);
}

QString inches(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("-") : text + QStringLiteral(" in");
}

QString paperDimensions(const PaperSizeInfo &size)
{
    return QStringLiteral("%1 x %2 in")
        .arg(size.widthTwips / TwipsPerInch, 0, 'g', 4)
        .arg(size.heightTwips / TwipsPerInch, 0, 'g', 4);
}

int refuse(CommandContext &context, const QString &why)
{
    context.err << "bravcpl5-config: " << why << Qt::endl;
    return Refused;
}

// The configuration's page setup as its file holds it: codes as stored, none where none is.
// A refusal when the file cannot be read.
std::optional<int> readAsStored(CommandContext &context, const QString &name, PageSetup &setup)
{
    PrinterConfigurations &configurations = typedStore(context);
    PageSetupChoices asStored;
    asStored.storedCodes = true;
    if (configurations.readPageSetup(name, asStored, PaperDefaults(), setup))
        return std::nullopt;
    return refuse(context, QStringLiteral("the file '%1' cannot be read")
                               .arg(configurations.GetPrinterConfigurationFileFromName(name)));
}

int notSaved(CommandContext &context)
{
    return refuse(context, QStringLiteral("the registry file '%1' could not be written; "
                                          "nothing changed")
                               .arg(RegistryFile()));
}

} // namespace

QString DefaultAssignmentName() { return QString::fromLatin1(DefaultPrinterValueName); }

int ListConfigurations(CommandContext &context)
{
    PrinterConfigurations &configurations = typedStore(context);
    const QHash<QString, QString> printers = configurations.printerAssignments();
    QJsonArray rows;
    QList<QStringList> table;
    for (const ConfigurationRow &row : configurations.configurations()) {
        rows.append(QJsonObject{{"name", row.name},
                                {"printer", row.printer},
                                {"file", row.file},
                                {"system", row.system}});
        table.append({row.name, row.printer.isEmpty() ? QStringLiteral("-") : row.printer,
                      row.system ? QStringLiteral("yes") : QStringLiteral("no"), row.file});
    }
    const QString fallback = printers.value(DefaultAssignmentName().toCaseFolded());
    if (context.json) {
        const QJsonObject answer{{"default", fallback}, {"configurations", rows}};
        context.out << QJsonDocument(answer).toJson(QJsonDocument::Indented);
        return Done;
    }
    table.prepend({QStringLiteral("CONFIGURATION"), QStringLiteral("PRINTER"),
                   QStringLiteral("SHARED"), QStringLiteral("FILE")});
    QList<qsizetype> widths(4, 0);
    for (const QStringList &row : std::as_const(table)) {
        for (int column = 0; column < 3; ++column)
            widths[column] = qMax(widths[column], row[column].size());
    }
    for (const QStringList &row : std::as_const(table))
        context.out << row[0].leftJustified(widths[0] + 2) << row[1].leftJustified(widths[1] + 2)
                    << row[2].leftJustified(widths[2] + 2) << row[3] << '\n';
    context.out << "Default printer: " << (fallback.isEmpty() ? QStringLiteral("-") : fallback)
                << '\n';
    return Done;
}

int AssignPrinter(CommandContext &context, const QString &configuration, const QString &printer)
{
    const bool fallback = configuration == DefaultAssignmentName();
    const QString name = fallback ? configuration : findConfiguration(context, configuration);
    if (name.isEmpty())
        return refuse(
            context,
            QStringLiteral("there is no printer configuration named '%1'").arg(configuration));
    const QString installed = FindPrinter(CurrentPrinterInfo(), printer);
    if (installed.isEmpty())
        return refuse(
            context,
            QStringLiteral("there is no printer named '%1' on this computer").arg(printer));
    if (!typedStore(context).assignPrinter(name, installed))
        return notSaved(context);
    context.out << name << " -> " << installed << '\n';
    return Done;
}

int UnassignPrinter(CommandContext &context, const QString &configuration)
{
    const bool fallback = configuration == DefaultAssignmentName();
    const QString name = fallback ? configuration : findConfiguration(context, configuration);
    if (name.isEmpty())
        return refuse(
            context,
            QStringLiteral("there is no printer configuration named '%1'").arg(configuration));
    if (ownPrinter(context, name).isEmpty())
        return refuse(context,
                      QStringLiteral("'%1' has no printer of its own; nothing changed").arg(name));
    // An empty printer reads as none everywhere.
    if (!typedStore(context).assignPrinter(name, QString()))
        return notSaved(context);
    context.out << name << " has no printer of its own now\n";
    return Done;
}

int ShowConfiguration(CommandContext &context, const QString &configuration)
{
    const QString name = findConfiguration(context, configuration);
    if (name.isEmpty())
        return refuse(
            context,
            QStringLiteral("there is no printer configuration named '%1'").arg(configuration));
    // Each value under its element's name.
    PrinterConfigurations &configurations = typedStore(context);
    PageSetup setup;
    if (const std::optional<int> refused = readAsStored(context, name, setup))
        return *refused;
    const QString file = configurations.GetPrinterConfigurationFileFromName(name);

    const QString printer = configurations.GetPrinterForConfiguration(name);
    context.out << "Configuration: " << name << '\n'
                << "File: " << file << '\n'
                << "Printer: " << (printer.isEmpty() ? QStringLiteral("-") : printer) << '\n';
    for (const auto &[label, text] : std::initializer_list<std::pair<const char *, QString>>{
             {pagesetup::topMargin, setup.topMargin},
             {pagesetup::bottomMargin, setup.bottomMargin},
             {pagesetup::leftMargin, setup.leftMargin},
             {pagesetup::rightMargin, setup.rightMargin},
             {pagesetup::gutter, setup.gutter},
             {pagesetup::labelWidth, setup.labelWidth},
             {pagesetup::labelHeight, setup.labelHeight},
             {pagesetup::horizontalGap, setup.horizontalGap},
             {pagesetup::verticalGap, setup.verticalGap}})
        context.out << label << ": " << inches(text) << '\n';
    context.out << pagesetup::orientation << ": " << (setup.landscape ? "landscape" : "portrait")
                << '\n'
                << pagesetup::columnsPerSheet << ": " << setup.columnsPerSheet << '\n';

    // What the printer makes of the stored codes; a code that is not stored is the
    // printer's current one.
    const PrinterInfo &info = CurrentPrinterInfo();
    const QString installed = FindPrinter(info, printer);
    const PrinterPaper paper = info.paper(installed);
    const int sizeCode = setup.paperSize.value_or(paper.currentSize);
    QString size = QStringLiteral("code %1, not offered by the printer").arg(sizeCode);
    const auto length = [](const QString &text) { return values::textToSingle(text).value_or(0); };
    if (const PaperSizeInfo *offered = StoredPaperSize(
            paper.sizes, sizeCode, QSizeF(length(setup.paperWidth), length(setup.paperHeight))))
        size = QStringLiteral("%1 (code %2, %3)")
                   .arg(offered->name)
                   .arg(offered->code)
                   .arg(paperDimensions(*offered));
    if (sizeCode >= FirstPrinterPaperCode)
        size += QStringLiteral("; stored size %1 x %2")
                    .arg(inches(setup.paperWidth), inches(setup.paperHeight));
    const int binCode = setup.paperSource.value_or(paper.currentBin);
    QString bin = QStringLiteral("code %1, not offered by the printer").arg(binCode);
    for (const PaperBinInfo &source : paper.bins) {
        if (source.code == binCode)
            bin = QStringLiteral("%1 (code %2)").arg(source.name).arg(binCode);
    }
    context.out << "Paper size: " << size << (setup.paperSize ? "" : " (the printer's own)") << '\n'
                << "Paper source: " << bin << (setup.paperSource ? "" : " (the printer's own)")
                << '\n';
    return Done;
}

namespace {

// Tells what a rename, copy or delete did, with the dialog's words when it did nothing.
int reportChange(CommandContext &context, ConfigurationCommand command,
                 const ConfigurationChange &change, const QString &name,
                 const QString &requested = QString())
{
    if (!change.done())
        return refuse(context, ChangeMessage(command, change, name, requested));
    switch (command) {
    case ConfigurationCommand::Delete:
        context.out << "deleted " << name << '\n';
        break;
    default:
        context.out << name << " -> " << change.name << " (" << change.file << ")\n";
        break;
    }
    return Done;
}

} // namespace

int RenameConfiguration(CommandContext &context, const QString &configuration, const QString &name)
{
    return reportChange(context, ConfigurationCommand::Rename,
                        typedStore(context).renameConfiguration(configuration, name), configuration,
                        name);
}

int CopyConfiguration(CommandContext &context, const QString &configuration)
{
    return reportChange(context, ConfigurationCommand::Copy,
                        typedStore(context).copyConfiguration(configuration), configuration);
}

int DeleteConfiguration(CommandContext &context, const QString &configuration)
{
    return reportChange(context, ConfigurationCommand::Delete,
                        typedStore(context).deleteConfiguration(configuration), configuration);
}

int VerifyConfigurations(CommandContext &context, const QString &configuration)
{
    const QString name = configuration.isEmpty() ? QString()
                                                 : findConfiguration(context, configuration);
    if (!configuration.isEmpty() && name.isEmpty())
        return refuse(
            context,
            QStringLiteral("there is no printer configuration named '%1'").arg(configuration));
    const QList<ConfigurationCheck> checks = typedStore(context).checkConfigurations(
        CurrentPrinterInfo(), context.withState, name);
    bool found = false;
    QJsonArray rows;
    for (const ConfigurationCheck &check : checks) {
        found = found || !check.findings.isEmpty();
        const QString printer = check.printer.isEmpty() ? QStringLiteral("-") : check.printer;
        if (!context.json && check.findings.isEmpty())
            context.out << check.configuration << '\t' << printer << "\tok\n";
        QJsonArray findings;
        for (const PrinterFinding &finding : check.findings) {
            if (context.json)
                findings.append(
                    QJsonObject{{"kind", FindingKindName(finding.kind)},
                                {"message", finding.message},
                                {"values", QJsonObject::fromVariantMap(finding.values)}});
            else
                context.out << check.configuration << '\t' << printer << '\t'
                            << FindingKindName(finding.kind) << '\t' << finding.message << '\n';
        }
        rows.append(QJsonObject{{"configuration", check.configuration},
                                {"printer", check.printer},
                                {"findings", findings}});
    }
    if (context.json)
        context.out << QJsonDocument(rows).toJson(QJsonDocument::Indented);
    return found ? Findings : Done;
}

int ExportAssignments(CommandContext &context, const QString &file)
{
    QJsonObject printers;
    for (const auto &[name, printer] : assignments(context)) {
        if (!printer.isEmpty())
            printers.insert(name, printer);
    }
    const QJsonObject document{
        {"format", exportFormat}, {"version", exportVersion}, {"assignments", printers}};
    if (!WriteWholeFile(file, QJsonDocument(document).toJson(QJsonDocument::Indented)))
        return refuse(context, QStringLiteral("the file '%1' could not be written").arg(file));
    context.out << printers.size() << " assignments written to " << file << '\n';
    return Done;
}

namespace {

// One entry of an import as it would be written, and what it does to the registry.
struct ImportEntry {
    QString name;
    QString printer;
    const char *change = "";
};

// The entries of an import with the workstation's own spelling of each configuration and
// printer, and what each would change; every bad entry is named on `err`, and any one of
// them leaves none.
std::optional<QList<ImportEntry>> importEntries(CommandContext &context,
                                                const QJsonObject &printers, const QString &file)
{
    QHash<QString, QString> names;
    for (const QString &name : configurationNames(context))
        names.insert(name.toCaseFolded(), name);
    names.insert(DefaultAssignmentName().toCaseFolded(), DefaultAssignmentName());
    QHash<QString, QString> current;
    for (const auto &[name, printer] : assignments(context))
        current.insert(name.toCaseFolded(), printer);
    const PrinterInfo &info = CurrentPrinterInfo();

    QList<ImportEntry> entries;
    bool bad = false;
    for (auto it = printers.begin(); it != printers.end(); ++it) {
        const QString printer = it.value().toString();
        if (it.key().isEmpty() || !it.value().isString() || printer.isEmpty()) {
            refuse(context,
                   QStringLiteral("'%1' holds an assignment without a name or printer").arg(file));
            bad = true;
            continue;
        }
        ImportEntry entry{names.value(it.key().toCaseFolded()), FindPrinter(info, printer)};
        if (entry.name.isEmpty() && !context.force) {
            refuse(context,
                   QStringLiteral("there is no printer configuration named '%1'").arg(it.key()));
            bad = true;
        }
        if (entry.printer.isEmpty() && !context.force) {
            refuse(context,
                   QStringLiteral("there is no printer named '%1' on this computer").arg(printer));
            bad = true;
        }
        if (entry.name.isEmpty())
            entry.name = it.key();
        if (entry.printer.isEmpty())
            entry.printer = printer;
        const auto was = current.constFind(entry.name.toCaseFolded());
        entry.change = was == current.cend() || was->isEmpty() ? "added"
                       : *was == entry.printer                 ? "unchanged"
                                                               : "changed";
        entries.append(entry);
    }
    if (bad)
        return std::nullopt;
    return entries;
}

} // namespace

int ImportAssignments(CommandContext &context, const QString &file)
{
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
        return refuse(context, QStringLiteral("the file '%1' cannot be read").arg(file));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(input.read(1024 * 1024), &error);
    const QJsonObject root = document.object();
    if (error.error != QJsonParseError::NoError
        || root.value("format").toString() != QLatin1String(exportFormat)
        || root.value("version").toInt() != exportVersion || !root.value("assignments").isObject())
        return refuse(context,
                      QStringLiteral("'%1' is not an export of bravcpl5-config").arg(file));
    // Checked whole before anything is written: a bad entry changes nothing.
    const std::optional<QList<ImportEntry>> entries = importEntries(
        context, root.value("assignments").toObject(), file);
    if (!entries)
        return refuse(context, QStringLiteral("nothing was imported from '%1'").arg(file));

    QList<std::pair<QString, QString>> changes;
    for (const ImportEntry &entry : *entries) {
        if (qstrcmp(entry.change, "unchanged") != 0)
            changes.append({entry.name, entry.printer});
        if (context.dryRun)
            context.out << entry.change << ' ' << entry.name << " -> " << entry.printer << '\n';
    }
    if (context.dryRun) {
        context.out << changes.size() << " of " << entries->size() << " assignments in " << file
                    << " would change; nothing was written\n";
        return Done;
    }
    const QString key = PrinterConfigurationsKey(host(context));
    if (!changes.isEmpty()
        && (key.isEmpty() || !SetRegValues(HKEY_CURRENT_USER_HANDLE, key, changes)))
        return notSaved(context);
    context.out << entries->size() << " assignments read from " << file << ", " << changes.size()
                << " changed\n";
    return Done;
}

int ListPrinters(CommandContext &context)
{
    const PrinterInfo &info = CurrentPrinterInfo();
    const QString fallback = info.defaultPrinterName();
    for (const QString &printer : info.printerNames()) {
        context.out << printer << (printer == fallback ? " (default)" : "") << '\n';
        for (const PaperSizeInfo &size : info.paperSizes(printer))
            context.out << "  size " << size.code << '\t' << size.name << '\t'
                        << paperDimensions(size) << '\n';
        for (const PaperBinInfo &bin : info.paperBins(printer))
            context.out << "  bin  " << bin.code << '\t' << bin.name << '\n';
    }
    return Done;
}

namespace {

// The products of the template folders; none, with the tool having said how to get them,
// when there are no template files.
std::optional<LabelDatabase> labelProducts(CommandContext &context)
{
    const QStringList folders = LabelTemplateFolders(context.labelTemplates);
    LabelDatabase database = LoadLabelProducts(folders);
    if (!database.products.isEmpty())
        return database;
    const QString where = folders.isEmpty() ? context.labelTemplates : folders.join(", ");
    refuse(context, QStringLiteral("no label products in %1; install gLabels' templates "
                                   "(the package glabels-data: apt install glabels-data)")
                        .arg(where.isEmpty() ? QStringLiteral("any template folder") : where));
    return std::nullopt;
}

QString number(double value) { return QString::number(value, 'g', 6); }

// "US Letter", "4 x 6 in", "a roll 2.25 in wide".
QString sheetOf(const LabelProduct &product)
{
    if (!product.paperName.isEmpty())
        return product.paperName;
    const QSizeF &paper = product.paperInches;
    if (paper.height() <= 0)
        return QStringLiteral("a roll %1 in wide").arg(number(paper.width()));
    return QStringLiteral("%1 x %2 in").arg(number(paper.width()), number(paper.height()));
}

// "3 x 10 of 2.625 x 1 in", each layout of the sheet.
QString geometryOf(const LabelProduct &product)
{
    QStringList layouts;
    for (const LabelLayout &layout : product.layouts)
        layouts << QStringLiteral("%1 x %2").arg(layout.nx).arg(layout.ny);
    return QStringLiteral("%1 of %2 x %3 in")
        .arg(layouts.join(QStringLiteral(" + ")), number(product.labelInches.width()),
             number(product.labelInches.height()));
}

QJsonObject productObject(const LabelProduct &product)
{
    QJsonArray layouts;
    for (const LabelLayout &l : product.layouts)
        layouts.append(QJsonObject{
            {"nx", l.nx}, {"ny", l.ny}, {"x0", l.x0}, {"y0", l.y0}, {"dx", l.dx}, {"dy", l.dy}});
    return QJsonObject{{"name", product.name()},
                       {"brand", product.brand},
                       {"part", product.part},
                       {"description", product.description},
                       {"paper", product.paperName},
                       {"paperWidth", product.paperInches.width()},
                       {"paperHeight", product.paperInches.height()},
                       {"categories", QJsonArray::fromStringList(product.categories)},
                       {"shape", product.shape},
                       {"labelWidth", product.labelInches.width()},
                       {"labelHeight", product.labelInches.height()},
                       {"layouts", layouts},
                       {"equivalentOf", product.equivalentOf},
                       {"notRepresentable", product.notRepresentable}};
}

} // namespace

int ListLabelProducts(CommandContext &context, const QString &search)
{
    const std::optional<LabelDatabase> database = labelProducts(context);
    if (!database)
        return Refused;
    QJsonArray rows;
    for (const qsizetype index : FilterLabelProducts(database->products, search)) {
        const LabelProduct &product = database->products[index];
        if (context.json) {
            rows.append(productObject(product));
            continue;
        }
        context.out << product.name() << '\t' << product.description << '\t' << sheetOf(product)
                    << '\t' << geometryOf(product);
        if (!product.notRepresentable.isEmpty())
            context.out << "\tnot representable: " << product.notRepresentable;
        context.out << '\n';
    }
    if (context.json)
        context.out << QJsonDocument(rows).toJson(QJsonDocument::Indented);
    return Done;
}

int SetLabelProduct(CommandContext &context, const QString &configuration, const QString &product)
{
    const QString name = findConfiguration(context, configuration);
    if (name.isEmpty())
        return refuse(
            context,
            QStringLiteral("there is no printer configuration named '%1'").arg(configuration));
    const std::optional<LabelDatabase> database = labelProducts(context);
    if (!database)
        return Refused;
    const auto found = std::find_if(
        database->products.cbegin(), database->products.cend(), [&](const LabelProduct &p) {
            return p.name().compare(product.simplified(), Qt::CaseInsensitive) == 0;
        });
    if (found == database->products.cend())
        return refuse(context, QStringLiteral("there is no label product named '%1' "
                                              "(bravcpl5-config labels TEXT lists them)")
                                   .arg(product));
    if (!found->notRepresentable.isEmpty())
        return refuse(context, QStringLiteral("%1 cannot be held by a page setup: %2; "
                                              "nothing changed")
                                   .arg(found->name(), found->notRepresentable));

    // What the product does not set stays as the file has it.
    PrinterConfigurations &configurations = typedStore(context);
    PageSetup setup;
    if (const std::optional<int> refused = readAsStored(context, name, setup))
        return *refused;
    const QString file = configurations.GetPrinterConfigurationFileFromName(name);
    if (!ApplyLabelProduct(*found, setup))
        return refuse(context, QStringLiteral("%1 cannot be held by a page setup; nothing changed")
                                   .arg(found->name()));
    QString why;
    if (!configurations.savePageSetup(name, setup, &why))
        return refuse(context, QStringLiteral("the file '%1' could not be written%2; nothing "
                                              "changed")
                                   .arg(file, why.isEmpty() ? QString() : ": " + why));
    context.out << name << ": " << found->name() << " (" << found->description << "), "
                << geometryOf(*found) << " on " << sheetOf(*found) << '\n';
    return Done;
}
