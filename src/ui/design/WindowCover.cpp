#include "ui/design/WindowCover.h"

WindowCover &WindowCover::of(QWindow &window)
{
    auto *present = window.findChild<WindowCover *>(QString(), Qt::FindDirectChildrenOnly);
    return present ? *present : *new WindowCover(window);
}

WindowCover::WindowCover(QWindow &window)
    : QObject(&window)
    , watcher(watch(window))
{}

void WindowCover::setCovered(bool isNowCovered)
{
    if (isNowCovered == covered)
        return;
    covered = isNowCovered;
    Q_EMIT changed();
}
