#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// How a person wants programs to look and move, as they told the desktop.
struct DesktopWishes
{
    std::optional<bool> isDark; ///< Dark rather than light; nothing where it does not matter, or was not told.

    bool reducedMotion = false;

    bool operator==(const DesktopWishes &) const = default;
};

/// Follows what the desktop wishes, for as long as it exists. Main thread.
class DesktopSettings
{
public:
    virtual ~DesktopSettings() = default;
};

/// Asks the desktop without waiting for it, and has \a told called from the event loop with what it wishes: as soon as
/// that is known, where it wishes anything, and whenever it changes. A desktop that has no answer wishes nothing.
/// Needs an application object. On macOS, which tells by the colours it gives, there is nothing to follow: null.
std::unique_ptr<DesktopSettings> followDesktop(std::function<void(const DesktopWishes &wishes)> told);

} // namespace tidlo
