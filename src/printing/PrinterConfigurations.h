#pragma once

#include "bravcpl5_export.h"
#include "library/Service.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

namespace bravcpl5 {

enum class ConfigurationCommand;
struct ConfigurationChange;
struct ConfigurationCheck;
struct ConfigurationRow;
class PrinterInfo;
struct PageSetup;
struct PageSetupChoices;
struct PaperDefaults;

// The value of the printer-configurations key that names the fallback printer.
inline constexpr auto DefaultPrinterValueName = "(Default)";

// The printer-configuration service: the named configurations of the system and user
// folders, the printer each one prints to, and their page setup. It is the one place that
// reads and writes configuration files (printing/ConfigurationElements.h names what is in
// them). It keeps nothing but its Owner: every call reads the folders, files and registry
// afresh. Failures give empty or
// False results; only GetPrinterConfigurationToUse and VerifyPrinterConfigurations speak
// to the user, and only when Verbose.
class BRAVCPL5_EXPORT PrinterConfigurations : public Service
{
    Q_OBJECT
    Q_CLASSINFO("ProgId", "bravcpl5.PrinterConfigurations")

public:
    Q_INVOKABLE explicit PrinterConfigurations(QObject *parent = nullptr);

    // Points the report's printer at the configuration's printer and, unless
    // OnlySetPrinter, copies the configuration's page setup onto its page settings
    // (printing/ReportContract.h). Always False: the result says nothing about success.
    Q_INVOKABLE bool SetupPageFromPrinterConfiguration(const QString &PrinterConfiguration,
                                                       QObject *oReport,
                                                       bool OnlySetPrinter = false);
    // Element 0 is always "": system configurations follow in listing order, then user
    // configurations not already listed (names, or full paths when not NamesOnly).
    Q_INVOKABLE QStringList GetPrinterConfigurations(bool NamesOnly = true);
    // The registry value to print with: the configuration itself when it has a printer,
    // else "(Default)" when a default printer is assigned, else "".
    Q_INVOKABLE QString GetPrinterConfigurationToUse(const QString &PrinterConfiguration,
                                                     bool Verbose = true);
    Q_INVOKABLE QString GetPrinterForConfiguration(const QString &PrinterConfiguration,
                                                   bool SkipDefault = false);
    Q_INVOKABLE void SetPrinterForConfiguration(const QString &PrinterConfiguration,
                                                const QString &Printer);
    // True when every configuration has a printer of its own.
    Q_INVOKABLE bool VerifyPrinterConfigurations(bool Verbose = true, bool CanFix = false);
    Q_INVOKABLE bool PrinterConfigurationIsSystem(const QString &NameOrFile);
    // The user folder's file before the system folder's; "" when there is none.
    Q_INVOKABLE QString GetPrinterConfigurationFileFromName(const QString &Name);
    // Opens the page setup dialog on the configuration for PrinterName (the default
    // printer when empty or not installed); True when the user confirmed with OK, False
    // when cancelled or when there is no printer to set the page up for. Defined beside
    // the dialog, in forms/frmPageSetup.cpp.
    Q_INVOKABLE bool ShowPageSetup(const QString &PrinterConfiguration,
                                   const QString &PrinterName = QString());

    // What the dialogs and the workstation tool build on, beside the published members.

    // Every configuration of GetPrinterConfigurations with the file lookups by name use
    // (GetPrinterConfigurationFileFromName), each folder listed once: for lists of every
    // configuration, where a lookup per name would list the folders once per row.
    struct NamedFile {
        QString name;
        QString file;
    };
    QList<NamedFile> configurationFiles();
    // Every configuration's own printer (GetPrinterForConfiguration with SkipDefault), read
    // at once, keyed by the case-folded configuration name.
    QHash<QString, QString> printerAssignments();
    // Every configuration with its file, own printer and system flag, in listing order.
    QList<ConfigurationRow> configurations();

    // Every configuration (or only the one named) checked against the printer it prints on,
    // its own else the "(Default)" one (printing/PrinterCheck.h), in listing order. Each
    // printer's information is read once through `printers`; `withState` false leaves the
    // printers' state out.
    QList<ConfigurationCheck> checkConfigurations(const PrinterInfo &printers,
                                                  bool withState = true,
                                                  const QString &configuration = QString());

    // Assigns the printer as SetPrinterForConfiguration does; false when it was not saved.
    bool assignPrinter(const QString &configuration, const QString &printer);

    // The configuration's page setup, read with the given choices and paper defaults;
    // false, with `pageSetup` untouched, when it has no file or no "PageSetup" element.
    bool readPageSetup(const QString &configuration, const PageSetupChoices &choices,
                       const PaperDefaults &paper, PageSetup &pageSetup);
    // Saves the page setup into the configuration's file; false when nothing was saved,
    // `why` then saying why when the file could not be written.
    bool savePageSetup(const QString &configuration, const PageSetup &pageSetup,
                       QString *why = nullptr);

    // The printer configurations dialog's commands on files, with its rules: each is done
    // whole (the file and the assignment that goes with it) or changes nothing.
    // Renames the file in its folder; the printer goes with the new name.
    ConfigurationChange renameConfiguration(const QString &configuration, const QString &name);
    // Copies the configuration into the user folder as the user's own (System 0), with its
    // printer.
    ConfigurationChange copyConfiguration(const QString &configuration);
    // Deletes the file; the registry value stays.
    ConfigurationChange deleteConfiguration(const QString &configuration);

private:
    // The configuration that lookups by name find, when the dialog's rule lets `command` act
    // on it; else none, with `refusal` saying why.
    std::optional<ConfigurationRow> configuration(const QString &name, ConfigurationCommand command,
                                                  ConfigurationChange &refusal);
    QString systemFolder() const;
    QString userFolder() const;
    QString registryValue(const QString &valueName) const;
};

} // namespace bravcpl5
