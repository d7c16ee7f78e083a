#pragma once

#include "platform/FileManager.h"
#include "scanner/Finding.h"

namespace tidlo {

/// The folders beneath which web and app projects are kept, in the order they are searched.
QList<FilePath> projectRoots(const FilePath &home);

/// Whether the folder that \a entry lies in holds one of the files that mark a project.
bool looksLikeProject(const EnumeratedEntry &entry);

/// Generated folders inside projects that package managers and build tools can make again. Always three candidates:
/// rebuildable folders, Composer's vendor folders, build outputs. Of nested matches the outermost alone is found. A
/// requested stop ends the search soon, with what was found until then.
QList<Finding> developerCandidates(const FileManager &files, const FilePath &home, std::stop_token stop = {});

} // namespace tidlo
