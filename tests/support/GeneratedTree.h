#pragma once

#include "model/FilePath.h"

#include <array>
#include <span>

namespace tidlo {

/// Reads an input as decisions, from its beginning. After its end there are zeros.
class Decisions final
{
public:
    explicit Decisions(std::span<const uint8_t> input)
        : left(input)
    {}

    bool areLeft() const { return !left.empty(); }
    /// From 0 to less than \a count.
    unsigned below(unsigned count) { return next() % count; }
    /// One of the names in \a telling, which mean something to the program, or any bytes that can be a name.
    FilePath name(std::span<const char *const> telling);
    /// One to five names, with slashes between them.
    FilePath path(std::span<const char *const> telling);
    /// Any bytes, fewer than 256.
    QByteArray bytes();

private:
    uint8_t next();

    std::span<const uint8_t> left;
};

/// Names that mean something to a scan.
inline constexpr std::array namesForAScan{"Sites",
                                          "localhost",
                                          "node_modules",
                                          "vendor",
                                          "composer.json",
                                          "package.json",
                                          "build",
                                          "dist",
                                          "coverage",
                                          "Downloads",
                                          "a.zip",
                                          "b.DMG",
                                          "Library",
                                          "Caches",
                                          "Google",
                                          ".cache",
                                          ".gradle",
                                          "caches",
                                          "Documents",
                                          "Movies",
                                          "shop copy 2",
                                          "shop",
                                          "shop-3",
                                          "a.app",
                                          ".git",
                                          ".hidden",
                                          "Desktop",
                                          "erps",
                                          "shop 3 jan 2024",
                                          "film.mov",
                                          "Pictures",
                                          ".Trash",
                                          "bakcup erpnew",
                                          "Group Containers",
                                          "net.whatsapp.WhatsApp",
                                          "lib.FRAMEWORK.app"};

/// Makes a folder, a file of some size and age, or a link, somewhere in the folder \a top, with its parent folders. A
/// link leads to another place in \a top, or nowhere. Whatever the system refuses is skipped.
void makeSomething(const FilePath &top, Decisions &decisions, std::span<const char *const> telling);

} // namespace tidlo
