#pragma once

#include "cli/Command.h"

namespace tidlo {

/// "tidlo-cli scan": shows what could be cleaned, changes nothing.
Command scanCommand();

/// "tidlo-cli clean": scans, asks, and moves what the scan selected to the Trash.
Command cleanCommand();

/// "tidlo-cli restore": shows what the user's Trashes hold, and puts back what is named.
Command restoreCommand();

/// "tidlo-cli spare": shows and changes what is never to be suggested.
Command spareCommand();

/// "tidlo-cli explain": scans, and asks the AI proxy to explain what was found.
Command explainCommand();

/// "tidlo-cli trash-bundle": moves the bundle that it runs from to the Trash. For the script that uninstalls the
/// application, not for people, so the list of commands leaves it out.
Command trashBundleCommand();

} // namespace tidlo
