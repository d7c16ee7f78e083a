#include "ai/Prompt.h"

#include "platform/ByteCountFormatter.h"

#include <QStringList>

namespace tidlo {

namespace {

constexpr qsizetype findingsPerPrompt = 8;
constexpr qsizetype pathsPerFinding = 8;

constexpr QLatin1StringView instructions(
    "You are Tidlo, a trust-first macOS storage cleanup assistant.\n"
    "\n"
    "Review this scan metadata. Do not ask to inspect file contents. Explain the cleanup in concise plain English for "
    "a "
    "non-technical Mac user.\n"
    "\n"
    "Rules:\n"
    "- Never recommend deleting chat databases, source code, documents, or user-created media without review.\n"
    "- Rebuildable developer folders like node_modules, Composer vendor, .next, dist, build, .turbo can be removed if "
    "source files remain.\n"
    "- WhatsApp Message/Media can be described as local media cache, but ChatStorage.sqlite must be protected.\n"
    "- Mention that cleanup should move files to Trash first.\n"
    "- Keep the answer under 120 words.\n"
    "\n"
    "Scan metadata:\n");

template <typename Value>
QList<Value> firstOf(const QList<Value> &list, qsizetype count)
{
    return list.first(qMin(count, list.size()));
}

QString joinedPaths(const QList<FilePath> &paths)
{
    QStringList texts;
    for (const FilePath &path : firstOf(paths, pathsPerFinding))
        texts.append(QString::fromUtf8(path));
    return texts.join(QStringLiteral(" | "));
}

QString block(const CleanupCandidate &candidate)
{
    const QStringList lines{
        QStringLiteral("- id: ") + candidate.id.toString(QUuid::WithoutBraces).toUpper(),
        QStringLiteral("title: ") + candidate.title,
        QStringLiteral("category: ") + rawValue(candidate.category),
        QStringLiteral("risk: ") + rawValue(candidate.risk),
        QStringLiteral("size: ") + byteCountText(candidate.bytes),
        QStringLiteral("paths: ") + joinedPaths(candidate.paths),
        QStringLiteral("current explanation: ") + candidate.detail,
    };
    return lines.join(QLatin1Char('\n'));
}

} // namespace

QList<CleanupCandidate> explainedCandidates(const QList<CleanupCandidate> &candidates)
{
    return firstOf(candidates, findingsPerPrompt);
}

QString promptFor(const QList<CleanupCandidate> &candidates)
{
    QStringList blocks;
    for (const CleanupCandidate &candidate : candidates)
        blocks.append(block(candidate));
    return instructions + blocks.join(QLatin1Char('\n'));
}

} // namespace tidlo
