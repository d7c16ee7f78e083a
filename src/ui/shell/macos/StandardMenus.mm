#include "ui/shell/StandardMenus.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#import <AppKit/AppKit.h>

/// Carries out the commands of the Edit menu. The window's view understands keys but not the system's commands, so each
/// menu item sends its own key.
@interface TidloEditing : NSObject
- (void)press:(NSMenuItem *)item;
@end

@implementation TidloEditing
- (void)press:(NSMenuItem *)item
{
    const QChar letter([item.keyEquivalent characterAtIndex:0]); // A capital letter means Shift too.
    const Qt::KeyboardModifiers shift = letter.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, letter.toUpper().unicode(), Qt::ControlModifier | shift); // Qt's name for Command.
        if (QWindow *window = QGuiApplication::focusWindow())
            QCoreApplication::sendEvent(window, &event);
    }
}
@end

namespace tidlo {

namespace {

NSMenu *addMenu(NSString *title)
{
    NSMenu *menu = [[NSMenu alloc] initWithTitle:title];
    [NSApp.mainMenu addItemWithTitle:title action:nil keyEquivalent:@""].submenu = menu;
    return menu;
}

void addEditMenu()
{
    static TidloEditing *const editing = [[TidloEditing alloc] init]; // A menu item does not retain its target.
    NSMenu *menu = addMenu(@"Edit");
    const auto add = [menu](NSString *title, NSString *key) {
        [menu addItemWithTitle:title action:@selector(press:) keyEquivalent:key].target = editing;
    };
    add(@"Undo", @"z");
    add(@"Redo", @"Z");
    [menu addItem:NSMenuItem.separatorItem];
    add(@"Cut", @"x");
    add(@"Copy", @"c");
    add(@"Paste", @"v");
    add(@"Select All", @"a");
}

void addWindowMenu()
{
    NSMenu *menu = addMenu(@"Window");
    [menu addItemWithTitle:@"Close" action:@selector(performClose:) keyEquivalent:@"w"];
    [menu addItemWithTitle:@"Minimize" action:@selector(performMiniaturize:) keyEquivalent:@"m"];
    [menu addItemWithTitle:@"Zoom" action:@selector(performZoom:) keyEquivalent:@""];
    [menu addItem:NSMenuItem.separatorItem];
    [menu addItemWithTitle:@"Bring All to Front" action:@selector(arrangeInFront:) keyEquivalent:@""];
    NSApp.windowsMenu = menu;
}

} // namespace

void addStandardMenus()
{
    NSMenu *menu = [NSApp.mainMenu itemAtIndex:0].submenu; // The application's menu, which Qt has made.
    NSMenuItem *about = [[NSMenuItem alloc] initWithTitle:@"About Tidlo"
                                                   action:@selector(orderFrontStandardAboutPanel:)
                                            keyEquivalent:@""];
    [menu insertItem:about atIndex:0];
    addEditMenu();
    addWindowMenu();
}

} // namespace tidlo
