#pragma once

#include <QObject>
#include <QWindow>

#include <memory>

/// Whether other windows cover a window wholly, where the system does not take away its exposure for that. One for a
/// window, which owns it. Main thread.
class WindowCover : public QObject
{
    Q_OBJECT

public:
    /// That of \a window, made when it is first asked for.
    static WindowCover &of(QWindow &window);

    bool isCovered() const { return covered; }

    /// For what watches the other windows.
    void setCovered(bool isNowCovered);

Q_SIGNALS:
    void changed();

private:
    explicit WindowCover(QWindow &window);

    /// What calls setCovered(), for as long as it lives; null if nothing has to. One for each system.
    std::unique_ptr<QObject> watch(QWindow &window);

    bool covered = false;
    std::unique_ptr<QObject> watcher;
};
