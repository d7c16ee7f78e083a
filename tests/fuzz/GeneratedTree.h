#pragma once

#include "model/FilePath.h"

#include <span>

namespace tidlo {

/// Takes an input for decisions, from its front on. Behind its end there are zeros.
class Decisions final
{
public:
    explicit Decisions(std::span<const uint8_t> input)
        : left(input)
    {}

    bool areLeft() const { return !left.empty(); }
    /// From 0 on, less than \a count.
    unsigned below(unsigned count) { return next() % count; }
    /// One of those that mean something to the program, or any bytes that can be a name.
    FilePath name(std::span<const char *const> telling);
    /// One to five names, with slashes between them.
    FilePath path(std::span<const char *const> telling);
    /// Any bytes, fewer than 256.
    QByteArray bytes();

private:
    uint8_t next();

    std::span<const uint8_t> left;
};

/// Makes a folder, a file of some size and age, or a link, somewhere in the folder \a top, with the folders above it. A
/// link leads to another place in \a top, or nowhere. What the system refuses is left out.
void makeSomething(const FilePath &top, Decisions &decisions, std::span<const char *const> telling);

} // namespace tidlo
