#include "platform/Containment.h"

#include <filesystem>

bool isSameOrWithin(const FilePath &path, const FilePath &container)
{
    std::error_code error;
    std::filesystem::path step = std::filesystem::canonical(path.toStdString(), error);
    while (!error) {
        if (std::filesystem::equivalent(step, container.toStdString(), error))
            return true;
        if (step == step.root_path())
            return false;
        step = step.parent_path();
    }
    return false;
}
