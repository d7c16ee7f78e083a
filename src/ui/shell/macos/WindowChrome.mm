#include "ui/shell/WindowChromeConfigurator.h"

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

namespace tidlo {

namespace {

BOOL answersNo(id, SEL)
{
    return NO;
}

/// macOS takes a clear view for background everywhere and drags the window by it, even on our buttons. A view that
/// implements this method gets every press; the empty places are handles of our own. For all windows of this program.
void keepPresses(NSView *view)
{
    const SEL question = @selector(mouseDownCanMoveWindow);
    const Method inherited = class_getInstanceMethod(NSView.class, question);
    class_replaceMethod(object_getClass(view), question, reinterpret_cast<IMP>(answersNo),
                        method_getTypeEncoding(inherited));
}

} // namespace

bool WindowChromeConfigurator::isNative()
{
    return true;
}

void WindowChromeConfigurator::adjust(QQuickWindow &window)
{
    window.setColor(Qt::transparent);
    auto *view = (__bridge NSView *)reinterpret_cast<void *>(window.winId());
    NSWindow *native = view.window;
    if (native == nil)
        return;
    keepPresses(view);
    native.titleVisibility = NSWindowTitleHidden;
    native.titlebarAppearsTransparent = YES;
    native.styleMask |= NSWindowStyleMaskFullSizeContentView;
    native.movableByWindowBackground = YES;
    native.backgroundColor = NSColor.clearColor;
}

} // namespace tidlo
