#pragma once

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QByteArrayList>
#include <QProcess>

#include <functional>

namespace tidlo {

/// The result of a run of tidlo-cli.
struct CliRun
{
    int status = -1; ///< The exit status; -1 if a signal ended the process.
    int signal = 0;  ///< The signal that ended the process; 0 if none did.
    QByteArray output;
    QByteArray errors;
};

/// How a run differs from the default.
struct CliSetup
{
    FilePath workingFolder = {};        ///< If empty, that of the tests.
    QByteArrayList environment = {};    ///< NAME=value, or NAME alone to unset it.
    std::function<void()> inChild = {}; ///< Called in the new process before it becomes tidlo-cli.
};

/// A setup in which the standard stream goes to a file, which is made if it is missing.
CliSetup redirected(int stream, const FilePath &file);
/// The content of a file.
QByteArray contentOf(const FilePath &file);

/// Prepares \a process to run tidlo-cli with a private home folder and private XDG folders, and without the environment
/// of the person who runs the tests.
void prepareCli(QProcess &process, const TemporaryHome &home, const QByteArrayList &arguments, const CliSetup &setup);

/// The result of a process that has ended.
CliRun endOf(const QProcess &process);

/// Runs tidlo-cli to its end, without a terminal and with empty standard input.
CliRun runCli(const TemporaryHome &home, const QByteArrayList &arguments, const CliSetup &setup = {});

} // namespace tidlo
