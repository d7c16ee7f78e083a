#pragma once

#include "app/OpenModel.h"

#include <span>

class QQuickWindow;

namespace tidlo {

/// A state of the window that is worth a picture.
struct Shot
{
    const char *name;

    /// Puts the application into this state, from that of the shot before.
    void (*prepare)(OpenModel &app, QQuickWindow &window);
};

/// Shows what a scan found, explained.
void showResults(OpenModel &app);
/// Shows a scan under way: how much is done, from 0 to 1, and what is done now.
void showScan(OpenModel &app, double progress, const QString &label);

/// Every screen in every state, in the order in which they are to be prepared.
std::span<const Shot> shots();

} // namespace tidlo
