#pragma once

// The commands of bravcpl5-config, each over a Library created by name for the tool's
// host. A command prints its answer on `out`, its complaints on `err`, and returns the
// process's exit status: 0 done, 1 verify found something a printer cannot print as
// configured, 2 the request could not be carried out (nothing was changed then).

#include <QStringList>
#include <QTextStream>

class QObject;

struct CommandContext {
    QObject *library = nullptr;
    QTextStream &out;
    QTextStream &err;
    // import: takes configurations and printers this workstation does not have.
    bool force = false;
    // import: tells what would change and writes nothing.
    bool dryRun = false;
    // list, verify: JSON rather than lines.
    bool json = false;
    // verify: leaves out whether the printers are stopped, refusing jobs or need attention.
    bool withState = true;
    // labels, set-label: the folder of gLabels template files to read instead of the
    // system's and the user's.
    QString labelTemplates = {};
};

enum ExitStatus { Done = 0, Findings = 1, Refused = 2 };

int ListConfigurations(CommandContext &context);
int AssignPrinter(CommandContext &context, const QString &configuration, const QString &printer);
int UnassignPrinter(CommandContext &context, const QString &configuration);
int ShowConfiguration(CommandContext &context, const QString &configuration);
// The printer configurations dialog's rename, copy (into the user folder, as the user's own)
// and delete, with its rules; a refusal changes nothing and exits Refused.
int RenameConfiguration(CommandContext &context, const QString &configuration, const QString &name);
int CopyConfiguration(CommandContext &context, const QString &configuration);
int DeleteConfiguration(CommandContext &context, const QString &configuration);
// Every configuration (or the one named) checked against the printer it prints on: one
// line per finding, or "ok".
int VerifyConfigurations(CommandContext &context, const QString &configuration = QString());
int ExportAssignments(CommandContext &context, const QString &file);
// Checks every entry first, then writes all of them in one write or none.
int ImportAssignments(CommandContext &context, const QString &file);
int ListPrinters(CommandContext &context);
// The label products of gLabels' template files that every word of `search` finds, one line
// each with their sheet and geometry; Refused when there are no template files.
int ListLabelProducts(CommandContext &context, const QString &search);
// Writes the paper and label geometry of the product named "Brand Part" into the
// configuration's page setup; a product the page setup cannot hold is refused.
int SetLabelProduct(CommandContext &context, const QString &configuration, const QString &product);

// The registry value that names the fallback printer, as `assign --default` sets it.
QString DefaultAssignmentName();
