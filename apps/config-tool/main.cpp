// bravcpl5-config: a workstation's printer configurations from a shell, for the people who
// set up many workstations. It creates the library by name over a minimal host whose
// folders and settings profile come from options or the environment.

#include "Commands.h"
#include "RegistryCheck.h"
#include "ToolHost.h"

#include "library/Factory.h"
#include "library/LateBinding.h"
#include "library/RegistryFile.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QHash>
#include <memory>

namespace {

const char *const usage = R"(Commands:
  list [--json]              configurations with their printer, file and shared flag
  assign NAME PRINTER        NAME prints to PRINTER on this workstation
  assign --default PRINTER   PRINTER is used by configurations without their own
  unassign NAME              NAME uses the default printer again
  show NAME                  the page setup, and what the printer offers for it
  rename NAME NEW            renames NAME's file; its printer goes with it
  copy NAME                  copies NAME into the user folder as the user's own
  delete NAME                deletes NAME's file (not a shared one, nor one without a printer)
  verify [--json] [--no-state] [NAME]
                             every configuration (or NAME) checked against its printer:
                             one line per finding (configuration, printer, kind, what is
                             wrong), or ok
  export FILE                this workstation's assignments as JSON
  import [--dry-run] FILE    assignments from an export, all or none
  printers                   this computer's printers with their paper sizes and bins
  labels [--json] [TEXT]     the label products of gLabels' templates that TEXT finds
                             (brand, part, words of the description), with their sheet
                             and geometry
  set-label NAME PRODUCT     NAME's paper and labels from PRODUCT ("Avery 5160")

Exit status:
  0  done
  1  verify found something a printer cannot print as configured
  2  refused or failed; nothing was changed)";

// Each command with the least and the most arguments it takes (-1: any number).
const QHash<QString, std::pair<int, int>> commands{
    {"list", {0, 0}},      {"assign", {2, 2}}, {"unassign", {1, 1}}, {"show", {1, 1}},
    {"rename", {2, 2}},    {"copy", {1, 1}},   {"delete", {1, 1}},   {"verify", {0, 1}},
    {"export", {1, 1}},    {"import", {1, 1}}, {"printers", {0, 0}}, {"labels", {0, -1}},
    {"set-label", {2, 2}},
};

QString setting(const QCommandLineParser &parser, const QCommandLineOption &option,
                const char *variable)
{
    return parser.isSet(option) ? parser.value(option) : qEnvironmentVariable(variable);
}

// Qt's own notes about the session (a missing runtime folder and the like) are not the
// tool's to print; its answers and complaints are, and so is the library's log, which
// QT_LOGGING_RULES has already filtered.
void quietQt(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const bool library = context.category && qstrncmp(context.category, "bravcpl5.", 9) == 0;
    if (library)
        QTextStream(stderr) << context.category << ": " << message << Qt::endl;
    else if (type == QtCriticalMsg || type == QtFatalMsg)
        QTextStream(stderr) << message << Qt::endl;
}

int refuse(QTextStream &err, const QString &why)
{
    err << "bravcpl5-config: " << why << Qt::endl;
    return Refused;
}

// A folder named but missing would list nothing and look like an empty workstation.
bool folderExists(const QString &folder) { return folder.isEmpty() || QFileInfo(folder).isDir(); }

} // namespace

int main(int argc, char **argv)
{
    // A shell tool: no window is ever shown.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietQt);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("bravcpl5-config"));
    QTextStream out(stdout);
    QTextStream err(stderr);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("The printer configurations of this workstation.\n\n")
        + QString::fromLatin1(usage));
    parser.addHelpOption();
    const QCommandLineOption systemOption(
        QStringLiteral("system"),
        QStringLiteral("Shared settings folder (BRAVCPL5_SYSTEM_FOLDER)."),
        QStringLiteral("folder"));
    const QCommandLineOption userOption(
        QStringLiteral("user"), QStringLiteral("User's settings folder (BRAVCPL5_USER_FOLDER)."),
        QStringLiteral("folder"));
    const QCommandLineOption profileOption(QStringLiteral("profile"),
                                           QStringLiteral("Settings profile (BRAVCPL5_PROFILE)."),
                                           QStringLiteral("name"));
    const QCommandLineOption registryOption(
        QStringLiteral("registry"),
        QStringLiteral("Registry file off Windows (BRAVCPL5_REGISTRY)."), QStringLiteral("file"));
    const QCommandLineOption jsonOption(
        QStringLiteral("json"), QStringLiteral("list, verify, labels: JSON rather than text."));
    const QCommandLineOption templatesOption(
        QStringLiteral("templates"),
        QStringLiteral("labels, set-label: the folder of gLabels template files to read "
                       "(BRAVCPL5_LABEL_TEMPLATES); by default the system's and the user's."),
        QStringLiteral("folder"));
    const QCommandLineOption noStateOption(
        QStringLiteral("no-state"),
        QStringLiteral("verify: leave out whether the printers are stopped, refusing jobs or "
                       "need attention."));
    const QCommandLineOption defaultOption(QStringLiteral("default"),
                                           QStringLiteral("assign: the default printer."));
    const QCommandLineOption dryRunOption(
        QStringLiteral("dry-run"),
        QStringLiteral("import: show what would change (added, changed, unchanged); write "
                       "nothing."));
    const QCommandLineOption forceOption(
        QStringLiteral("force"),
        QStringLiteral("import: take configurations and printers this workstation does not "
                       "have; --registry: use a file that is not a registry file."));
    for (const QCommandLineOption &option :
         {systemOption, userOption, profileOption, registryOption, jsonOption, templatesOption,
          noStateOption, defaultOption, dryRunOption, forceOption})
        parser.addOption(option);
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("What to do (see above)."));
    parser.process(app);

    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty()) {
        err << parser.helpText();
        return Refused;
    }
    const QString command = arguments.value(0);
    if (!commands.contains(command))
        return refuse(err, QStringLiteral("unknown command '%1'; see --help").arg(command));
    const bool fallback = command == QLatin1String("assign") && parser.isSet(defaultOption);
    const auto [least, most] = commands.value(command);
    const int shift = fallback ? 1 : 0;
    if (arguments.size() - 1 < least - shift || (most >= 0 && arguments.size() - 1 > most - shift))
        return refuse(err,
                      QStringLiteral("'%1' takes %2 argument(s); see --help")
                          .arg(command, least == most
                                            ? QString::number(least - shift)
                                            : QStringLiteral("%1 to %2").arg(least).arg(most)));
    if (parser.isSet(dryRunOption) && command != QLatin1String("import"))
        return refuse(err, QStringLiteral("--dry-run is for import only"));
    if (parser.isSet(noStateOption) && command != QLatin1String("verify"))
        return refuse(err, QStringLiteral("--no-state is for verify only"));

    auto host = std::make_unique<ToolHost>();
    host->settings().systemFolder = setting(parser, systemOption, "BRAVCPL5_SYSTEM_FOLDER");
    host->settings().userFolder = setting(parser, userOption, "BRAVCPL5_USER_FOLDER");
    host->settings().profile = setting(parser, profileOption, "BRAVCPL5_PROFILE");
    for (const QString &folder : {host->settings().systemFolder, host->settings().userFolder}) {
        if (!folderExists(folder))
            return refuse(err, QStringLiteral("the folder '%1' does not exist").arg(folder));
    }
    if (const QString registry = setting(parser, registryOption, "BRAVCPL5_REGISTRY");
        !registry.isEmpty())
        bravcpl5::SetRegistryFile(registry);
#ifndef Q_OS_WIN
    // Writing rewrites the file whole: never one of anyone else's, and never a folder.
    const QString registry = bravcpl5::RegistryFile();
    if (QFileInfo(registry).isDir())
        return refuse(err, QStringLiteral("'%1' is a folder, not a registry file").arg(registry));
    if (!parser.isSet(forceOption) && !IsRegistryFile(registry))
        return refuse(err, QStringLiteral("'%1' is not a registry file of bravcpl5; "
                                          "--force uses it all the same")
                               .arg(registry));
#endif

    std::unique_ptr<QObject> library(bravcpl5::CreateObject(QStringLiteral("bravcpl5.Library")));
    bravcpl5::late::call(library.get(), "Initialize", {QVariant::fromValue<QObject *>(host.get())});
    CommandContext context{library.get(),
                           out,
                           err,
                           parser.isSet(forceOption),
                           parser.isSet(dryRunOption),
                           parser.isSet(jsonOption),
                           !parser.isSet(noStateOption),
                           setting(parser, templatesOption, "BRAVCPL5_LABEL_TEMPLATES")};

    int status = Refused;
    if (command == QLatin1String("list"))
        status = ListConfigurations(context);
    else if (fallback)
        status = AssignPrinter(context, DefaultAssignmentName(), arguments[1]);
    else if (command == QLatin1String("assign"))
        status = AssignPrinter(context, arguments[1], arguments[2]);
    else if (command == QLatin1String("unassign"))
        status = UnassignPrinter(context, arguments[1]);
    else if (command == QLatin1String("show"))
        status = ShowConfiguration(context, arguments[1]);
    else if (command == QLatin1String("rename"))
        status = RenameConfiguration(context, arguments[1], arguments[2]);
    else if (command == QLatin1String("copy"))
        status = CopyConfiguration(context, arguments[1]);
    else if (command == QLatin1String("delete"))
        status = DeleteConfiguration(context, arguments[1]);
    else if (command == QLatin1String("verify"))
        status = VerifyConfigurations(context, arguments.value(1));
    else if (command == QLatin1String("export"))
        status = ExportAssignments(context, arguments[1]);
    else if (command == QLatin1String("import"))
        status = ImportAssignments(context, arguments[1]);
    else if (command == QLatin1String("printers"))
        status = ListPrinters(context);
    else if (command == QLatin1String("labels"))
        status = ListLabelProducts(context, arguments.mid(1).join(u' '));
    else if (command == QLatin1String("set-label"))
        status = SetLabelProduct(context, arguments[1], arguments[2]);

    bravcpl5::late::call(library.get(), "PreTerminate");
    return status;
}
