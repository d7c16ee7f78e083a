#include "TrashDecoder.h"

#include "platform/Descriptor.h"

#include <algorithm>
#include <array>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

namespace {

const std::string recordEnding = ".trashinfo";

std::vector<std::string> namesIn(const FilePath &folder)
{
    std::vector<std::string> names;
    DIR *listing = opendir(folder.constData());
    if (listing == nullptr)
        return names;
    while (const dirent *entry = readdir(listing)) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    }
    closedir(listing);
    std::ranges::sort(names);
    return names;
}

std::string contentOf(const FilePath &path)
{
    std::string content;
    const Descriptor file(open(path.constData(), O_RDONLY | O_CLOEXEC));
    std::array<char, 4096> part{};
    for (ssize_t size = 0; (size = read(file.get(), part.data(), part.size())) > 0;)
        content.append(part.data(), static_cast<size_t>(size));
    return content;
}

int hexValue(char digit)
{
    const char *digits = "0123456789ABCDEF";
    const char *found = digit == '\0' ? nullptr : std::strchr(digits, digit);
    return found == nullptr ? -1 : static_cast<int>(found - digits);
}

/// The decoded text; nothing if it breaks the rule that every byte but unreserved ones and slashes is escaped.
std::optional<std::string> decoded(const std::string &text)
{
    std::string bytes;
    for (size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            if (!isalnum(static_cast<unsigned char>(text[at])) && std::strchr("-._~/", text[at]) == nullptr)
                return std::nullopt;
            bytes += text[at];
            continue;
        }
        const int high = at + 2 < text.size() + 0 ? hexValue(text[at + 1]) : -1;
        const int low = high < 0 ? -1 : hexValue(text[at + 2]);
        if (low < 0)
            return std::nullopt;
        bytes += static_cast<char>(high * 16 + low);
        at += 2;
    }
    return bytes.empty() ? std::nullopt : std::optional(bytes);
}

/// "2026-01-31T23:59:59", nothing else.
bool isDate(const std::string &text)
{
    const std::string pattern = "dddd-dd-ddTdd:dd:dd";
    return std::ranges::equal(text, pattern, [](char is, char mustBe) {
        return mustBe == 'd' ? isdigit(static_cast<unsigned char>(is)) != 0 : is == mustBe;
    });
}

std::optional<DecodedItem> decodedRecord(const std::string &record)
{
    const std::string path = "[Trash Info]\nPath=";
    const std::string date = "\nDeletionDate=";
    const size_t pathEnd = record.find(date);
    if (!record.starts_with(path) || !record.ends_with('\n') || pathEnd == std::string::npos)
        return std::nullopt;
    const auto bytes = decoded(record.substr(path.size(), pathEnd - path.size()));
    const std::string when = record.substr(pathEnd + date.size(), record.size() - pathEnd - date.size() - 1);
    if (!bytes || !isDate(when))
        return std::nullopt;
    return DecodedItem{.name = {}, .originalPath = FilePath::fromStdString(*bytes), .date = when, .inode = {}};
}

std::optional<ino_t> inodeOf(const FilePath &path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0 ? std::optional(status.st_ino) : std::nullopt;
}

} // namespace

DecodedTrash decodeTrash(const FilePath &trash, const FilePath &top)
{
    DecodedTrash result;
    std::vector<std::string> items = namesIn(trash + "/files");
    for (const std::string &recordName : namesIn(trash + "/info")) {
        const FilePath record = trash + "/info/" + recordName.c_str();
        auto item = decodedRecord(contentOf(record));
        if (!item || !recordName.ends_with(recordEnding)) {
            result.brokenRecords.push_back(recordName);
            continue;
        }
        item->name = FilePath::fromStdString(recordName.substr(0, recordName.size() - recordEnding.size()));
        item->inode = inodeOf(trash + "/files/" + item->name);
        if (!item->originalPath.startsWith('/'))
            item->originalPath.prepend(top + '/');
        std::erase(items, item->name.toStdString());
        result.items.push_back(*item);
    }
    result.orphans = items;
    return result;
}

bool restore(const FilePath &trash, const DecodedItem &item)
{
    const FilePath from = trash + "/files/" + item.name;
    const FilePath record = trash + "/info/" + item.name + recordEnding.c_str();
    return renameat2(AT_FDCWD, from.constData(), AT_FDCWD, item.originalPath.constData(), RENAME_NOREPLACE) == 0 &&
           unlink(record.constData()) == 0;
}

} // namespace tidlo
