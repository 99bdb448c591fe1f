#include "printing/PrinterConfigurations.h"

#include "library/FileOperations.h"
#include "library/HostContract.h"
#include "library/LateBinding.h"
#include "library/Logging.h"
#include "library/Messages.h"
#include "library/Registry.h"
#include "library/Xml.h"
#include "printers/CachedPrinterInfo.h"
#include "printing/ConfigurationCommands.h"
#include "printing/ConfigurationElements.h"
#include "printing/ConfigurationFiles.h"
#include "printing/PageSetup.h"
#include "printing/PageSetupToReport.h"
#include "printing/PrinterCheck.h"
#include "printing/ReportContract.h"

#include <QHash>
#include <QSet>

namespace bravcpl5 {

namespace {

const auto defaultPrinter = QString::fromLatin1(DefaultPrinterValueName);

const auto notSetUpMessage = QStringLiteral(
    "The printer configurations have not been setup on this computer. Contact your system "
    "administrator for assistance on setting up your printers.");
const auto unassignedMessage = QStringLiteral(
    "Attention: One or more of the printer configurations does not have a printer assigned to "
    "it. This may cause undesirable results if the unassigned printer configuration is "
    "specifically referenced on a report or label.");
const auto recommendation = QStringLiteral(
    "It is reccommended that you assign a printer to each printer configuration.");
const auto fixQuestion = QStringLiteral(" Do you want to address this now?");

// A folder with its configuration files, listed once.
struct Folder {
    QString path;
    QStringList files;
};

Folder listFolder(const QString &path) { return {path, ListConfigurationFiles(path)}; }

// A change that did not happen, and why.
ConfigurationChange unchanged(ChangeResult why, NameRefusal refusal = NameRefusal::None,
                              const QString &inTheWay = QString())
{
    return {why, refusal, QString(), inTheWay};
}

ConfigurationChange changed(const QString &name, const QString &file)
{
    return {ChangeResult::Done, NameRefusal::None, name, file};
}

pugi::xml_node identificationNode(const pugi::xml_document &document)
{
    return SelectSingleNode(document, QString::fromLatin1(identification::xpath)).node();
}

// Adds each configuration of the folder that is not listed yet; `listed` mirrors `list`
// so that the test stays constant-time however many configurations there are.
void appendConfigurations(Folder &folder, bool namesOnly, QStringList &list, QSet<QString> &listed)
{
    const QString prefix = ConfigurationPath(folder.path, QString());
    for (QString &file : folder.files) {
        QString entry = namesOnly ? ConfigurationName(std::move(file)) : prefix + file;
        const qsizetype before = listed.size();
        listed.insert(entry); // one lookup for both the test and the insertion
        if (!entry.isEmpty() && listed.size() != before)
            list.append(std::move(entry));
    }
}

// GetPrinterConfigurations' list, made from the folders' files.
QStringList configurationList(Folder system, Folder user, bool namesOnly)
{
    QStringList list{QString()};
    QSet<QString> listed;
    listed.reserve(system.files.size() + user.files.size());
    list.reserve(1 + system.files.size() + user.files.size());
    appendConfigurations(system, namesOnly, list, listed);
    appendConfigurations(user, namesOnly, list, listed);
    return list;
}

} // namespace

PrinterConfigurations::PrinterConfigurations(QObject *parent) : Service(parent) {}

QString PrinterConfigurations::systemFolder() const { return host::systemFileLocation(host()); }

QString PrinterConfigurations::userFolder() const { return host::userFileLocation(host()); }

QString PrinterConfigurations::registryValue(const QString &valueName) const
{
    const QString key = PrinterConfigurationsKey(host());
    if (key.isEmpty())
        return QString();
    return GetRegValue(HKEY_CURRENT_USER_HANDLE, key, valueName, QString());
}

bool PrinterConfigurations::SetupPageFromPrinterConfiguration(const QString &PrinterConfiguration,
                                                              QObject *oReport, bool OnlySetPrinter)
{
    if (PrinterConfiguration.isEmpty())
        return false;
    late::set(late::object(oReport, report::printer), report::deviceName,
              GetPrinterForConfiguration(PrinterConfiguration));
    if (OnlySetPrinter)
        return false;
    const XmlDocumentPtr document = LoadXmlFile(
        GetPrinterConfigurationFileFromName(PrinterConfiguration));
    if (!document)
        return false;
    const pugi::xml_node pageSetup =
        SelectSingleNode(*document, QString::fromLatin1(pagesetup::xpath)).node();
    if (pageSetup)
        ApplyPageSetupToReport(pageSetup, oReport);
    return false;
}

QStringList PrinterConfigurations::GetPrinterConfigurations(bool NamesOnly)
{
    Folder system = listFolder(systemFolder());
    Folder user = listFolder(userFolder());
    return configurationList(std::move(system), std::move(user), NamesOnly);
}

QList<PrinterConfigurations::NamedFile> PrinterConfigurations::configurationFiles()
{
    Folder system = listFolder(systemFolder());
    Folder user = listFolder(userFolder());
    // The first file of each name in listing order, the user's before the shared one, as
    // GetPrinterConfigurationFileFromName finds them.
    QHash<QString, QString> files;
    for (const Folder *folder : {&user, &system}) {
        for (const QString &file : folder->files) {
            const QString key = ConfigurationName(file).toUpper();
            if (!files.contains(key))
                files.insert(key, ConfigurationPath(folder->path, file));
        }
    }
    QList<NamedFile> list;
    for (const QString &name : configurationList(std::move(system), std::move(user), true)) {
        if (!name.isEmpty())
            list.append({name, files.value(name.toUpper())});
    }
    return list;
}

QHash<QString, QString> PrinterConfigurations::printerAssignments()
{
    QHash<QString, QString> printers;
    const QString key = PrinterConfigurationsKey(host());
    if (key.isEmpty())
        return printers;
    for (const auto &[name, printer] : GetRegValues(HKEY_CURRENT_USER_HANDLE, key))
        printers.insert(name.toCaseFolded(), printer);
    return printers;
}

QString PrinterConfigurations::GetPrinterConfigurationToUse(const QString &PrinterConfiguration,
                                                            bool Verbose)
{
    if (!PrinterConfiguration.isEmpty() && !registryValue(PrinterConfiguration).isEmpty())
        return PrinterConfiguration;
    if (!registryValue(defaultPrinter).isEmpty())
        return defaultPrinter;
    if (Verbose)
        ShowMessage(notSetUpMessage, QMessageBox::Warning, QMessageBox::Ok);
    return QString();
}

QString PrinterConfigurations::GetPrinterForConfiguration(const QString &PrinterConfiguration,
                                                          bool SkipDefault)
{
    QString printer = registryValue(PrinterConfiguration);
    if (printer.isEmpty() && !SkipDefault)
        printer = registryValue(defaultPrinter);
    return printer;
}

void PrinterConfigurations::SetPrinterForConfiguration(const QString &PrinterConfiguration,
                                                       const QString &Printer)
{
    assignPrinter(PrinterConfiguration, Printer);
}

bool PrinterConfigurations::assignPrinter(const QString &configuration, const QString &printer)
{
    const QString key = PrinterConfigurationsKey(host());
    if (!key.isEmpty() && SetRegValue(HKEY_CURRENT_USER_HANDLE, key, configuration, printer))
        return true;
    qCWarning(lcStore) << "could not assign" << printer << "to" << configuration;
    return false;
}

bool PrinterConfigurations::VerifyPrinterConfigurations(bool Verbose, bool CanFix)
{
    // The registry read once, not once per configuration.
    const QHash<QString, QString> printers = printerAssignments();
    bool failed = false;
    for (const QString &name : GetPrinterConfigurations(true)) {
        if (!name.isEmpty() && printers.value(name.toCaseFolded()).isEmpty()) {
            failed = true;
            break;
        }
    }
    if (!failed)
        return true;
    if (Verbose) {
        const QString text = unassignedMessage + QStringLiteral("\r\n\r\n") + recommendation;
        if (!CanFix) {
            ShowMessage(text, QMessageBox::Warning, QMessageBox::Ok);
        } else if (ShowMessage(text + fixQuestion, QMessageBox::Warning,
                               QMessageBox::Yes | QMessageBox::No)
                   == QMessageBox::Yes) {
            late::call(ownerObject(), "ShowPrinterConfigurations");
        }
    }
    return false;
}

bool PrinterConfigurations::PrinterConfigurationIsSystem(const QString &NameOrFile)
{
    if (NameOrFile.isEmpty())
        return false;
    const QString file = HasFolderPart(NameOrFile)
                             ? NameOrFile
                             : GetPrinterConfigurationFileFromName(NameOrFile);
    const XmlDocumentPtr document = LoadXmlFile(file);
    if (!document)
        return false;
    const pugi::xml_node identification = identificationNode(*document);
    return identification
           && GetXmlInteger(QString::fromLatin1(identification::system), identification, 0) > 0;
}

QString PrinterConfigurations::GetPrinterConfigurationFileFromName(const QString &Name)
{
    if (Name.isEmpty())
        return QString();
    const QString user = FindConfigurationFile(userFolder(), Name);
    return user.isEmpty() ? FindConfigurationFile(systemFolder(), Name) : user;
}

QList<ConfigurationRow> PrinterConfigurations::configurations()
{
    const QHash<QString, QString> printers = printerAssignments();
    QList<ConfigurationRow> rows;
    for (const NamedFile &configuration : configurationFiles())
        rows.append({configuration.name, printers.value(configuration.name.toCaseFolded()),
                     configuration.file, PrinterConfigurationIsSystem(configuration.file)});
    return rows;
}

QList<ConfigurationCheck> PrinterConfigurations::checkConfigurations(const PrinterInfo &printers,
                                                                     bool withState,
                                                                     const QString &configuration)
{
    const CachedPrinterInfo cached(printers);
    const QString fallback = printerAssignments().value(
        QString::fromLatin1(DefaultPrinterValueName).toCaseFolded());
    PageSetupChoices asStored;
    asStored.storedCodes = true;
    QList<ConfigurationCheck> checks;
    for (const ConfigurationRow &row : configurations()) {
        if (!configuration.isEmpty() && row.name.compare(configuration, Qt::CaseInsensitive) != 0)
            continue;
        PrinterToCheck printer{row.printer.isEmpty() ? fallback : row.printer, std::nullopt,
                               withState};
        const QString installed = printer.name.isEmpty() ? QString()
                                                         : FindPrinter(cached, printer.name);
        if (!installed.isEmpty())
            printer.paper = cached.paper(installed);
        PageSetup setup;
        ReadPageSetup(row.file, asStored, PaperDefaults(), setup);
        checks.append({row.name, printer.name, CheckPageSetup(setup, printer)});
    }
    return checks;
}

std::optional<ConfigurationRow> PrinterConfigurations::configuration(const QString &name,
                                                                     ConfigurationCommand command,
                                                                     ConfigurationChange &refusal)
{
    const QString file = GetPrinterConfigurationFileFromName(name);
    if (file.isEmpty()) {
        refusal = unchanged(ChangeResult::UnknownConfiguration);
        return std::nullopt;
    }
    const ConfigurationRow row{SplitPath(file).name, GetPrinterForConfiguration(name, true), file,
                               PrinterConfigurationIsSystem(file)};
    if (!IsCommandEnabled(command, &row)) {
        refusal = unchanged(ChangeResult::NotAllowed);
        return std::nullopt;
    }
    return row;
}

bool PrinterConfigurations::readPageSetup(const QString &configuration,
                                          const PageSetupChoices &choices,
                                          const PaperDefaults &paper, PageSetup &pageSetup)
{
    return ReadPageSetup(GetPrinterConfigurationFileFromName(configuration), choices, paper,
                         pageSetup);
}

bool PrinterConfigurations::savePageSetup(const QString &configuration, const PageSetup &pageSetup,
                                          QString *why)
{
    return WritePageSetup(GetPrinterConfigurationFileFromName(configuration), pageSetup, why);
}

ConfigurationChange PrinterConfigurations::renameConfiguration(const QString &configuration,
                                                               const QString &name)
{
    ConfigurationChange refusal;
    const std::optional<ConfigurationRow> row = this->configuration(
        configuration, ConfigurationCommand::Rename, refusal);
    if (!row)
        return refusal;
    if (name == row->name)
        return changed(row->name, row->file);
    // Refused names never reach the file system.
    if (const NameRefusal refusal = CheckConfigurationName(name); refusal != NameRefusal::None)
        return unchanged(ChangeResult::NameRefused, refusal);
    const QString target = RenameTarget(row->file, name);
    if (FileExists(target))
        return unchanged(ChangeResult::NameTaken, NameRefusal::None, target);
    if (!MoveFile(row->file, target)) {
        qCWarning(lcStore) << "could not move" << row->file << "to" << target;
        return unchanged(ChangeResult::NotSaved);
    }
    // The old name's printer goes with it; the old name's value stays in the registry. A
    // printer that cannot be assigned undoes the move.
    if (!row->printer.isEmpty() && !assignPrinter(name, row->printer)) {
        MoveFile(target, row->file);
        return unchanged(ChangeResult::NotSaved);
    }
    qCDebug(lcStore) << "renamed" << row->file << "to" << target;
    return changed(name, target);
}

ConfigurationChange PrinterConfigurations::copyConfiguration(const QString &configuration)
{
    ConfigurationChange refusal;
    const std::optional<ConfigurationRow> row = this->configuration(
        configuration, ConfigurationCommand::Copy, refusal);
    if (!row)
        return refusal;
    const QString target = CopyTarget(row->file, userFolder(), FileExists);
    if (target.isEmpty())
        return unchanged(ChangeResult::NotSaved);
    // The copy belongs to the user, whatever the original was: it is written whole with
    // System 0 or not at all, never as a shared configuration that would hide the original.
    bool copied = false;
    if (const XmlDocumentPtr copy = LoadXmlFile(row->file)) {
        if (const pugi::xml_node identification = identificationNode(*copy))
            SetXmlInteger(QString::fromLatin1(identification::system), 0, identification);
        copied = SaveXmlDocument(*copy, target);
    } else {
        copied = CopyFile(row->file, target); // not ours to read: copied as it is
    }
    const QString name = SplitPath(target).name;
    if (copied && name.compare(row->name, Qt::CaseInsensitive) != 0
        && !assignPrinter(name, row->printer)) {
        DeleteFile(target);
        copied = false;
    }
    if (!copied) {
        qCWarning(lcStore) << "could not copy" << row->file << "to" << target;
        return unchanged(ChangeResult::NotSaved);
    }
    return changed(name, target);
}

ConfigurationChange PrinterConfigurations::deleteConfiguration(const QString &configuration)
{
    ConfigurationChange refusal;
    const std::optional<ConfigurationRow> row = this->configuration(
        configuration, ConfigurationCommand::Delete, refusal);
    if (!row)
        return refusal;
    if (!DeleteFile(row->file)) {
        qCWarning(lcStore) << "could not delete" << row->file;
        return unchanged(ChangeResult::NotSaved);
    }
    return changed(row->name, QString());
}

} // namespace bravcpl5
