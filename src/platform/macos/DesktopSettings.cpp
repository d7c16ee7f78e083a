#include "platform/DesktopSettings.h"

namespace tidlo {

std::unique_ptr<DesktopSettings> followDesktop(std::function<void(const DesktopWishes &wishes)>)
{
    return nullptr;
}

} // namespace tidlo
