#include "ui/shell/WindowChromeConfigurator.h"

#import <AppKit/AppKit.h>

namespace tidlo {

bool WindowChromeConfigurator::isNative()
{
    return true;
}

void WindowChromeConfigurator::adjust(QQuickWindow &window)
{
    window.setColor(Qt::transparent);
    const auto *view = reinterpret_cast<NSView *>(window.winId());
    NSWindow *native = view.window;
    if (native == nil)
        return;
    native.titleVisibility = NSWindowTitleHidden;
    native.titlebarAppearsTransparent = YES;
    native.styleMask |= NSWindowStyleMaskFullSizeContentView;
    native.movableByWindowBackground = YES;
    native.backgroundColor = NSColor.clearColor;
}

} // namespace tidlo
