#pragma once

#include "app/AppEnvironment.h"
#include "app/AppState.h"
#include "model/SpringAnimation.h"
#include "scanner/FileSizeScanner.h"
#include "scanner/Forecast.h"

#include <QObject>

#include <stop_token>

namespace tidlo {

/// The one owner of what the application shows, and the operations that screens call. This is its whole public
/// interface; AppState.h explains the properties. A property that no screen reads is part of that interface too.
///
/// Bound to the main thread: reading or writing a property on any other thread stops the program. The scanner and the
/// network work while the coroutines here are suspended; if the object is gone when they resume, they write nothing. No
/// operation throws, and each returns at once, except the one that copies the application.
///
/// Every assignment to a property notifies observers, whether or not the value differs: objectWillChange() before, the
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
    /// Starts to read the figures of the home folder's disk, which soon replace totals().
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

    // The properties that views may assign. All others change through the operations below.

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

    // Figures derived from the current candidates; nothing is cached. A sum that does not fit stops the program.

    qint64 categoryBytes(CleanupCategory category) const; ///< Independent of the filter and the selection.
    QList<CleanupCandidate> visibleCandidates() const;    ///< Those that pass the filter.
    QList<CleanupCandidate> selectedCandidates() const;
    qint64 selectedBytes() const;
    qsizetype protectedCount() const; ///< Counts candidates never to be touched, visible or not.

    // Not published: objectWillChange() is not emitted when these change.

    /// Whether scans are explained: the preference "tidlo.explanations".
    bool areExplanationsOn() const { return environment.defaults->boolean(UserDefaults::explanations, true); }
    /// Whether an explanation may still come; false from when explanations are switched off until the next scan.
    bool isExplanationAwaited() const { return read(state.isGeneratingAI) && !explaining.stop_requested(); }
    /// The request that was sent to have the last scan explained; nothing if nobody was asked.
    std::optional<ExplainRequest> sent() const { return read(state.sent); }
    /// The candidate \a id as the last scan found it, with all its items; an empty one if there is no such candidate.
    CleanupCandidate scannedCandidate(const QUuid &id) const;
    /// The bytes on the disk of each path of the candidate \a id.
    QList<qint64> sizesOf(const QUuid &id) const { return read(state.scanned).sizes.value(id); }
    /// Whether each of these paths is moved with the candidate; all false while it is not selected.
    QList<bool> ticksOf(const QUuid &id) const;
    /// What the last cleanup could not move. Empty again when a scan begins.
    QList<StayedItem> stayed() const { return read(state.stayed); }
    /// How much emptying the Trash would free of the candidate \a id as it is ticked, or of the whole selection.
    Forecast forecast(const QUuid &id) const;
    Forecast forecastOfSelected() const { return forecastOf(read(state.scanned), selectedCandidates()); }
    /// The folders that the scan could not read.
    UnreadFolders unread() const { return read(state.scanned).unread; }
    /// The listed paths of all findings that hold \a path, and their sizes: these would be spared with it.
    QList<HoldingItem> holdersOf(const FilePath &path) const { return tidlo::holdersOf(read(state.scanned), path); }
    /// Stores \a path, a listed one, as never to be suggested. Removes it from what is shown, with what lies in it and
    /// what holds it. False if it cannot be stored; then nothing changes.
    bool spare(const FilePath &path);
    /// Whether a cleanup moved nothing because the list of spared paths cannot be read; false again once acknowledged.
    bool isSparedUnknown() const { return read(state.isSparedUnknown); }
    void acknowledgeSparedUnknown() { setSparedUnknown(false); }
    /// The folder that was given to proposePlace(), or why it cannot be used; until that is answered.
    std::optional<OwnPlace> proposedPlace() const { return read(state.proposedPlace); }
    /// Checks the folder \a folder before asking whether to look for projects in it as well. The scanner checks it
    /// after its current work.
    void proposePlace(const FilePath &folder) { runProposal(folder); }
    /// Ends the proposal. If \a isWanted, stores the folder, if it is suitable, for all later scans. False if it cannot
    /// be stored.
    bool answerProposal(bool isWanted);
    /// Whether something of this run's last cleanup can be put back now.
    bool canPutBack() const { return !read(state.trashed).isEmpty() && !state.isMovingFiles; }
    /// What could not be put back; empty again once acknowledged.
    QList<StayedItem> notPutBack() const { return read(state.notPutBack); }
    void acknowledgeNotPutBack() { setNotPutBack({}); }
    /// Whether a cleanup is under way, or is being undone: then neither can begin.
    bool isMovingFiles() const { return read(state.isMovingFiles); }

    /// Locked while an operation is under way, even when this object is gone: operations then end soon, each at its
    /// next turn of the event loop.
    std::weak_ptr<const void> operations() const { return underWay; }

    // From the environment.

    UserDefaults &defaults() const { return *environment.defaults; }
    Workspace &workspace() const { return *environment.workspace; }
    Bundle bundle() const { return environment.bundle(); }

    /// Called once at start. On a run before setup has been completed, offers to move the application to the
    /// Applications folder. If there is no such folder, the application is already in it, or the program runs outside
    /// of a bundle, continues as if the offer had been declined.
    void beginFirstRun();

    /// Flips the selection of the candidate with the same identifier, animated. A candidate without a ticked item gets
    /// all its items ticked again. Does nothing if \a candidate is never to be touched or is no longer there.
    Q_INVOKABLE void toggleCandidate(const CleanupCandidate &candidate);

    /// Ticks or unticks items of the candidate \a id, by the indices of the paths that the scan found. The candidate is
    /// replaced by one with the remaining paths and their bytes; with all of them ticked again it is as before. If it
    /// was not selected, only the items ticked now are selected; if no item is left, it is deselected. An unticked item
    /// is moved by no candidate: the same assignment removes the same place, and whatever holds it, from all others.
    /// Returns what was removed from others. Does nothing to a candidate never to be touched.
    QList<ItemElsewhere> tickItems(const QUuid &id, const QList<int> &items, bool ticked);

    /// Scans the home folder and shows the result, then asks for an explanation of it. Replaces a scan under way, whose
    /// results are discarded.
    Q_INVOKABLE void startScan();

    /// Shows the result of a scan in place of the former one.
    void showResults(const ScanResult &result);

    /// Goes to \a section, as its button in the rail does. The phase follows: the results section changes it from ready
    /// to results, the report section to report if there is a report.
    void openSection(AppSection section);

    /// Shows the report of what was moved, or a preview.
    void viewReport();

    /// Moves the selected candidates to the Trash, removes them from the list and shows a report. Does nothing if none
    /// is selected, while they are being moved, or if the list of spared paths cannot be read.
    Q_INVOKABLE void moveSelectedToTrash();

    /// Puts everything that the last cleanup of this run moved to the Trash back where it was, and scans again.
    /// notPutBack() gives what could not be put back, which can be tried again. Does nothing unless canPutBack().
    Q_INVOKABLE void putEverythingBack();

    /// Declines the offer to move to the Applications folder; the wizard follows if setup has not been completed.
    Q_INVOKABLE void skipMoveToApplicationsPrompt();

    /// Accepts it: copies the application there, starts the copy and quits. The application itself stays where it is. A
    /// failure is shown as an alert, and the wizard follows if setup has not been completed. Blocks while it copies.
    Q_INVOKABLE void moveToApplicationsFolder();

    /// Starts a script that moves the application to the Trash and removes its preferences and caches, then quits. If
    /// the script cannot be started, or would remove something that is not ours, writes one line to standard output and
    /// does nothing else.
    Q_INVOKABLE void uninstallTidloCompletely();

    /// The same for an application outside of a bundle, which a script cannot remove: only its preferences and caches
    /// are removed.
    void removePreferencesAndCaches();

Q_SIGNALS:
    /// A property is about to be assigned.
    void objectWillChange();

    /// The next assignment, which follows at once, is to be animated.
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
    void isMovingFilesChanged(); ///< What can be put back may have changed as well.
    void notPutBackChanged();
    void isSparedUnknownChanged();
    void proposedPlaceChanged();
    void explanationsChanged(); ///< Explanations were switched on or off.
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

    /// Calls \a change, which alters one property.
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
    std::stop_source explaining; ///< Cancels every request for an explanation; none is sent until another scan begins.
    AppState state;
};

} // namespace tidlo
