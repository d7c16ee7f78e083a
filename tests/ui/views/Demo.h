#pragma once

#include "app/OpenModel.h"
#include "fakes/FakeFileManager.h"
#include "ui/DemoState.h"
#include "ui/shell/ShownState.h"

#include <QQuickItem>
#include <QTemporaryDir>

namespace tidlo {

/// What the tests of views control: a state owner over a fake home folder and a fake desktop, preferences in a file of
/// their own, and functions that bring both into any state. QML reads it as "demo".
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
    QString storedTheme() const;                      ///< Empty if none is stored.
    QVariant storedExplanations() const;              ///< Undefined if nothing is stored.
    int uninstalls() const { return uninstallCount; } ///< How often the uninstall script was started.
    int putBack() const
    {
        return putBackCount;
    }                                            ///< How many items were put back from the Trash, or should have
                                                 ///< been.
    int launches() const { return launchCount; } ///< How often a copy in the Applications folder was started.

    /// The paths that the file browser was asked to show, in order.
    QStringList shownInFiles() const { return shownPaths; }

    /// A folder in the home folder, made if it is missing.
    Q_INVOKABLE QUrl folderNamed(const QString &name) const;

    /// Makes the preference \a key unreadable.
    Q_INVOKABLE void damagePreference(const QString &key);

    /// The state when the application starts.
    Q_INVOKABLE void reset();

    /// The state after a scan that found demoFindings().
    Q_INVOKABLE void showResults();

    /// The state after another scan with the same findings: each scan gives its findings new identifiers.
    Q_INVOKABLE void showResultsOfAnotherScan();

    Q_INVOKABLE void scanAt(double progress, const QString &label);
    Q_INVOKABLE void setFigures(double diskUsed, double recoverable);
    Q_INVOKABLE void setSection(const QString &section);
    Q_INVOKABLE void setPhase(const QString &phase);
    Q_INVOKABLE void setSummary(const QString &summary);
    Q_INVOKABLE void setExplaining(bool explaining);
    Q_INVOKABLE void setSent(const QString &host, const QString &body);

    /// Changes the candidate at \a index: any of title, detail, aiExplanation, bytes, selected, risk.
    Q_INVOKABLE void changeCandidate(int index, const QVariantMap &values);
    Q_INVOKABLE void removeCandidates();
    Q_INVOKABLE int selectedCount() const;
    Q_INVOKABLE void setReport(double bytes, int removed, int kept, double diskUsed);

    /// The state after a cleanup that moved nothing: the first finding stayed, one of \a count items.
    Q_INVOKABLE void cleanUpInVain(int count);
    /// The state after a cleanup that reports all items as moved; nothing is moved.
    Q_INVOKABLE void cleanUp(int count = 1);
    /// From now on the Trash takes nothing in, and gives nothing back.
    Q_INVOKABLE void stickTrash() { isTrashStuck = true; }
    Q_INVOKABLE void showMovePrompt(bool shown);
    Q_INVOKABLE void showMoveError(const QString &message);

    /// The visible texts in \a item and beneath, in the order in which they are declared.
    Q_INVOKABLE QStringList texts(QQuickItem *item) const;

    /// The item in \a item or beneath whose text is \a text; null if none is visible.
    Q_INVOKABLE QQuickItem *withText(QQuickItem *item, const QString &text) const;

    /// The visible items in \a item and beneath with the object name \a name, in the order in which they are declared.
    Q_INVOKABLE QVariantList named(QQuickItem *item, const QString &name) const;

    /// Whether assistive technology is told that \a item can have the keyboard.
    Q_INVOKABLE bool isFocusable(QQuickItem *item) const;

    /// The names of the visible symbols in \a item and beneath, in the order in which they are declared.
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
