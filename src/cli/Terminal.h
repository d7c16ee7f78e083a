#pragma once

#include <QString>

namespace tidlo {

/// What can be shown behind a descriptor.
struct Terminal
{
    bool rewritable = false; ///< A terminal where a written line can be replaced.
    bool colour = false;     ///< A terminal with colours, unless NO_COLOR turns them off.
    int columns = 0;         ///< 0 where there is no limit, as in a file.
};

/// Looked up anew each time: a window may have been resized.
Terminal terminalAt(int descriptor);

enum class Ink { plain, strong, faint, green, blue, yellow, red };

/// \a text in that ink, or as it is without \a colour.
QString inked(Ink ink, const QString &text, bool colour);

/// Whether a person can be asked: standard input and standard error are terminals.
bool canAsk();

/// Asks on standard error and waits for a line. True only for "y" or "yes"; what was typed before the question was
/// shown does not count.
bool agreesTo(const QString &question);

} // namespace tidlo
