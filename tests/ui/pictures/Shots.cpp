#include "ui/pictures/Shots.h"

#include "ai/ExplainRequest.h"
#include "ui/DemoState.h"

#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <array>

namespace tidlo {

void showResults(OpenModel &app)
{
    app.setAiSummary(demoExplanation());
    app.setIsGeneratingAI(false);
    app.setSelectedFilter(std::nullopt);
    app.showResults(demoResult());
}

void showScan(OpenModel &app, double progress, const QString &label)
{
    app.setPhase(ScanPhase::scanning);
    app.setScanProgress(progress);
    app.setScanLabel(label);
}

namespace {

void scanAt(OpenModel &app, double progress, const char *label)
{
    showScan(app, progress, QString::fromUtf8(label));
}

QObject *object(QQuickWindow &window, const char *name)
{
    return window.findChild<QObject *>(QLatin1StringView(name));
}

/// One of the singletons of Tidlo.Design.
QObject *token(QQuickWindow &window, const char *name)
{
    return qmlEngine(&window)->singletonInstance<QObject *>(qmlTypeId("Tidlo.Design", 1, 0, name));
}

void showReport(OpenModel &app)
{
    app.setTotals(demoTotalsAfterCleanup());
    app.setCandidates(demoFindingsAfterCleanup());
    app.setCleanupReport(demoReport());
    app.setPhase(ScanPhase::report);
    app.setSection(AppSection::report);
}

void showLanding(OpenModel &app)
{
    app.setSection(AppSection::scan);
    app.setPhase(ScanPhase::ready);
}

/// A visible item, even if a view has made it again.
QQuickItem *item(QQuickItem &from, const char *name)
{
    if (from.objectName() == QLatin1StringView(name))
        return &from;
    for (QQuickItem *child : from.childItems()) {
        if (QQuickItem *found = item(*child, name))
            return found;
    }
    return nullptr;
}

constexpr std::array all{
    Shot{"landing", [](OpenModel &, QQuickWindow &) {}},
    Shot{"landing-after-scan",
         [](OpenModel &app, QQuickWindow &) {
             showResults(app);
             app.setSection(AppSection::scan);
         }},
    Shot{"scanning-0", [](OpenModel &app, QQuickWindow &) { scanAt(app, 0.0, "Reading disk usage"); }},
    Shot{"scanning-42", [](OpenModel &app, QQuickWindow &) { scanAt(app, 0.42, "Checking WhatsApp Desktop storage"); }},
    Shot{"scanning-99", [](OpenModel &app, QQuickWindow &) { scanAt(app, 0.99, "Finding older project copies"); }},
    Shot{"results", [](OpenModel &app, QQuickWindow &) { showResults(app); }},
    Shot{"results-explaining",
         [](OpenModel &app, QQuickWindow &) {
             showResults(app);
             app.setIsGeneratingAI(true);
         }},
    Shot{"results-review",
         [](OpenModel &app, QQuickWindow &) {
             showResults(app);
             app.setSelectedFilter(CleanupRisk::review);
         }},
    Shot{"results-error",
         [](OpenModel &app, QQuickWindow &) {
             showResults(app);
             app.setAiSummary(QStringLiteral("⚠️ Request failed: The connection was refused."));
         }},
    Shot{"results-long",
         [](OpenModel &app, QQuickWindow &) {
             showResults(app);
             QList<CleanupCandidate> candidates = demoFindings();
             candidates[0].title = QStringLiteral("A title that is far longer than any row is wide ").repeated(6);
             candidates[1].aiExplanation = demoExplanation().repeated(2);
             candidates[2].risk = CleanupRisk::never;
             candidates[2].category = CleanupCategory::protected_;
             candidates[2].selected = false;
             candidates[3].detail = QStringLiteral("<b>no markup</b> \u202egnp.exe \x1b[31m control\r\nsecond line");
             candidates[8].bytes = 0;
             app.setCandidates(candidates);
             app.setAiSummary(demoExplanation().repeated(5));
         }},
    Shot{"results-items",
         [](OpenModel &app, QQuickWindow &window) {
             showResults(app);
             QMetaObject::invokeMethod(item(*window.contentItem(), "row0"), "inspected");
         }},
    Shot{"results-empty",
         [](OpenModel &app, QQuickWindow &window) {
             QMetaObject::invokeMethod(object(window, "itemsSheet"), "close");
             app.setCandidates({});
             app.setTotals(demoTotalsAfterCleanup());
             app.setAiSummary(std::nullopt);
         }},
    Shot{"report-preview",
         [](OpenModel &app, QQuickWindow &) {
             showResults(app);
             app.setPhase(ScanPhase::report);
             app.setSection(AppSection::report);
         }},
    Shot{"report", [](OpenModel &app, QQuickWindow &) { showReport(app); }},
    Shot{"settings", [](OpenModel &app, QQuickWindow &) { app.setSection(AppSection::settings); }},
    Shot{"settings-uninstall",
         [](OpenModel &, QQuickWindow &window) {
             object(window, "settings")->setProperty("showUninstallConfirmation", true);
         }},
    Shot{"move-prompt",
         [](OpenModel &app, QQuickWindow &window) {
             object(window, "settings")->setProperty("showUninstallConfirmation", false);
             showLanding(app);
             app.setShowMoveToApplicationsPrompt(true);
         }},
    Shot{"move-error",
         [](OpenModel &app, QQuickWindow &) {
             app.setShowMoveToApplicationsPrompt(false);
             app.setMoveToApplicationsErrorMessage(
                 QStringLiteral("Cannot create /Applications/Tidlo.app: Permission denied"));
             app.setShowMoveToApplicationsError(true);
         }},
    Shot{"setup",
         [](OpenModel &app, QQuickWindow &) {
             app.setShowMoveToApplicationsError(false);
             app.setShowSetupWizard(true);
         }},
    Shot{"results-sent",
         [](OpenModel &app, QQuickWindow &window) {
             app.setShowSetupWizard(false);
             showResults(app);
             ExplainEndpoint endpoint;
             endpoint.host = QStringLiteral("localhost:8443");
             endpoint.identity = [] { return QStringLiteral("0F6A3C52-7B1E-4D60-9C55-2E8F1A7B9D04"); };
             app.setSent(explainRequest(app.candidates(), endpoint));
             QMetaObject::invokeMethod(object(window, "showSent"), "triggered");
             QMetaObject::invokeMethod(object(window, "cardMenu"), "closed");
         }},
    Shot{"landing-off",
         [](OpenModel &app, QQuickWindow &window) {
             QMetaObject::invokeMethod(object(window, "explainScans"), "clicked");
             for (QObject *sheet : window.findChildren<QObject *>(QStringLiteral("sentSheet")))
                 QMetaObject::invokeMethod(sheet, "close");
             showLanding(app);
         }},
    Shot{"results-contrast",
         [](OpenModel &app, QQuickWindow &window) {
             QMetaObject::invokeMethod(object(window, "explainScans"), "clicked");
             token(window, "TidloTheme")->setProperty("isHighContrast", true);
             showResults(app);
         }},
    Shot{"report-contrast", [](OpenModel &app, QQuickWindow &) { showReport(app); }},
    Shot{"settings-contrast", [](OpenModel &app, QQuickWindow &) { app.setSection(AppSection::settings); }},
    Shot{"results-large",
         [](OpenModel &app, QQuickWindow &window) {
             token(window, "TidloTheme")->setProperty("isHighContrast", false);
             token(window, "TidloType")->setProperty("scale", 1.25);
             showResults(app);
         }},
    Shot{"results-items-large",
         [](OpenModel &, QQuickWindow &window) {
             QMetaObject::invokeMethod(item(*window.contentItem(), "row0"), "inspected");
         }},
    Shot{"settings-large",
         [](OpenModel &app, QQuickWindow &window) {
             QMetaObject::invokeMethod(object(window, "itemsSheet"), "close");
             app.setSection(AppSection::settings);
         }},
    Shot{"setup-large",
         [](OpenModel &app, QQuickWindow &) {
             showLanding(app);
             app.setShowSetupWizard(true);
         }},
    Shot{"scanning-reduced",
         [](OpenModel &app, QQuickWindow &window) {
             app.setShowSetupWizard(false);
             token(window, "TidloType")->setProperty("scale", 1.0);
             token(window, "Motion")->setProperty("isReduced", true);
             scanAt(app, 0.42, "Checking WhatsApp Desktop storage");
         }},
};

} // namespace

std::span<const Shot> shots()
{
    return all;
}

} // namespace tidlo
