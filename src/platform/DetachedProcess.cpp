#include "platform/DetachedProcess.h"

#include <QFile>
#include <QProcess>

std::optional<QString> startDetached(const FilePath &program, const QByteArrayList &arguments)
{
    QStringList texts;
    for (const QByteArray &argument : arguments)
        texts.append(QFile::decodeName(argument));
    QProcess process;
    process.setProgram(QFile::decodeName(program));
    process.setArguments(texts);
    // Ours may be closed before it ends.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached() ? std::nullopt : std::optional(process.errorString());
}
