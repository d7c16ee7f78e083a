#pragma once

#include "platform/FileManager.h"
#include "platform/Places.h"

#include <stop_token>

namespace tidlo {

/// What somebody wants of a scan that not every scan does.
struct ScanWishes
{
    QList<FilePath> spared{}; ///< What is, lies in or holds one of these is not proposed, and not measured.
    QList<FilePath> also{};   ///< Folders beneath which projects are looked for as well, but for those that may not be.
};

/// What the rules of one scan work with.
struct ScanContext
{
    const FileManager &files;
    FilePath home;
    PlaceSet spared{};          ///< As ScanWishes tells.
    QList<FilePath> also{};     ///< As ScanWishes tells.
    WalkNotes *notes = nullptr; ///< Of the whole scan; they may be missing.
    std::stop_token stop{};     ///< Requested, it ends each rule soon, with what was found until then.

    /// Whether what lies at \a path is not to be proposed. From any thread.
    bool spares(const FilePath &path) const { return !spared.isEmpty() && spared.meets(PlaceFinder().placeOf(path)); }
};

} // namespace tidlo
