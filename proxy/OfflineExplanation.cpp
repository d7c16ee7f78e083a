#include "proxy/OfflineExplanation.h"

#include "proxy/PromptFindings.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace tidlo::proxy {
namespace {

/// What to tell a person to do, the most careful last.
enum class Advice { again, look, leave };

using Text = QLatin1StringView;

struct Kind
{
    Text title;
    Text name;
    Advice advice;
    Text maker = {}; ///< Who makes it again.
};

constexpr std::array kinds{
    Kind{Text("Rebuildable project folders"), Text("project folders such as node_modules"), Advice::again,
         Text("npm, pnpm, yarn or a build")},
    Kind{Text("Composer vendor folders"), Text("Composer vendor folders"), Advice::again, Text("composer install")},
    Kind{Text("User and developer caches"), Text("app caches"), Advice::again, Text("the apps themselves")},
    Kind{Text("WhatsApp / Temporary App Caches"), Text("WhatsApp's temporary caches"), Advice::again,
         Text("WhatsApp itself")},
    Kind{Text("Build and distribution outputs"), Text("build outputs"), Advice::look},
    Kind{Text("Older duplicate project copies"), Text("older project copies"), Advice::look},
    Kind{Text("Downloads / old installers and archives"), Text("old downloads"), Advice::look},
    // Rebuildable by its risk, but these are documents and media all the same.
    Kind{Text("Large & untouched files (>100MB, 60+ days old)"), Text("large old files"), Advice::look},
    Kind{Text("WhatsApp / Chat Media & Attachments"), Text("WhatsApp media"), Advice::look},
};

/// For titles that are not known, by their category.
Kind unknownKind(CleanupCategory category)
{
    switch (category) {
    case CleanupCategory::devProjects:
        return {.title = {}, .name = Text("other project files"), .advice = Advice::look};
    case CleanupCategory::whatsApp:
        return {.title = {}, .name = Text("other WhatsApp files"), .advice = Advice::look};
    case CleanupCategory::caches:
        return {.title = {}, .name = Text("other caches"), .advice = Advice::look};
    case CleanupCategory::downloads:
        return {.title = {}, .name = Text("other downloads"), .advice = Advice::look};
    case CleanupCategory::oldLargeFiles:
        return {.title = {}, .name = Text("other large files"), .advice = Advice::look};
    case CleanupCategory::protected_:
        break;
    }
    return {.title = {}, .name = Text("protected items"), .advice = Advice::leave};
}

Kind kindOf(const PromptFinding &finding)
{
    const auto known = std::ranges::find(kinds, finding.title, [](const Kind &kind) { return QString(kind.title); });
    Kind kind = known == kinds.end() ? unknownKind(finding.category) : *known;
    if (finding.risk == CleanupRisk::review)
        kind.advice = std::max(kind.advice, Advice::look);
    if (finding.risk == CleanupRisk::never || finding.category == CleanupCategory::protected_)
        kind.advice = Advice::leave;
    return kind;
}

/// The names of what is to be treated so, each once, with its maker where it has one.
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
