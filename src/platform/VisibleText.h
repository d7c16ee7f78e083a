#pragma once

#include "model/FilePath.h"

#include <QString>

namespace tidlo {

/// A path or name as text that shows everything it holds and cannot change how the text around it is drawn. Printable
/// characters stay, combining marks among them. Everything else is written as an escape: control characters ("
/// ", "\x1b", "\u0085"), characters that change the direction of text, take no room or are drawn as nothing ("\u202e",
/// "\U000e0041"), line and paragraph separators, lone surrogates, private-use and unassigned characters, and bytes that
/// are not valid UTF-8 ("\xff"). A backslash is doubled, so that different names never look the same.
QString visibleText(const FilePath &path);

/// The same for a text that may run over several lines: line feeds and tabs stay.
QString visibleText(const QString &text);

} // namespace tidlo
