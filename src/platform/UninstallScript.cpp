#include "platform/UninstallScript.h"

#include <algorithm>

namespace tidlo {

std::optional<FilePath> firstUnquotable(const QList<FilePath> &paths, QByteArrayView characters)
{
    const auto found = std::ranges::find_if(paths, [=](const FilePath &path) {
        return std::ranges::any_of(path, [=](char byte) { return characters.contains(byte); });
    });
    return found == paths.end() ? std::nullopt : std::optional(*found);
}

} // namespace tidlo
