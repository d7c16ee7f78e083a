#pragma once

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QByteArrayList>
#include <QProcess>

#include <functional>

namespace tidlo {

/// What became of a run of tidlo-cli.
struct CliRun
{
    int status = -1; ///< The exit status, -1 if a signal ended it.
    int signal = 0;  ///< The signal that ended it, 0 if none did.
    QByteArray output;
    QByteArray errors;
};

/// How a run differs from the ordinary.
struct CliSetup
{
    FilePath workingFolder = {};        ///< That of the tests where it is empty.
    QByteArrayList environment = {};    ///< NAME=value, or NAME alone to have none of that name.
    std::function<void()> inChild = {}; ///< Called in the new process before it becomes tidlo-cli.
};

/// A setup in which the standard stream goes to a file, which is made if need be.
CliSetup redirected(int stream, const FilePath &file);
/// What is in a file.
QByteArray contentOf(const FilePath &file);

/// Makes \a process ready to run tidlo-cli with a private home and private XDG folders, and nothing of the environment
/// of the person who runs the tests.
void prepareCli(QProcess &process, const TemporaryHome &home, const QByteArrayList &arguments, const CliSetup &setup);

/// How a process that has ended did so.
CliRun endOf(const QProcess &process);

/// Runs tidlo-cli to its end without a terminal and with nothing to read.
CliRun runCli(const TemporaryHome &home, const QByteArrayList &arguments, const CliSetup &setup = {});

} // namespace tidlo
