#include "ui/shell/WindowChromeConfigurator.h"

namespace tidlo {

bool WindowChromeConfigurator::isNative()
{
    return false;
}

/// A frame cannot be made transparent here, so there is none; what it did is drawn in the window.
void WindowChromeConfigurator::adjust(QQuickWindow &window)
{
    window.setFlag(Qt::FramelessWindowHint);
    window.setColor(Qt::transparent);
}

} // namespace tidlo
