#include "platform/Process.h"

#include <array>
#include <climits>
#include <cstdint>
#include <cstdlib>

#include <mach-o/dyld.h>
#include <pthread/qos.h>

namespace tidlo {

FilePath executablePath()
{
    std::array<char, PATH_MAX> given{};
    std::array<char, PATH_MAX> truth{};
    auto size = static_cast<std::uint32_t>(given.size());
    if (_NSGetExecutablePath(given.data(), &size) != 0 || realpath(given.data(), truth.data()) == nullptr)
        return {};
    return truth.data();
}

void standBack()
{
    pthread_set_qos_class_self_np(QOS_CLASS_UTILITY, 0);
}

} // namespace tidlo
