#include "platform/DesktopSettings.h"

#include <QCoreApplication>

#include <memory>
#include <utility>

#import <AppKit/AppKit.h>

namespace tidlo {

namespace {

DesktopWishes wishesNow()
{
    NSWorkspace *workspace = NSWorkspace.sharedWorkspace;
    return {.isDark = {},
            .reducedMotion = workspace.accessibilityDisplayShouldReduceMotion == YES,
            .higherContrast = workspace.accessibilityDisplayShouldIncreaseContrast == YES};
}

/// The choices in the accessibility settings of the system.
class AccessibilitySettings final : public QObject, public DesktopSettings
{
public:
    explicit AccessibilitySettings(std::function<void(const DesktopWishes &)> listener)
        : told(std::move(listener))
    {
        const auto later = [this] {
            QMetaObject::invokeMethod(
                this, [this] { tell(); }, Qt::QueuedConnection);
        };
        observer = [NSWorkspace.sharedWorkspace.notificationCenter
            addObserverForName:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
                        object:nil
                         queue:nil
                    usingBlock:^(NSNotification *) {
                      later();
                    }];
        later();
    }
    ~AccessibilitySettings() override { [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:observer]; }

private:
    void tell()
    {
        if (const DesktopWishes now = wishesNow(); now != std::exchange(wishes, now))
            told(now);
    }

    const std::function<void(const DesktopWishes &)> told;
    DesktopWishes wishes;
    id observer;
};

} // namespace

std::unique_ptr<DesktopSettings> followDesktop(std::function<void(const DesktopWishes &wishes)> told)
{
    return std::make_unique<AccessibilitySettings>(std::move(told));
}

} // namespace tidlo
