#pragma once

#include <QEventLoop>

#include <functional>

namespace tidlo {

/// Runs the event loop until \a condition holds.
inline void waitUntil(const std::function<bool()> &condition)
{
    QEventLoop loop;
    while (!condition())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace tidlo
