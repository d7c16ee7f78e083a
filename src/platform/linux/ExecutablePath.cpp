#include "platform/ExecutablePath.h"

#include <filesystem>

namespace tidlo {

FilePath executablePath()
{
    std::error_code error;
    return FilePath::fromStdString(std::filesystem::read_symlink("/proc/self/exe", error).native());
}

} // namespace tidlo
