#pragma once

// The rules of the printer configurations dialog, kept apart from its widgets: which
// commands a selected row allows, which names a configuration may be given, and where a
// renamed or copied configuration goes.

#include <QList>
#include <QString>
#include <functional>

namespace bravcpl5 {

// The dialog's commands by their identifiers (a toolbar action's data); a rename is the
// edit of a row's name, on no toolbar.
enum class ConfigurationCommand {
    Rename = 0,
    Refresh = 1002,
    PrinterProperties = 1003,
    PageSetup = 1004,
    Delete = 1005,
    Copy = 1006,
};

// One configuration as the dialog lists it.
struct ConfigurationRow {
    QString name;
    QString printer; // its own printer on this machine; "" when it has none
    QString file;    // the file lookups by name use
    bool system = false;

    bool operator==(const ConfigurationRow &) const = default;
};

// The printer bar's commands, in order.
const QList<ConfigurationCommand> &PrinterBarCommands();
QString CommandCaption(ConfigurationCommand command);
// Whether a command can run on the selected row (null when nothing is selected).
bool IsCommandEnabled(ConfigurationCommand command, const ConfigurationRow *selected);

// Why a configuration cannot take a name. Names stay valid file names on Windows and
// Linux alike, so that a shared configuration folder works from either.
enum class NameRefusal : int { None, Empty, Characters, Reserved };
NameRefusal CheckConfigurationName(const QString &name);
// What the user is told when `name` is refused for a rename.
QString RenameRefusalMessage(NameRefusal refusal, const QString &name);

// The path a configuration file takes when renamed to `name`: its folder, the name, its
// extension.
QString RenameTarget(const QString &file, const QString &name);
QString RenameExistsMessage(const QString &target);

// Where a copy of `file` goes in `userFolder`: the same file name, unless it is there
// already (the source is a user configuration, or a user copy exists), then
// "<name> - Copy", "<name> - Copy (2)", ... "" when either path is empty.
QString CopyTarget(const QString &file, const QString &userFolder,
                   const std::function<bool(const QString &)> &exists);

QString DeleteQuestion(const QString &name);

// What became of a rename, copy or delete of the store: done, or why nothing changed.
enum class ChangeResult : int {
    Done,
    UnknownConfiguration, // no configuration has the name
    NotAllowed,           // the command is not enabled for the configuration
    NameRefused,          // the new name is refused, `refusal` says why
    NameTaken,            // a configuration file of the new name exists
    NotSaved,             // the file system or the registry refused; nothing changed
};
struct ConfigurationChange {
    ChangeResult result = ChangeResult::NotSaved;
    NameRefusal refusal = NameRefusal::None;
    QString name; // the configuration's name after the change (the copy's, for a copy)
    QString file; // its file after the change; for NameTaken, the file in the way

    bool done() const { return result == ChangeResult::Done; }
};
// What the user is told when a command on `name` made no change; "" when it was done.
// `requested` is the new name of a rename.
QString ChangeMessage(ConfigurationCommand command, const ConfigurationChange &change,
                      const QString &name, const QString &requested = QString());

} // namespace bravcpl5
