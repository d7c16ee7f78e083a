#pragma once

#include "cli/Terminal.h"
#include "platform/TrashContents.h"

namespace tidlo {

/// A table of \a items: when each was moved, its size, and where it was; characters that could act on the terminal are
/// escaped.
QString trashText(const QList<ListedItem> &items, const Terminal &terminal);

/// When the item was moved, in local time: "2026-01-31 23:59:59". Empty if unknown.
QString timeText(const ListedItem &item);

} // namespace tidlo
