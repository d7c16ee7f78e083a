#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace tidlo {

/// The largest text scale that is supported.
constexpr double mostTextScale = 1.5;

/// How a person wants programs to look and move, according to the desktop's settings.
struct DesktopWishes
{
    std::optional<bool> isDark; ///< Dark rather than light; absent if the desktop has no preference, or gave none.

    bool reducedMotion = false;
    bool higherContrast = false;
    double textScale = 1; ///< The size of texts: from 1, as designed, to mostTextScale.

    bool operator==(const DesktopWishes &) const = default;
};

/// Follows the desktop's settings while it exists. Main thread.
class DesktopSettings
{
public:
    virtual ~DesktopSettings() = default;
};

/// Asks for the desktop's settings without waiting, and calls \a told with the wishes from the event loop: once they
/// are known, if there are any, and at each change. A desktop that does not answer has no wishes. Needs an application
/// object. On macOS the scheme follows from the system's colours, and there is no text size to follow.
std::unique_ptr<DesktopSettings> followDesktop(std::function<void(const DesktopWishes &wishes)> told);

} // namespace tidlo
