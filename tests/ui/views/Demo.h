#pragma once

#include "app/OpenModel.h"
#include "fakes/FakeFileManager.h"
#include "ui/DemoState.h"
#include "ui/shell/ShownState.h"

#include <QQuickItem>
#include <QTemporaryDir>

namespace tidlo {

/// What tests of views drive: a state owner over a fake home and a fake desktop, preferences in a file of their own,
/// and ways to put either into any state. QML reads it as "demo".
class Demo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ShownState *shown READ shown CONSTANT)
    Q_PROPERTY(QString section READ section)
    Q_PROPERTY(QString phase READ phase)
    Q_PROPERTY(QString storedTheme READ storedTheme)
    Q_PROPERTY(QVariant storedExplanations READ storedExplanations)
    Q_PROPERTY(int uninstalls READ uninstalls)
    Q_PROPERTY(int launches READ launches)
    Q_PROPERTY(int putBack READ putBack)
    Q_PROPERTY(QStringList shownInFiles READ shownInFiles)

public:
    Demo();

    ShownState *shown() { return &shownState; }
    QString section() const;
    QString phase() const;
    QString storedTheme() const;                      ///< Empty while none is stored.
    QVariant storedExplanations() const;              ///< Undefined while nothing is stored.
    int uninstalls() const { return uninstallCount; } ///< How often the script that uninstalls was started.
    int putBack() const { return putBackCount; }      ///< How many items were put back from the Trash, or should be.
    int launches() const { return launchCount; }      ///< How often a copy in the Applications folder was started.

    /// The paths that the file browser was asked to show, in that order.
    QStringList shownInFiles() const { return shownPaths; }

    /// A folder in the home, which is made if need be.
    Q_INVOKABLE QUrl folderNamed(const QString &name) const;

    /// Makes what is kept under \a key something that cannot be understood.
    Q_INVOKABLE void damagePreference(const QString &key);

    /// As when the application starts.
    Q_INVOKABLE void reset();

    /// As after a scan that found demoFindings().
    Q_INVOKABLE void showResults();

    /// As after another scan that found the same: each scan gives its findings identifiers of their own.
    Q_INVOKABLE void showResultsOfAnotherScan();

    Q_INVOKABLE void scanAt(double progress, const QString &label);
    Q_INVOKABLE void setFigures(double diskUsed, double recoverable);
    Q_INVOKABLE void setSection(const QString &section);
    Q_INVOKABLE void setPhase(const QString &phase);
    Q_INVOKABLE void setSummary(const QString &summary);
    Q_INVOKABLE void setExplaining(bool explaining);
    Q_INVOKABLE void setSent(const QString &host, const QString &body);

    /// Makes the candidate at \a index another: any of title, detail, aiExplanation, bytes, selected, risk.
    Q_INVOKABLE void changeCandidate(int index, const QVariantMap &values);
    Q_INVOKABLE void removeCandidates();
    Q_INVOKABLE int selectedCount() const;
    Q_INVOKABLE void setReport(double bytes, int removed, int kept, double diskUsed);

    /// As after a cleanup that moved nothing: the first finding stayed, which is one of \a count items.
    Q_INVOKABLE void cleanUpInVain(int count);
    /// As after a cleanup that says it moved them all; nothing is moved.
    Q_INVOKABLE void cleanUp(int count = 1);
    /// From now on nothing gets into the Trash, or out of it.
    Q_INVOKABLE void stickTrash() { isTrashStuck = true; }
    Q_INVOKABLE void showMovePrompt(bool shown);
    Q_INVOKABLE void showMoveError(const QString &message);

    /// The texts that are seen in \a item and beneath, in the order they are declared.
    Q_INVOKABLE QStringList texts(QQuickItem *item) const;

    /// The item in \a item or beneath whose text is \a text; null if none is seen.
    Q_INVOKABLE QQuickItem *withText(QQuickItem *item, const QString &text) const;

    /// What is seen in \a item and beneath and has the object name \a name, in the order they are declared.
    Q_INVOKABLE QVariantList named(QQuickItem *item, const QString &name) const;

    /// Whether assistive technology is told that \a item can have the keyboard.
    Q_INVOKABLE bool isFocusable(QQuickItem *item) const;

    /// The names of the symbols that are seen in \a item and beneath, in the order they are declared.
    Q_INVOKABLE QStringList symbols(QQuickItem *item) const;

private:
    AppEnvironment environment();
    TrashOutcome outcomeOf(const FilePath &path) const;

    QTemporaryDir folder;
    int uninstallCount = 0;
    int launchCount = 0;
    int putBackCount = 0;
    bool isTrashStuck = false;
    QStringList shownPaths;
    AppEnvironment given = environment();
    OpenModel model{given};
    ShownState shownState{model};
};

} // namespace tidlo
