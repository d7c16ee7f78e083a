#pragma once

#include "app/AppEnvironment.h"
#include "app/AppState.h"
#include "app/SpringAnimation.h"
#include "scanner/FileSizeScanner.h"
#include "scanner/Forecast.h"

#include <QObject>

#include <stop_token>

namespace tidlo {

/// The one owner of what the application shows, and the operations that screens call. This is its whole public face;
/// what the properties mean stands in AppState.h.
///
/// Bound to the main thread: to read or write a property on any other stops the program. Work is done by the scanner
/// and the network while the coroutines here are suspended; if the object is gone when they resume, they write nothing.
/// No operation throws, and each returns at once, except the one that copies the application.
///
/// Every assignment to a property tells observers, whether or not the value differs: objectWillChange() before, the
/// property's own signal after.
class AppViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ScanPhase phase READ phase NOTIFY phaseChanged)
    Q_PROPERTY(AppSection section READ section NOTIFY sectionChanged)
    Q_PROPERTY(ScanTotals totals READ totals NOTIFY totalsChanged)
    Q_PROPERTY(QList<CleanupCandidate> candidates READ candidates NOTIFY candidatesChanged)
    Q_PROPERTY(double scanProgress READ scanProgress NOTIFY scanProgressChanged)
    Q_PROPERTY(QString scanLabel READ scanLabel NOTIFY scanLabelChanged)
    Q_PROPERTY(std::optional<CleanupRisk> selectedFilter READ selectedFilter WRITE setSelectedFilter NOTIFY
                   selectedFilterChanged)
    Q_PROPERTY(std::optional<CleanupReport> cleanupReport READ cleanupReport NOTIFY cleanupReportChanged)
    Q_PROPERTY(std::optional<QString> aiSummary READ aiSummary NOTIFY aiSummaryChanged)
    Q_PROPERTY(bool showSetupWizard READ showSetupWizard WRITE setShowSetupWizard NOTIFY showSetupWizardChanged)
    Q_PROPERTY(int setupStep READ setupStep NOTIFY setupStepChanged)
    Q_PROPERTY(bool showMoveToApplicationsPrompt READ showMoveToApplicationsPrompt WRITE setShowMoveToApplicationsPrompt
                   NOTIFY showMoveToApplicationsPromptChanged)
    Q_PROPERTY(bool showMoveToApplicationsError READ showMoveToApplicationsError WRITE setShowMoveToApplicationsError
                   NOTIFY showMoveToApplicationsErrorChanged)
    Q_PROPERTY(QString moveToApplicationsErrorMessage READ moveToApplicationsErrorMessage NOTIFY
                   moveToApplicationsErrorMessageChanged)
    Q_PROPERTY(bool isGeneratingAI READ isGeneratingAI NOTIFY isGeneratingAIChanged)

public:
    /// Begins to read the figures of the home folder's disk, which replace totals() soon.
    explicit AppViewModel(AppEnvironment given = {}, QObject *parent = nullptr);

    ScanPhase phase() const { return read(state.phase); }
    AppSection section() const { return read(state.section); }
    ScanTotals totals() const { return read(state.totals); }
    QList<CleanupCandidate> candidates() const { return read(state.candidates); }
    double scanProgress() const { return read(state.scanProgress); }
    QString scanLabel() const { return read(state.scanLabel); }
    std::optional<CleanupRisk> selectedFilter() const { return read(state.selectedFilter); }
    std::optional<CleanupReport> cleanupReport() const { return read(state.cleanupReport); }
    std::optional<QString> aiSummary() const { return read(state.aiSummary); }
    bool showSetupWizard() const { return read(state.showSetupWizard); }
    int setupStep() const { return read(state.setupStep); }
    bool showMoveToApplicationsPrompt() const { return read(state.showMoveToApplicationsPrompt); }
    bool showMoveToApplicationsError() const { return read(state.showMoveToApplicationsError); }
    QString moveToApplicationsErrorMessage() const { return read(state.moveToApplicationsErrorMessage); }
    bool isGeneratingAI() const { return read(state.isGeneratingAI); }

    // What views may assign. All else changes by the operations below.

    void setSelectedFilter(std::optional<CleanupRisk> value)
    {
        assign(state.selectedFilter, value, &AppViewModel::selectedFilterChanged);
    }
    void setShowSetupWizard(bool value) { assign(state.showSetupWizard, value, &AppViewModel::showSetupWizardChanged); }
    void setShowMoveToApplicationsPrompt(bool value)
    {
        assign(state.showMoveToApplicationsPrompt, value, &AppViewModel::showMoveToApplicationsPromptChanged);
    }
    void setShowMoveToApplicationsError(bool value)
    {
        assign(state.showMoveToApplicationsError, value, &AppViewModel::showMoveToApplicationsErrorChanged);
    }

    // Figures derived from the candidates as they are now; nothing is kept. A sum that does not fit stops the program.

    qint64 categoryBytes(CleanupCategory category) const; ///< Whatever the filter and the selection.
    QList<CleanupCandidate> visibleCandidates() const;    ///< Those that pass the filter.
    QList<CleanupCandidate> selectedCandidates() const;
    qint64 selectedBytes() const;
    qsizetype protectedCount() const; ///< Of candidates never to be touched, visible or not.

    // Not published: objectWillChange() does not tell when these change.

    /// Whether scans are explained: the preference "tidlo.explanations".
    bool areExplanationsOn() const { return environment.defaults->boolean(UserDefaults::explanations, true); }
    /// Whether an explanation may still come: not once explanations have been switched off, until the next scan.
    bool isExplanationAwaited() const { return read(state.isGeneratingAI) && !explaining.stop_requested(); }
    /// What was sent to have the last scan explained; nothing if nobody was asked.
    std::optional<ExplainRequest> sent() const { return read(state.sent); }
    /// The candidate \a id as the last scan found it, with all its items; an empty one if there is no such candidate.
    CleanupCandidate scannedCandidate(const QUuid &id) const;
    /// Bytes on the disk of each of its paths.
    QList<qint64> sizesOf(const QUuid &id) const { return read(state.scanned).sizes.value(id); }
    /// Which of its paths are moved with it, as things stand: none as long as it is not selected.
    QList<bool> ticksOf(const QUuid &id) const;
    /// What the last cleanup could not move. Empty again when a scan begins.
    QList<StayedItem> stayed() const { return read(state.stayed); }
    /// What emptying the Trash would give back of the candidate \a id as it is ticked, or of all that is selected.
    Forecast forecast(const QUuid &id) const;
    Forecast forecastOfSelected() const { return forecastOf(read(state.scanned), selectedCandidates()); }
    /// The folders that the scan could not read.
    UnreadFolders unread() const { return read(state.scanned).unread; }
    /// The listed paths of all findings that hold \a path, and their sizes: what would be spared with it.
    QList<HoldingItem> holdersOf(const FilePath &path) const { return tidlo::holdersOf(read(state.scanned), path); }
    /// Keeps \a path, one that is listed, as never to be suggested, and takes it out of what is shown, with what lies
    /// in it and what holds it. False if that cannot be kept; then nothing changes.
    bool spare(const FilePath &path);
    /// Whether a cleanup moved nothing because the list of what is never to be suggested cannot be read; until that is
    /// acknowledged.
    bool isSparedUnknown() const { return read(state.isSparedUnknown); }
    void acknowledgeSparedUnknown() { setSparedUnknown(false); }
    /// A folder that proposePlace() was given, or why it cannot be a place to look for projects in; until that is
    /// answered.
    std::optional<OwnPlace> proposedPlace() const { return read(state.proposedPlace); }
    /// Checks what is at \a folder, to ask whether to look for projects in it as well. The scanner checks it, after its
    /// current work.
    void proposePlace(const FilePath &folder) { runProposal(folder); }
    /// Ends the proposal; \a isWanted keeps the folder, if it can be one, for all scans to come. False if it cannot be
    /// kept.
    bool answerProposal(bool isWanted);
    /// Whether there is something of the last cleanup of this run that can be put back now.
    bool canPutBack() const { return !read(state.trashed).isEmpty() && !state.isMovingFiles; }
    /// What could not be put back, until that is acknowledged.
    QList<StayedItem> notPutBack() const { return read(state.notPutBack); }
    void acknowledgeNotPutBack() { setNotPutBack({}); }
    /// Whether a cleanup is under way, or is being taken back: then neither can begin.
    bool isMovingFiles() const { return read(state.isMovingFiles); }

    /// Held as long as an operation is under way, also when this object is gone: then operations end soon, each at its
    /// next turn of the event loop.
    std::weak_ptr<const void> operations() const { return underWay; }

    // From the environment that it was made with.

    UserDefaults &defaults() const { return *environment.defaults; }
    Workspace &workspace() const { return *environment.workspace; }
    Bundle bundle() const { return environment.bundle(); }

    /// What the application does once as it starts: on a run before setup has been completed, offers to move to the
    /// Applications folder. Where there is no such folder, the application lies in it already, or the program runs from
    /// no bundle, it goes on as if that had been declined.
    void beginFirstRun();

    /// Flips the selection of the candidate with the same identifier, animated. One without a ticked item gets all of
    /// them back. Does nothing if \a candidate is never to be touched or is no longer there.
    Q_INVOKABLE void toggleCandidate(const CleanupCandidate &candidate);

    /// Ticks or unticks items of the candidate \a id, by the indices of the paths that the scan found. The candidate is
    /// replaced by one with the remaining paths and their bytes; with all of them ticked again it is what it was. If it
    /// was not selected, only the items ticked now are selected; if no item is left, it is deselected. What is unticked
    /// is moved by no candidate: the same assignment takes the same place, and whatever holds it, out of every other
    /// one. Returns what was taken out of others. Does nothing to a candidate never to be touched.
    QList<ItemElsewhere> tickItems(const QUuid &id, const QList<int> &items, bool ticked);

    /// Scans the home folder and shows what was found, then asks for an explanation of it. Replaces a scan under way,
    /// whose results are thrown away.
    Q_INVOKABLE void startScan();

    /// Shows what a scan found, in place of what was found before.
    void showResults(const ScanResult &result);

    /// Goes to \a section, as its button in the rail does. What there is to show there follows: the results at the
    /// start, a report that there is.
    void openSection(AppSection section);

    /// Shows the report of what has been, or would be, moved.
    void viewReport();

    /// Moves the selected candidates to the Trash, takes them off the list and shows a report. Does nothing if none is
    /// selected, while they are being moved, or when the list of what is never to be suggested cannot be read.
    Q_INVOKABLE void moveSelectedToTrash();

    /// Puts everything that the last cleanup of this run moved to the Trash back where it was, and scans again. What
    /// cannot be put back is told by notPutBack(), and can be tried again. Does nothing unless canPutBack().
    Q_INVOKABLE void putEverythingBack();

    /// Declines the offer to move to the Applications folder; the wizard follows where setup has not been completed.
    Q_INVOKABLE void skipMoveToApplicationsPrompt();

    /// Accepts it: copies the application there, starts the copy and quits. The application itself stays where it is.
    /// What fails is shown as an alert, and the wizard follows where setup has not been completed. Blocks while it
    /// copies.
    Q_INVOKABLE void moveToApplicationsFolder();

    /// Has a script move the application to the Trash and remove its preferences and caches, and quits. If the script
    /// cannot be started, or would remove what is not ours, one line on standard output says so, and nothing else
    /// happens.
    Q_INVOKABLE void uninstallTidloCompletely();

    /// The same for an application in no bundle, which a script cannot remove: only its preferences and caches go.
    void removePreferencesAndCaches();

Q_SIGNALS:
    /// A property is about to be assigned.
    void objectWillChange();

    /// The assignment that follows at once is to be animated.
    void willAnimate(const SpringAnimation &animation);

    void phaseChanged();
    void sectionChanged();
    void totalsChanged();
    void candidatesChanged();
    void scanProgressChanged();
    void scanLabelChanged();
    void selectedFilterChanged();
    void cleanupReportChanged();
    void aiSummaryChanged();
    void showSetupWizardChanged();
    void setupStepChanged();
    void showMoveToApplicationsPromptChanged();
    void showMoveToApplicationsErrorChanged();
    void moveToApplicationsErrorMessageChanged();
    void isGeneratingAIChanged();
    void isMovingFilesChanged(); ///< And with it perhaps what can be put back.
    void notPutBackChanged();
    void isSparedUnknownChanged();
    void proposedPlaceChanged();
    void explanationsChanged(); ///< They were switched on or off.
    void sentChanged();

protected:
    void setPhase(ScanPhase value) { assign(state.phase, value, &AppViewModel::phaseChanged); }
    void setSection(AppSection value) { assign(state.section, value, &AppViewModel::sectionChanged); }
    void setTotals(ScanTotals value) { assign(state.totals, value, &AppViewModel::totalsChanged); }
    void setCandidates(QList<CleanupCandidate> value)
    {
        assign(state.candidates, std::move(value), &AppViewModel::candidatesChanged);
    }
    void setScanProgress(double value) { assign(state.scanProgress, value, &AppViewModel::scanProgressChanged); }
    void setScanLabel(QString value) { assign(state.scanLabel, std::move(value), &AppViewModel::scanLabelChanged); }
    void setCleanupReport(std::optional<CleanupReport> value) { setCleanup(std::move(value), {}); }
    void setAiSummary(std::optional<QString> value)
    {
        assign(state.aiSummary, std::move(value), &AppViewModel::aiSummaryChanged);
    }
    void setSetupStep(int value) { assign(state.setupStep, value, &AppViewModel::setupStepChanged); }
    void setMoveToApplicationsErrorMessage(QString value)
    {
        assign(state.moveToApplicationsErrorMessage, std::move(value),
               &AppViewModel::moveToApplicationsErrorMessageChanged);
    }
    void setIsGeneratingAI(bool value) { assign(state.isGeneratingAI, value, &AppViewModel::isGeneratingAIChanged); }

    void setSent(const std::optional<ExplainRequest> &request);

private:
    using Signal = void (AppViewModel::*)();

    void requireMainThread() const;

    template <typename Value>
    const Value &read(const Value &property) const
    {
        requireMainThread();
        return property;
    }

    /// Lets \a change, a callable, alter one property.
    template <typename Change>
    void publish(Signal changed, Change change)
    {
        requireMainThread();
        Q_EMIT objectWillChange();
        change();
        Q_EMIT(this->*changed)();
    }

    template <typename Value>
    void assign(Value &property, Value value, Signal changed)
    {
        publish(changed, [&] { property = std::move(value); });
    }

    void replaceCandidates();
    void deselectEmptied();
    QCoro::Task<> readDiskTotals();
    QCoro::Task<> runScan(std::stop_token cancelled);
    QCoro::Task<> explainWithGemini();
    void heedPreference(const QString &key);
    QCoro::Task<> runCleanup(QList<CleanupCandidate> selected, QList<FilePath> spared);
    void setCleanup(std::optional<CleanupReport> report, QList<StayedItem> stayed);
    QCoro::Task<> runPutBack();
    QCoro::Task<> runProposal(FilePath folder);
    void setProposedPlace(const std::optional<OwnPlace> &place);
    void setMovingFiles(bool isMoving);
    void setNotPutBack(const QList<StayedItem> &items);
    void setSparedUnknown(bool isUnknown);
    bool isSetupNeeded() const;
    bool canBePlaced() const;
    void openCopy();
    void reportPlacementFailure(const QString &message);

    AppEnvironment environment;
    FileSizeScanner scanner{environment.fileManager};
    std::shared_ptr<const void> underWay = std::make_shared<int>(); ///< Each coroutine holds it.
    std::optional<std::stop_source> scanTask;                       ///< Cancels the last scan that was started.
    std::stop_source explaining; ///< Cuts every request for an explanation; asks nobody until another scan begins.
    AppState state;
};

} // namespace tidlo
