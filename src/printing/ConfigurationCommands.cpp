#include "printing/ConfigurationCommands.h"

#include "library/FileOperations.h"

#include <QRegularExpression>

namespace bravcpl5 {

const QList<ConfigurationCommand> &PrinterBarCommands()
{
    static const QList<ConfigurationCommand> commands = {
        ConfigurationCommand::PageSetup, ConfigurationCommand::PrinterProperties,
        ConfigurationCommand::Copy, ConfigurationCommand::Delete, ConfigurationCommand::Refresh};
    return commands;
}

QString CommandCaption(ConfigurationCommand command)
{
    switch (command) {
    case ConfigurationCommand::Rename:
        return QStringLiteral("Rename");
    case ConfigurationCommand::Refresh:
        return QStringLiteral("Refresh");
    case ConfigurationCommand::PrinterProperties:
        return QStringLiteral("Printer Properties");
    case ConfigurationCommand::PageSetup:
        return QStringLiteral("Page Setup");
    case ConfigurationCommand::Delete:
        return QStringLiteral("Delete");
    case ConfigurationCommand::Copy:
        return QStringLiteral("Copy");
    }
    return QString();
}

bool IsCommandEnabled(ConfigurationCommand command, const ConfigurationRow *selected)
{
    const bool hasFile = selected && !selected->file.isEmpty();
    const bool hasPrinter = selected && !selected->printer.isEmpty();
    const bool system = selected && selected->system;
    switch (command) {
    case ConfigurationCommand::Rename:
        return hasFile;
    case ConfigurationCommand::Refresh:
        return true;
    case ConfigurationCommand::PrinterProperties:
        return hasFile;
    case ConfigurationCommand::PageSetup:
        return hasFile && !system;
    case ConfigurationCommand::Delete:
        return hasPrinter && !system;
    case ConfigurationCommand::Copy:
        return hasPrinter;
    }
    return false;
}

NameRefusal CheckConfigurationName(const QString &name)
{
    // Blanks and dots alone name nothing (and ".." would climb out of the folder).
    static const QRegularExpression nothing(QStringLiteral("^[\\s.]*$"));
    if (nothing.match(name).hasMatch())
        return NameRefusal::Empty;
    // Path separators, a drive, wildcards, and control characters (NUL included).
    static const QRegularExpression forbidden(QStringLiteral("[\\\\/:*?\"<>|\\x00-\\x1f]"));
    if (forbidden.match(name).hasMatch())
        return NameRefusal::Characters;
    // Device names, with or without an extension ("CON", "lpt1.pcx").
    static const QRegularExpression device(
        QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])\\s*(\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    if (device.match(name).hasMatch())
        return NameRefusal::Reserved;
    return NameRefusal::None;
}

QString RenameRefusalMessage(NameRefusal refusal, const QString &name)
{
    switch (refusal) {
    case NameRefusal::None:
        break;
    case NameRefusal::Empty:
        return QStringLiteral("The printer configuration must have a name.");
    case NameRefusal::Characters:
        return QStringLiteral("The printer configuration cannot be renamed to '") + name
               + QStringLiteral(
                   "' because a name cannot contain any of these characters: \\ / : * ? \" < > |");
    case NameRefusal::Reserved:
        return QStringLiteral("The printer configuration cannot be renamed to '") + name
               + QStringLiteral("' because that name is reserved by the system.");
    }
    return QString();
}

QString RenameTarget(const QString &file, const QString &name)
{
    const PathParts parts = SplitPath(file);
    return PathInFolder(parts.folder, name + parts.extension);
}

QString RenameExistsMessage(const QString &target)
{
    return QStringLiteral("The printer configuration cannot be renamed becuase a printer "
                          "configuration with the "
                          "name '")
           + target + QStringLiteral("' already exists.");
}

QString CopyTarget(const QString &file, const QString &userFolder,
                   const std::function<bool(const QString &)> &exists)
{
    if (file.isEmpty() || userFolder.isEmpty())
        return QString();
    const PathParts parts = SplitPath(file);
    QString target = PathInFolder(userFolder, parts.name + parts.extension);
    for (int copy = 1; exists(target); ++copy) {
        const QString suffix = copy == 1 ? QStringLiteral(" - Copy")
                                         : QStringLiteral(" - Copy (%1)").arg(copy);
        target = PathInFolder(userFolder, parts.name + suffix + parts.extension);
    }
    return target;
}

QString DeleteQuestion(const QString &name)
{
    return QStringLiteral("Are you sure you want to delete the printer configuration '") + name
           + QStringLiteral("'?");
}

QString ChangeMessage(ConfigurationCommand command, const ConfigurationChange &change,
                      const QString &name, const QString &requested)
{
    switch (change.result) {
    case ChangeResult::Done:
        return QString();
    case ChangeResult::UnknownConfiguration:
        return QStringLiteral("There is no printer configuration named '%1'.").arg(name);
    case ChangeResult::NotAllowed:
        if (command == ConfigurationCommand::Delete)
            return QStringLiteral("The printer configuration '%1' cannot be deleted: it is shared, "
                                  "or has no printer of its own.")
                .arg(name);
        return QStringLiteral("The printer configuration '%1' cannot be copied: it has no "
                              "printer of its own.")
            .arg(name);
    case ChangeResult::NameRefused:
        return RenameRefusalMessage(change.refusal, requested);
    case ChangeResult::NameTaken:
        return RenameExistsMessage(change.file);
    case ChangeResult::NotSaved:
        break;
    }
    switch (command) {
    case ConfigurationCommand::Delete:
        return QStringLiteral("The printer configuration could not be deleted.");
    case ConfigurationCommand::Copy:
        return QStringLiteral("The printer configuration '%1' could not be copied.").arg(name);
    default:
        return QStringLiteral("The printer configuration '%1' could not be renamed.").arg(name);
    }
}

} // namespace bravcpl5
