#pragma once

#include "cli/Output.h"
#include "platform/UserDefaults.h"
#include "scanner/FileSizeScanner.h"

#include <QCommandLineParser>
#include <QList>

namespace tidlo {

/// What main makes and commands use.
struct CommandContext
{
    FileManager &files;
    FileSizeScanner &scanner;
    UserDefaults &defaults;
};

/// A long option of a command.
struct CommandOption
{
    const char *name;        ///< Without the dashes.
    const char *meaning;     ///< A sentence for the help.
    const char *value = "";  ///< What its value is called; empty if it takes none.
    const char *letter = ""; ///< Its short form, if it has one.
};

/// What every command understands besides its own options.
inline QList<CommandOption> commonOptions()
{
    return {{"help", "Show this help.", "", "h"}, {"version", "Show the version."}};
}

/// One command of tidlo-cli.
struct Command
{
    const char *name;
    const char *summary;     ///< A sentence for the list of commands.
    const char *description; ///< What it does and what its exit status tells, in lines of 80 columns at most.
    QList<CommandOption> options;
    ExitStatus (*run)(const QCommandLineParser &options, CommandContext &context);
    const char *arguments = ""; ///< What it takes besides options, as usage shows it; empty if nothing.
    bool needsThread = true;    ///< It scans, and so can do nothing where the system starts no thread.
};

} // namespace tidlo
