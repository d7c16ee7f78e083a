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

/// Every screen in every state, in the order in which they are to be prepared.
std::span<const Shot> shots();

} // namespace tidlo
