#include "cli/CommandLine.h"

#include "cli/CommandHelp.h"
#include "cli/Commands.h"
#include "cli/Output.h"

#include <QCoreApplication>

#include <algorithm>
#include <system_error>
#include <thread>

namespace tidlo {

namespace {

/// The commands that the help lists.
QList<Command> commands()
{
    return {scanCommand(), cleanCommand(), restoreCommand(), spareCommand(), explainCommand()};
}

/// Why the system cannot start a thread, in its own words; nothing if it can.
std::optional<QString> threadObstacle()
{
    try {
        std::thread([] {}).join();
        return std::nullopt;
    } catch (const std::system_error &error) {
        return qt_error_string(error.code().value());
    }
}

ExitStatus run(const Command &command, const QCommandLineParser &options, CommandContext &context)
{
    if (const auto obstacle = command.needsThread ? threadObstacle() : std::nullopt) {
        complain(QStringLiteral("No thread can be started: %1.").arg(*obstacle));
        return ExitStatus::failed;
    }
    return command.run(options, context);
}

/// The program without a command, for help and usage.
Command programItself()
{
    return {.name = "<command> [options]",
            .summary = "",
            .description = "Finds files in the home folder that you can safely remove, and moves what you\n"
                           "choose to the Trash. Reads names, sizes and dates, never what is in a file.\n"
                           "\n"
                           "\"tidlo-cli <command> --help\" says more about a command.\n",
            .options = {},
            .run = nullptr};
}

/// The exit status if the command line needs no command; nothing if one must be run.
std::optional<ExitStatus> answered(QCommandLineParser &parser, const Command &command, const QString &help,
                                   const QStringList &arguments)
{
    for (const CommandOption &option : command.options + commonOptions()) {
        parser.addOption(QCommandLineOption(optionNames(option), QString::fromLatin1(option.meaning),
                                            QString::fromLatin1(option.value)));
    }
    if (!parser.parse(QStringList(QString::fromLatin1(command.name)) + arguments))
        return reportMisuse(command, parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        return print(help);
    if (parser.isSet(QStringLiteral("version")))
        return print(QStringLiteral("tidlo-cli %1\n").arg(QCoreApplication::applicationVersion()));
    const QStringList unexpected = *command.arguments == '\0' ? parser.positionalArguments() : QStringList();
    if (!unexpected.isEmpty())
        return reportMisuse(command, QStringLiteral("Unexpected argument '%1'.").arg(unexpected.first()));
    return std::nullopt;
}

ExitStatus runWithoutCommand(QCommandLineParser &parser, const QStringList &arguments)
{
    const Command program = programItself();
    const std::optional<ExitStatus> status = answered(parser, program, helpText(program, commands()), arguments);
    return status ? *status : reportMisuse(program, QStringLiteral("No command was given."));
}

} // namespace

ExitStatus runCommandLine(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    if (arguments.isEmpty() || arguments.first().startsWith(u'-'))
        return runWithoutCommand(parser, arguments);

    const QList<Command> known = commands() + QList{trashBundleCommand()};
    const auto command = std::ranges::find_if(
        known, [&](const Command &candidate) { return arguments.first() == QLatin1StringView(candidate.name); });
    if (command == known.end())
        return reportMisuse(programItself(), QStringLiteral("Unknown command '%1'.").arg(arguments.first()));
    const std::optional<ExitStatus> status = answered(parser, *command, helpText(*command), arguments.mid(1));
    return status ? *status : run(*command, parser, context);
}

} // namespace tidlo
