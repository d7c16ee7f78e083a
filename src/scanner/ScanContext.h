#pragma once

#include "platform/FileManager.h"
#include "platform/Places.h"

#include <stop_token>

namespace tidlo {

/// What the user wants of one scan beyond the defaults.
struct ScanWishes
{
    QList<FilePath> spared{}; ///< What is, lies in or holds one of these is neither proposed nor measured.
    QList<FilePath> also{};   ///< Folders beneath which projects are looked for as well; unsuitable ones are ignored.
};

/// What the rules of one scan work with.
struct ScanContext
{
    const FileManager &files;
    FilePath home;
    PlaceSet spared{};          ///< See ScanWishes.
    QList<FilePath> also{};     ///< See ScanWishes.
    WalkNotes *notes = nullptr; ///< Notes of the whole scan; may be null.
    std::stop_token stop{};     ///< A requested stop ends each rule soon, with what was found until then.

    /// Whether \a path is not to be proposed. From any thread.
    bool spares(const FilePath &path) const { return !spared.isEmpty() && spared.meets(PlaceFinder().placeOf(path)); }
};

} // namespace tidlo
