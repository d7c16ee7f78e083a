#include "platform/Containment.h"

#include <filesystem>

namespace tidlo {

namespace fs = std::filesystem;

bool isSameOrWithin(const FilePath &path, const FilePath &container)
{
    std::error_code error;
    const fs::path holder = container.toStdString();
    if (!fs::exists(holder, error) && !error)
        return false;
    fs::path step = fs::canonical(path.toStdString(), error);
    while (!error) {
        if (fs::equivalent(step, holder, error))
            return true;
        if (step == step.root_path())
            break;
        step = step.parent_path();
    }
    return static_cast<bool>(error);
}

} // namespace tidlo
