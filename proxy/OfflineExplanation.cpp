#include "proxy/OfflineExplanation.h"

#include "model/FindingKind.h"
#include "proxy/PromptFindings.h"

#include <QStringList>

#include <algorithm>

namespace tidlo::proxy {
namespace {

/// Advice for a kind of finding, the most careful last.
enum class Advice { again, look, leave };

using Text = QLatin1StringView;

/// The explanation of a kind of finding.
struct Kind
{
    Text name;
    Advice advice;
    Text maker = {}; ///< The tool that makes it again.
};

Kind knownKind(FindingKind kind)
{
    switch (kind) {
    case FindingKind::projectFolders:
        return {Text("project folders such as node_modules"), Advice::again, Text("npm, pnpm, yarn or a build")};
    case FindingKind::composerFolders:
        return {Text("Composer vendor folders"), Advice::again, Text("composer install")};
    case FindingKind::buildOutputs:
        return {Text("build outputs"), Advice::look};
    case FindingKind::chatMedia:
        return {Text("WhatsApp media"), Advice::look};
    case FindingKind::chatCaches:
        return {Text("WhatsApp's temporary caches"), Advice::again, Text("WhatsApp itself")};
    case FindingKind::userCaches:
        return {Text("app caches"), Advice::again, Text("the apps themselves")};
    case FindingKind::oldDownloads:
        return {Text("old downloads"), Advice::look};
    case FindingKind::largeFiles: // Rebuildable by its risk, but these are documents and media all the same.
        return {Text("large old files"), Advice::look};
    case FindingKind::olderCopies:
        return {Text("older project copies"), Advice::look};
    }
    return {};
}

/// For unknown titles, by category.
Kind unknownKind(CleanupCategory category)
{
    switch (category) {
    case CleanupCategory::devProjects:
        return {Text("other project files"), Advice::look};
    case CleanupCategory::whatsApp:
        return {Text("other WhatsApp files"), Advice::look};
    case CleanupCategory::caches:
        return {Text("other caches"), Advice::look};
    case CleanupCategory::downloads:
        return {Text("other downloads"), Advice::look};
    case CleanupCategory::oldLargeFiles:
        return {Text("other large files"), Advice::look};
    case CleanupCategory::protected_:
        break;
    }
    return {Text("protected items"), Advice::leave};
}

Kind kindOf(const PromptFinding &finding)
{
    const auto known =
        std::ranges::find_if(findingKinds, [&](const FindingKindRow &row) { return finding.title == row.title; });
    Kind kind = known == findingKinds.end() ? unknownKind(finding.category) : knownKind(known->kind);
    if (finding.risk == CleanupRisk::review)
        kind.advice = std::max(kind.advice, Advice::look);
    if (finding.risk == CleanupRisk::never || finding.category == CleanupCategory::protected_)
        kind.advice = Advice::leave;
    return kind;
}

/// The names of the kinds with this advice, each once, with its maker if it has one.
QString namesFor(Advice advice, const QList<PromptFinding> &findings)
{
    QStringList names;
    for (const PromptFinding &finding : findings) {
        const Kind kind = kindOf(finding);
        if (kind.advice == advice)
            names.append(kind.name + (advice == Advice::again ? QStringLiteral(" (%1)").arg(kind.maker) : QString()));
    }
    names.removeDuplicates();
    return names.join(QStringLiteral(", "));
}

QString sentenceFor(Advice advice, const char *sentence, const QList<PromptFinding> &findings)
{
    const QString names = namesFor(advice, findings);
    return names.isEmpty() ? QString() : QString::fromLatin1(sentence).arg(names);
}

QString largest(const QList<PromptFinding> &findings)
{
    const auto finding = std::ranges::max_element(findings, {}, &PromptFinding::bytes);
    return QStringLiteral("The largest finding: %1, %2.").arg(kindOf(*finding).name, finding->size);
}

QString chatSentence(const QList<PromptFinding> &findings)
{
    const bool hasChat = std::ranges::any_of(
        findings, [](const PromptFinding &finding) { return finding.category == CleanupCategory::whatsApp; });
    return hasChat ? QStringLiteral("WhatsApp media is a local cache, but ChatStorage.sqlite must stay.") : QString();
}

QString written(QStringList sentences)
{
    sentences.prepend(QStringLiteral("Written without an AI model, from the scan's categories and sizes alone."));
    sentences.removeAll(QString());
    return sentences.join(u' ');
}

} // namespace

QString offlineExplanation(const QString &prompt)
{
    const QString trash = QStringLiteral("Cleanup moves files to the Trash first: you can put them back from there, "
                                         "and the space returns when you empty it.");
    const auto findings = findingsIn(prompt);
    if (!findings)
        return written({QStringLiteral("The request lists no findings that could be explained."), trash});
    if (findings->isEmpty())
        return written({QStringLiteral("There are no findings to explain."), trash});
    return written({largest(*findings),
                    sentenceFor(Advice::again, "Made again when needed, if source files remain: %1.", *findings),
                    sentenceFor(Advice::look, "Look at these before you decide: %1.", *findings),
                    sentenceFor(Advice::leave, "Leave these alone: %1.", *findings), chatSentence(*findings), trash});
}

} // namespace tidlo::proxy
