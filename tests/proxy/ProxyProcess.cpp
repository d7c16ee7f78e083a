#include "proxy/ProxyProcess.h"

#include "support/Patience.h"

#include <QEventLoop>

#include <gtest/gtest.h>

namespace tidlo {

ProxyProcess::ProxyProcess(const QStringList &arguments, const QStringList &environment)
{
    QStringList variables = environment;
    variables.append(QStringLiteral("LLVM_PROFILE_FILE=") + qEnvironmentVariable("LLVM_PROFILE_FILE"));
    variables.append(QStringLiteral("STATE_DIRECTORY=") + QString::fromUtf8(home / "state"));
    process.setEnvironment(variables);
    process.start(QStringLiteral(TIDLO_PROXY), QStringList{QStringLiteral("--port"), QStringLiteral("0")} + arguments);
    while (!process.canReadLine() && process.waitForReadyRead(patience)) {
    }
    announced = QString::fromUtf8(process.readLine()).trimmed();
    EXPECT_NE(announced, QString()) << process.readAllStandardError().toStdString();
}

ProxyProcess::~ProxyProcess()
{
    process.terminate();
    process.waitForFinished(patience);
}

int ProxyProcess::waitForEnd()
{
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace tidlo
