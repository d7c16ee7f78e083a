#pragma once

#include "scanner/Finding.h"
#include "scanner/ScanContext.h"

namespace tidlo {

/// The folders beneath which web and app projects are kept, in the order in which they are searched.
QList<FilePath> projectRoots(const FilePath &home);

/// Whether the folder that \a entry lies in holds one of the files that mark a project.
bool looksLikeProject(const EnumeratedEntry &entry);

/// Generated folders inside projects that package managers and build tools can make again. Always three candidates:
/// rebuildable folders, Composer's vendor folders, build outputs. Of nested matches only the outermost is found. A
/// requested stop ends the search soon, with what was found until then.
QList<Finding> developerCandidates(const ScanContext &context);

/// The chat media of WhatsApp Desktop, always a candidate and the only one that starts unselected; then its temporary
/// caches, a candidate only if they take room. Nothing else in its container is ever listed, least of all the chats.
QList<Finding> whatsAppCandidates(const ScanContext &context);

/// Caches of browsers and developer tools that these make again when needed: one candidate, even if none exists. Only
/// known folders are listed, never the whole caches folder.
QList<Finding> cacheCandidates(const ScanContext &context);

/// Installers, archives and videos directly in the Downloads folder, modified more than 45 days before \a now: one
/// candidate, or none when the folder cannot be listed. A file without a date is not old.
QList<Finding> downloadCandidates(const ScanContext &context, FileTime now);

/// Files of at least 100 MiB beneath the folders where people keep their files, modified more than 60 days before
/// \a now: one candidate, even if there are none. The length of a file decides; its allocated size counts as its bytes.
/// Files beneath a folder "node_modules" or ".git", anywhere on the path, are left out. A requested stop ends the
/// search soon, with what was found until then.
QList<Finding> oldLargeFilesCandidates(const ScanContext &context, FileTime now);

/// The name that a project folder has in common with its copies: in lower case, without the suffixes of copies,
/// backups, dates and numbers. In a \a name that is not valid UTF-8, each foreign byte differs from every other.
QString normalizedProjectName(QByteArrayView name);

/// Folders that are beside one another in a folder of the local web server and whose names differ only by a copy's
/// suffix: one candidate with all but the last modified folder of each such group, newest first; empty if there are
/// none. Where dates are equal, the one listed first counts as newer; a folder without a date is the oldest. Groups
/// come in the order in which their first folder is listed.
QList<Finding> duplicateProjectCandidates(const ScanContext &context);

} // namespace tidlo
