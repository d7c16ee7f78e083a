#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// The largest texts that there are.
constexpr double mostTextScale = 1.5;

/// How a person wants programs to look and move, as they told the desktop.
struct DesktopWishes
{
    std::optional<bool> isDark; ///< Dark rather than light; nothing where it does not matter, or was not told.

    bool reducedMotion = false;
    bool higherContrast = false;
    double textScale = 1; ///< How large texts are to be: from 1, as designed, to mostTextScale.

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
/// Needs an application object. macOS tells its scheme by the colours it gives, and has no text size to follow.
std::unique_ptr<DesktopSettings> followDesktop(std::function<void(const DesktopWishes &wishes)> told);

} // namespace tidlo
