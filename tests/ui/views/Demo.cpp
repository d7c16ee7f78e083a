#include "ui/views/Demo.h"

#include "fakes/FakeWorkspace.h"
#include "platform/AtomicFile.h"
#include "support/WaitUntil.h"

#include <QAccessible>
#include <QDir>

#include <algorithm>

namespace tidlo {

Demo::Demo()
{
    reset();
}

AppEnvironment Demo::environment()
{
    const FilePath home = QFile::encodeName(folder.path());
    const auto desktop = std::make_shared<testing::NiceMock<FakeWorkspace>>();
    ON_CALL(*desktop, start).WillByDefault([this](auto &&...) {
        ++uninstallCount;
        return std::nullopt;
    });
    ON_CALL(*desktop, openApplication).WillByDefault([this](auto &&...) { ++launchCount; });
    ON_CALL(*desktop, showInFiles).WillByDefault([this](const FilePath &path) {
        shownPaths.append(QFile::decodeName(path));
    });
    const auto files = std::make_shared<testing::NiceMock<FakeFileManager>>(home);
    ON_CALL(*files, trashItem).WillByDefault([this](const FilePath &path) { return outcomeOf(path); });
    ON_CALL(*files, restoreItems).WillByDefault([this](const QList<TrashedItem> &items, auto &&) {
        putBackCount += static_cast<int>(items.size());
        return QList<TrashOutcome>(items.size(), outcomeOf({}));
    });
    AppEnvironment environment = demoEnvironment(home);
    environment.fileManager = files;
    environment.workspace = desktop;
    writeAtomically(environment.bundle().executable, "Nothing that runs.");
    QDir(folder.path()).mkdir(QStringLiteral("Applications"));
    return environment;
}

QString Demo::section() const
{
    return rawValue(model.section());
}

QString Demo::phase() const
{
    constexpr std::array names{"ready", "scanning", "results", "report"};
    return QLatin1StringView(names.at(static_cast<size_t>(model.phase())));
}

QUrl Demo::folderNamed(const QString &name) const
{
    QDir(folder.path()).mkdir(name);
    return QUrl::fromLocalFile(folder.filePath(name));
}

void Demo::damagePreference(const QString &key)
{
    given.defaults->set(QLatin1StringView(key.toLatin1()), QStringLiteral("damaged"));
}

QString Demo::storedTheme() const
{
    return given.defaults->string(UserDefaults::theme, {});
}

void Demo::reset()
{
    uninstallCount = 0;
    launchCount = 0;
    putBackCount = 0;
    isTrashStuck = false;
    shownPaths.clear();
    given.defaults->set(UserDefaults::theme, {});
    given.defaults->set(UserDefaults::setupCompleted, {});
    given.defaults->set(UserDefaults::spared, {});
    model.setIsGeneratingAI(false);
    given.defaults->set(UserDefaults::explanations, {});
    model.setSent(std::nullopt);
    given.defaults->set(UserDefaults::places, {});
    model.setSection(AppSection::scan);
    model.setPhase(ScanPhase::ready);
    model.setTotals({});
    model.setCandidates({});
    model.setSelectedFilter(std::nullopt);
    model.setCleanupReport(std::nullopt);
    model.setAiSummary(std::nullopt);
    model.setScanProgress(0);
    model.setShowSetupWizard(false);
    model.setShowMoveToApplicationsPrompt(false);
    model.setShowMoveToApplicationsError(false);
    shownState.foundItems()->setLargestFirst(false);
}

void Demo::showResults()
{
    model.showResults(demoResult());
    model.setAiSummary(demoExplanation());
}

void Demo::showResultsOfAnotherScan()
{
    ScanResult result = demoResult();
    for (CleanupCandidate &candidate : result.snapshot.candidates)
        candidate.id = QUuid::createUuid();
    model.showResults(result);
}

void Demo::scanAt(double progress, const QString &label)
{
    model.setPhase(ScanPhase::scanning);
    model.setScanProgress(progress);
    model.setScanLabel(label);
}

void Demo::setFigures(double diskUsed, double recoverable)
{
    ScanTotals totals = model.totals();
    totals.diskUsedPercent = diskUsed;
    totals.recoverablePercent = recoverable;
    model.setTotals(totals);
}

void Demo::setSection(const QString &section)
{
    model.setSection(fromRawValue<AppSection>(section).value());
}

void Demo::setPhase(const QString &phase)
{
    constexpr std::array names{"ready", "scanning", "results", "report"};
    const auto found = std::ranges::find(names, phase, [](const char *name) { return QLatin1StringView(name); });
    model.setPhase(static_cast<ScanPhase>(found - names.begin()));
}

void Demo::setSummary(const QString &summary)
{
    model.setAiSummary(summary);
}

void Demo::setExplaining(bool explaining)
{
    model.setIsGeneratingAI(explaining);
}

void Demo::setSent(const QString &host, const QString &body)
{
    model.setSent(ExplainRequest{
        .host = host, .path = "/explain", .headers = {{"Content-Type", "application/json"}}, .body = body.toUtf8()});
}

QVariant Demo::storedExplanations() const
{
    const bool orTrue = given.defaults->boolean(UserDefaults::explanations, true);
    const bool orFalse = given.defaults->boolean(UserDefaults::explanations, false);
    return orTrue == orFalse ? QVariant(orTrue) : QVariant();
}

void Demo::changeCandidate(int index, const QVariantMap &values)
{
    QList<CleanupCandidate> candidates = model.candidates();
    CleanupCandidate &candidate = candidates[index];
    const auto textOr = [&](const char *name, const QString &otherwise) {
        return values.value(QLatin1StringView(name), otherwise).toString();
    };
    candidate.title = textOr("title", candidate.title);
    candidate.detail = textOr("detail", candidate.detail);
    if (values.contains(QStringLiteral("aiExplanation")))
        candidate.aiExplanation = textOr("aiExplanation", {});
    candidate.bytes = values.value(QStringLiteral("bytes"), candidate.bytes).toLongLong();
    candidate.selected = values.value(QStringLiteral("selected"), candidate.selected).toBool();
    if (values.contains(QStringLiteral("risk")))
        candidate.risk = fromRawValue<CleanupRisk>(textOr("risk", {})).value();
    model.setCandidates(candidates);
}

void Demo::removeCandidates()
{
    model.setCandidates({});
}

int Demo::selectedCount() const
{
    return static_cast<int>(model.selectedCandidates().size());
}

void Demo::setReport(double bytes, int removed, int kept, double diskUsed)
{
    CleanupReport report;
    report.recoveredBytes = static_cast<qint64>(bytes);
    report.removedItems = removed;
    report.protectedItems = kept;
    report.finalDiskUsedPercent = diskUsed;
    model.setCleanupReport(report);
}

TrashOutcome Demo::outcomeOf(const FilePath &path) const
{
    if (isTrashStuck)
        return {.kind = TrashOutcome::Kind::refused, .reason = QStringLiteral("It holds a Trash.")};
    return {.kind = TrashOutcome::Kind::moved,
            .reason = {},
            .trashed = TrashedItem{.trash = {}, .name = {}, .origin = path}};
}

void Demo::cleanUpInVain(int count)
{
    isTrashStuck = true;
    cleanUp(count);
}

void Demo::cleanUp(int count)
{
    CleanupCandidate finding = demoFindings().constFirst();
    finding.paths.clear();
    for (int number = 0; number < count; ++number) {
        const QString path = folder.filePath(QStringLiteral("stays-%1").arg(number));
        QDir().mkpath(path);
        finding.paths.append(QFile::encodeName(path));
    }
    model.setCandidates({finding});
    model.moveSelectedToTrash();
    waitUntil([this] { return !model.isMovingFiles(); });
}

void Demo::showMovePrompt(bool shown)
{
    model.setShowMoveToApplicationsPrompt(shown);
}

void Demo::showMoveError(const QString &message)
{
    model.setMoveToApplicationsErrorMessage(message);
    model.setShowMoveToApplicationsError(true);
}

namespace {

void collect(const QQuickItem &item, const char *property, const char *type, QStringList &into)
{
    if (!item.isVisible())
        return;
    if (item.inherits(type))
        into.append(item.property(property).toString());
    for (const QQuickItem *child : item.childItems())
        collect(*child, property, type, into);
}

QQuickItem *find(QQuickItem &item, const QString &text)
{
    if (!item.isVisible())
        return nullptr;
    if (item.inherits("QQuickText") && item.property("text").toString() == text)
        return &item;
    for (QQuickItem *child : item.childItems()) {
        if (QQuickItem *found = find(*child, text))
            return found;
    }
    return nullptr;
}

} // namespace

QStringList Demo::texts(QQuickItem *item) const
{
    QStringList result;
    collect(*item, "text", "QQuickText", result);
    return result;
}

QQuickItem *Demo::withText(QQuickItem *item, const QString &text) const
{
    return find(*item, text);
}

QVariantList Demo::named(QQuickItem *item, const QString &name) const
{
    if (!item->isVisible())
        return {};
    QVariantList result;
    if (item->objectName() == name)
        result.append(QVariant::fromValue(item));
    for (QQuickItem *child : item->childItems())
        result += named(child, name);
    return result;
}

bool Demo::isFocusable(QQuickItem *item) const
{
    QAccessibleInterface *const told = QAccessible::queryAccessibleInterface(item);
    return told != nullptr && told->state().focusable;
}

QStringList Demo::symbols(QQuickItem *item) const
{
    QStringList result;
    collect(*item, "name", "tidlo::Symbol", result);
    return result;
}

} // namespace tidlo
