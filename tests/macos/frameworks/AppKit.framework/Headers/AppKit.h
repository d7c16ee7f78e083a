// The part of AppKit that this program uses, with the names and signatures of Apple's documentation, to check that the
// sources for macOS compile and link. Never part of the program.
#pragma once

#include <CoreServices/CoreServices.h>
#include <Foundation/Foundation.h>

#pragma clang assume_nonnull begin

@interface NSColor : NSObject
@property(class, readonly, strong) NSColor *clearColor;
@end

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) { NSWindowStyleMaskFullSizeContentView = 1 << 15 };
typedef NS_ENUM(NSInteger, NSWindowTitleVisibility) { NSWindowTitleVisible, NSWindowTitleHidden };

@interface NSWindow : NSObject
@property NSWindowTitleVisibility titleVisibility;
@property BOOL titlebarAppearsTransparent;
@property NSWindowStyleMask styleMask;
@property(getter=isMovableByWindowBackground) BOOL movableByWindowBackground;
@property(copy) NSColor *backgroundColor;
- (void)performClose:(nullable id)sender;
- (void)performMiniaturize:(nullable id)sender;
- (void)performZoom:(nullable id)sender;
@end

@interface NSView : NSObject
@property(nullable, readonly, unsafe_unretained) NSWindow *window;
@property(readonly) BOOL mouseDownCanMoveWindow;
@end

@class NSMenu;

@interface NSMenuItem : NSObject
@property(class, readonly, strong) NSMenuItem *separatorItem;
- (instancetype)initWithTitle:(NSString *)string action:(nullable SEL)selector keyEquivalent:(NSString *)charCode;
@property(copy) NSString *keyEquivalent;
@property(nullable, strong) NSMenu *submenu;
@property(nullable, weak) id target;
@end

@interface NSMenu : NSObject
- (instancetype)initWithTitle:(NSString *)title;
- (void)addItem:(NSMenuItem *)newItem;
- (NSMenuItem *)addItemWithTitle:(NSString *)string action:(nullable SEL)selector keyEquivalent:(NSString *)charCode;
- (void)insertItem:(NSMenuItem *)newItem atIndex:(NSInteger)index;
- (nullable NSMenuItem *)itemAtIndex:(NSInteger)index;
@end

@interface NSApplication : NSObject
@property(nullable, strong) NSMenu *mainMenu;
@property(nullable, strong) NSMenu *windowsMenu;
- (void)orderFrontStandardAboutPanel:(nullable id)sender;
- (void)arrangeInFront:(nullable id)sender;
@end

FOUNDATION_EXPORT __kindof NSApplication *_Null_unspecified NSApp;

@interface NSRunningApplication : NSObject
@end

@interface NSWorkspaceOpenConfiguration : NSObject
+ (instancetype)configuration API_SINCE(10.15);
@property BOOL createsNewApplicationInstance API_SINCE(10.15);
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace *sharedWorkspace;
- (void)openApplicationAtURL:(NSURL *)applicationURL
               configuration:(NSWorkspaceOpenConfiguration *)configuration
           completionHandler:(void (^_Nullable)(NSRunningApplication *_Nullable app,
                                                NSError *_Nullable error))completionHandler API_SINCE(10.15);
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL *> *)fileURLs;
@property(readonly, strong) NSNotificationCenter *notificationCenter;
@property(readonly) BOOL accessibilityDisplayShouldIncreaseContrast API_SINCE(10.10);
@property(readonly) BOOL accessibilityDisplayShouldReduceMotion API_SINCE(10.12);
@end

FOUNDATION_EXPORT const NSNotificationName NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification API_SINCE(10.10);

#pragma clang assume_nonnull end
