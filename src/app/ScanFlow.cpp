#include "ai/Prompt.h"
#include "app/AppViewModel.h"

#include <QPointer>

namespace tidlo {

void AppViewModel::startScan()
{
    requireMainThread();
    if (scanTask)
        scanTask->request_stop();
    if (!areExplanationsOn())
        explaining.request_stop();
    else if (explaining.stop_requested())
        explaining = std::stop_source();
    setPhase(ScanPhase::scanning);
    setSection(AppSection::scan);
    setScanProgress(0.05);
    setScanLabel(QStringLiteral("Initialising Tidlo scanner..."));
    setAiSummary(std::nullopt);
    setIsGeneratingAI(true); // Set now, so that the results show at once that an explanation is being made.
    setCleanupReport(std::nullopt);
    scanTask.emplace();
    runScan(scanTask->get_token());
}

namespace {

/// The places in \a now that are not in \a before.
PlaceSet added(const QList<FilePath> &now, const QList<FilePath> &before)
{
    PlaceSet places;
    for (const FilePath &place : now) {
        if (!before.contains(place))
            places.insert(place);
    }
    return places;
}

} // namespace

QCoro::Task<> AppViewModel::runScan(std::stop_token cancelled)
{
    const std::shared_ptr<const void> held = underWay;
    const QPointer<AppViewModel> self(this); // The window may close while the scan runs.
    const auto showProgress = [self](double fraction, const QString &label) {
        if (!self)
            return;
        self->setScanProgress(fraction);
        self->setScanLabel(label);
    };
    const auto spared = [this] {
        return environment.defaults->paths(UserDefaults::spared).value_or(QList<FilePath>());
    };
    const ScanWishes wishes{.spared = spared(),
                            .also = environment.defaults->paths(UserDefaults::places).value_or(QList<FilePath>())};
    ScanResult result = co_await scanner.scan(showProgress, wishes);
    if (!self || cancelled.stop_requested())
        co_return; // A superseded scan writes nothing.
    // What the user spared in the former results, which can be used during the scan.
    leaveOut(result, added(spared(), wishes.spared));
    showResults(result);
    co_await explainWithGemini();
}

QCoro::Task<> AppViewModel::runProposal(FilePath folder)
{
    const std::shared_ptr<const void> held = underWay;
    const QPointer<AppViewModel> self(this);
    const OwnPlace place = co_await scanner.ownPlace(std::move(folder));
    if (self)
        setProposedPlace(place);
}

bool AppViewModel::answerProposal(bool isWanted)
{
    const std::optional<OwnPlace> place = proposedPlace();
    setProposedPlace(std::nullopt);
    return !isWanted || !place || !place->obstacle.isEmpty() ||
           environment.defaults->addPath(UserDefaults::places, place->folder);
}

void AppViewModel::setProposedPlace(const std::optional<OwnPlace> &place)
{
    state.proposedPlace = place;
    Q_EMIT proposedPlaceChanged();
}

void AppViewModel::showResults(const ScanResult &result)
{
    state.scanned = result;
    state.ticks = ItemTicks();
    setTotals(result.snapshot.totals);
    setCandidates(result.snapshot.candidates);
    setPhase(ScanPhase::results);
    setSection(AppSection::results);
}

QCoro::Task<> AppViewModel::explainWithGemini()
{
    const QPointer<AppViewModel> self(this);
    const std::stop_token unwanted = explaining.get_token();
    setIsGeneratingAI(true);
    setSent(std::nullopt);
    const QList<CleanupCandidate> explained = explainedCandidates(candidates());
    std::optional<QString> explanation;
    if (!unwanted.stop_requested()) {
        const auto keep = [self](const ExplainRequest &request) { self->setSent(request); };
        const ExplainWatch watch{.unwanted = unwanted, .sending = keep};
        explanation = co_await environment.explain(explained, watch);
    }
    if (!self)
        co_return;
    if (explanation && !explanation->isEmpty() && !unwanted.stop_requested())
        setAiSummary(explanation);
    setIsGeneratingAI(false);
}

void AppViewModel::setSent(const std::optional<ExplainRequest> &request)
{
    state.sent = request;
    Q_EMIT sentChanged();
}

void AppViewModel::heedPreference(const QString &key)
{
    if (key != UserDefaults::explanations)
        return;
    if (!areExplanationsOn())
        explaining.request_stop();
    else if (!isGeneratingAI())
        explaining = std::stop_source();
    Q_EMIT explanationsChanged();
}

} // namespace tidlo
