#include "platform/PlacementSteps.h"

#include "platform/ItemExchange.h"
#include "platform/TreeCopy.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace tidlo {

namespace {

int renameItem(const FilePath &from, const FilePath &to)
{
    return std::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

int removeItem(const FilePath &path)
{
    std::error_code error;
    std::filesystem::remove_all(path.toStdString(), error);
    return error.value();
}

} // namespace

PlacementSteps livePlacementSteps()
{
    return {.copy = copyTree, .exchange = exchangeItems, .rename = renameItem, .remove = removeItem};
}

} // namespace tidlo
