#pragma once

#include "model/FilePath.h"

#include <QString>

/// A path or name as text that shows everything it holds: control characters, line and paragraph separators, characters
/// that change the direction of text or take no room, and bytes that are not valid UTF-8 are written as escapes
/// ("\n", "\x1b", "\u202e"), and a backslash as two. What is printable stays as it is.
QString visibleText(const FilePath &path);

/// The same for a text that may run over several lines: line feeds and tabs stay.
QString visibleText(const QString &text);
