#pragma once

#include "cli/Command.h"

namespace tidlo {

/// "tidlo-cli scan": shows what could be cleaned, changes nothing.
Command scanCommand();

/// "tidlo-cli clean": scans, asks, and moves what the scan selected to the Trash.
Command cleanCommand();

/// "tidlo-cli restore": shows the contents of the user's Trashes, and puts back what is named.
Command restoreCommand();

/// "tidlo-cli spare": shows and changes the list of paths that are never suggested.
Command spareCommand();

/// "tidlo-cli explain": scans, and asks the AI proxy to explain the findings.
Command explainCommand();

/// "tidlo-cli trash-bundle": moves the bundle that it runs from to the Trash. Used by the uninstall script, not by
/// people, so the list of commands leaves it out.
Command trashBundleCommand();

} // namespace tidlo
