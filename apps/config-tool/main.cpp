// bravcpl5-config: a workstation's printer configurations from a shell, for the people who
// set up many workstations. It creates the library by name over a minimal host whose
// folders and settings profile come from options or the environment.

#include "Commands.h"
#include "ToolHost.h"

#include "library/Factory.h"
#include "library/LateBinding.h"
#include "library/RegistryFile.h"

#include <QApplication>
#include <QCommandLineParser>
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
  verify                     exit status 1 when a configuration has no printer
  export FILE                this workstation's assignments as JSON
  import FILE                assignments from an export, all or none
  printers                   this computer's printers with their paper sizes and bins)";

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
    const QCommandLineOption jsonOption(QStringLiteral("json"),
                                        QStringLiteral("list: JSON rather than a table."));
    const QCommandLineOption defaultOption(QStringLiteral("default"),
                                           QStringLiteral("assign: the default printer."));
    for (const QCommandLineOption &option :
         {systemOption, userOption, profileOption, registryOption, jsonOption, defaultOption})
        parser.addOption(option);
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("What to do (see above)."));
    parser.process(app);

    const QStringList arguments = parser.positionalArguments();
    const QString command = arguments.value(0);
    const auto needs = [&](qsizetype count) {
        if (arguments.size() == count + 1)
            return true;
        err << "bravcpl5-config: '" << command << "' takes " << count << " argument(s); see --help"
            << Qt::endl;
        return false;
    };

    auto host = std::make_unique<ToolHost>();
    host->settings().systemFolder = setting(parser, systemOption, "BRAVCPL5_SYSTEM_FOLDER");
    host->settings().userFolder = setting(parser, userOption, "BRAVCPL5_USER_FOLDER");
    host->settings().profile = setting(parser, profileOption, "BRAVCPL5_PROFILE");
    if (const QString registry = setting(parser, registryOption, "BRAVCPL5_REGISTRY");
        !registry.isEmpty())
        bravcpl5::SetRegistryFile(registry);

    std::unique_ptr<QObject> library(bravcpl5::CreateObject(QStringLiteral("bravcpl5.Library")));
    bravcpl5::late::call(library.get(), "Initialize", {QVariant::fromValue<QObject *>(host.get())});
    CommandContext context{library.get(), out, err};

    int status = Refused;
    if (command == QLatin1String("list") && needs(0))
        status = ListConfigurations(context, parser.isSet(jsonOption));
    else if (command == QLatin1String("assign") && parser.isSet(defaultOption) && needs(1))
        status = AssignPrinter(context, DefaultAssignmentName(), arguments[1]);
    else if (command == QLatin1String("assign") && !parser.isSet(defaultOption) && needs(2))
        status = AssignPrinter(context, arguments[1], arguments[2]);
    else if (command == QLatin1String("unassign") && needs(1))
        status = UnassignPrinter(context, arguments[1]);
    else if (command == QLatin1String("show") && needs(1))
        status = ShowConfiguration(context, arguments[1]);
    else if (command == QLatin1String("rename") && needs(2))
        status = RenameConfiguration(context, arguments[1], arguments[2]);
    else if (command == QLatin1String("copy") && needs(1))
        status = CopyConfiguration(context, arguments[1]);
    else if (command == QLatin1String("delete") && needs(1))
        status = DeleteConfiguration(context, arguments[1]);
    else if (command == QLatin1String("verify") && needs(0))
        status = VerifyConfigurations(context);
    else if (command == QLatin1String("export") && needs(1))
        status = ExportAssignments(context, arguments[1]);
    else if (command == QLatin1String("import") && needs(1))
        status = ImportAssignments(context, arguments[1]);
    else if (command == QLatin1String("printers") && needs(0))
        status = ListPrinters(context);
    else if (!QStringList{"list", "assign", "unassign", "show", "rename", "copy", "delete",
                          "verify", "export", "import", "printers"}
                  .contains(command))
        err << "bravcpl5-config: unknown command '" << command << "'; see --help" << Qt::endl;

    bravcpl5::late::call(library.get(), "PreTerminate");
    return status;
}
