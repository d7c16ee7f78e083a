#pragma once

#include "cli/Output.h"
#include "platform/UserDefaults.h"
#include "scanner/FileSizeScanner.h"

#include <QCommandLineParser>
#include <QList>

namespace tidlo {

/// Made by main and used by commands.
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
    const char *value = "";  ///< The name of its value; empty if it takes none.
    const char *letter = ""; ///< Its short form, if it has one.
};

/// The options of every command besides its own.
inline QList<CommandOption> commonOptions()
{
    return {{"help", "Show this help.", "", "h"}, {"version", "Show the version."}};
}

/// One command of tidlo-cli.
struct Command
{
    const char *name;
    const char *summary;     ///< A sentence for the list of commands.
    const char *description; ///< What it does and what its exit status means, in lines of 80 columns at most.
    QList<CommandOption> options;
    ExitStatus (*run)(const QCommandLineParser &options, CommandContext &context);
    const char *arguments = ""; ///< Its arguments besides options, for the usage line; empty if there are none.
    bool needsThread = true;    ///< It scans, so it can do nothing if the system cannot start a thread.
};

} // namespace tidlo
