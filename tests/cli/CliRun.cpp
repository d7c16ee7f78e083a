#include "cli/CliRun.h"

#include "support/Patience.h"

#include <QFile>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

namespace tidlo {

namespace {

QProcessEnvironment environmentFor(const TemporaryHome &home, const QByteArrayList &changes)
{
    QProcessEnvironment environment;
    const QProcessEnvironment ours = QProcessEnvironment::systemEnvironment();
    for (const char *name :
         {"PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS", "LSAN_OPTIONS", "LLVM_PROFILE_FILE"})
        environment.insert(QString::fromLatin1(name), ours.value(QString::fromLatin1(name)));
    const QString path = QString::fromUtf8(home.path());
    environment.insert(QStringLiteral("HOME"), path);
    environment.insert(QStringLiteral("XDG_DATA_HOME"), path + QStringLiteral("/.local/share"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path + QStringLiteral("/.config"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), path + QStringLiteral("/.run"));
    environment.insert(QStringLiteral("TERM"), QStringLiteral("xterm-256color"));
    for (const QByteArray &change : changes) {
        const QString text = QString::fromUtf8(change);
        const qsizetype equals = text.indexOf(u'=');
        if (equals == -1)
            environment.remove(text);
        else
            environment.insert(text.left(equals), text.mid(equals + 1));
    }
    return environment;
}

} // namespace

CliSetup redirected(int stream, const FilePath &file)
{
    return {.environment = {},
            .inChild = [stream, file] { dup2(open(file.constData(), O_WRONLY | O_CREAT, 0600), stream); }};
}

QByteArray contentOf(const FilePath &path)
{
    QFile file(QFile::decodeName(path));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return file.readAll();
}

void prepareCli(QProcess &process, const TemporaryHome &home, const QByteArrayList &arguments, const CliSetup &setup)
{
    QStringList texts;
    for (const QByteArray &argument : arguments)
        texts.append(QString::fromUtf8(argument));
    process.setProgram(QStringLiteral(TIDLO_CLI));
    process.setArguments(texts);
    process.setProcessEnvironment(environmentFor(home, setup.environment));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setWorkingDirectory(QFile::decodeName(setup.workingFolder));
    if (setup.inChild)
        process.setChildProcessModifier(setup.inChild);
}

CliRun endOf(const QProcess &process)
{
    const bool exited = process.exitStatus() == QProcess::NormalExit;
    return {.status = exited ? process.exitCode() : -1,
            .signal = exited ? 0 : process.exitCode(),
            .output = {},
            .errors = {}};
}

CliRun runCli(const TemporaryHome &home, const QByteArrayList &arguments, const CliSetup &setup)
{
    QProcess process;
    prepareCli(process, home, arguments, setup);
    process.start();
    EXPECT_TRUE(process.waitForFinished(patience)) << "tidlo-cli hangs";
    CliRun run = endOf(process);
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}

} // namespace tidlo
