#include "platform/Paths.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

namespace tidlo {

namespace {

/// The extensions that macOS and its own programs declare as packages. Sorted, for the binary search.
constexpr std::array<std::string_view, 40> packageExtensions{
    "action",       "aplibrary",     "app",       "appex",         "band",    "bundle",    "component",
    "download",     "dsym",          "fcpbundle", "imovielibrary", "kext",    "key",       "lbaction",
    "logicx",       "mdimporter",    "mpkg",      "musiclibrary",  "numbers", "osax",      "pages",
    "photolibrary", "photoslibrary", "pkg",       "playground",    "plugin",  "prefpane",  "qlgenerator",
    "rtfd",         "saver",         "scptd",     "sparsebundle",  "theater", "tvlibrary", "wdgt",
    "workflow",     "xcarchive",     "xcodeproj", "xcworkspace",   "xpc"};
static_assert(std::ranges::is_sorted(packageExtensions));

constexpr size_t longestPackageExtension = std::ranges::max(packageExtensions, {}, &std::string_view::size).size();

constexpr char lowerCased(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

} // namespace

FilePath joined(const FilePath &folder, const FilePath &name)
{
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

FilePath folderInHome(const FilePath &home, const char *usual, const FilePath &configured)
{
    return configured.startsWith('/') ? configured : joined(home, usual);
}

QByteArrayView lastPathComponent(const FilePath &path)
{
    return QByteArrayView(path).sliced(path.lastIndexOf('/') + 1);
}

QByteArrayView fileExtension(QByteArrayView name)
{
    const qsizetype dot = name.lastIndexOf('.');
    return dot <= 0 ? QByteArrayView() : name.sliced(dot + 1);
}

bool isHiddenName(QByteArrayView name)
{
    return name.startsWith('.');
}

bool isPackageName(QByteArrayView name)
{
    const QByteArrayView extension = fileExtension(name);
    const auto length = static_cast<size_t>(extension.size());
    if (length == 0 || length > longestPackageExtension)
        return false;
    std::array<char, longestPackageExtension> lower{};
    std::ranges::transform(extension, lower.begin(), lowerCased);
    return std::ranges::binary_search(packageExtensions, std::string_view(lower.data(), length));
}

bool isAtOrBelow(const FilePath &path, const FilePath &folder)
{
    return folder == "/" || path == folder || (path.startsWith(folder) && path.at(folder.size()) == '/');
}

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
