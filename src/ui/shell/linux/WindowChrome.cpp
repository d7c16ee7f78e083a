#include "ui/shell/WindowChromeConfigurator.h"

namespace tidlo {

bool WindowChromeConfigurator::isNative()
{
    return false;
}

/// A frame cannot be transparent here, so the window has none and draws its own buttons and edges.
void WindowChromeConfigurator::adjust(QQuickWindow &window)
{
    window.setFlag(Qt::FramelessWindowHint);
    window.setColor(Qt::transparent);
}

} // namespace tidlo
