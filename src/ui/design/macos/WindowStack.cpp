#include "ui/design/WindowCover.h"

/// A covered window is not exposed here.
std::unique_ptr<QObject> WindowCover::watch(QWindow &)
{
    return nullptr;
}
