#pragma once

#include "app/OpenModel.h"

#include <span>

class QQuickWindow;

namespace tidlo {

/// A state of the window that has a picture.
struct Shot
{
    const char *name;

    /// Brings the application from the state of the previous shot into this one.
    void (*prepare)(OpenModel &app, QQuickWindow &window);
};

/// Shows the result of a scan, with an explanation.
void showResults(OpenModel &app);
/// Shows a running scan: the fraction done, from 0 to 1, and the current step.
void showScan(OpenModel &app, double progress, const QString &label);

/// Every screen in every state, in the order in which they are to be prepared.
std::span<const Shot> shots();

} // namespace tidlo
