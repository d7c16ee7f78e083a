#pragma once

#include <QString>

namespace tidlo {

/// What a descriptor can show.
struct Terminal
{
    bool rewritable = false; ///< A terminal where a line can be overwritten.
    bool colour = false;     ///< A terminal with colours, unless NO_COLOR turns them off.
    int columns = 0;         ///< 0 if there is no limit, as for a file.
};

/// Read anew each time: the window may have been resized.
Terminal terminalAt(int descriptor);

enum class Ink { plain, strong, faint, green, blue, yellow, red };

/// \a text in that ink, or unchanged without \a colour.
QString inked(Ink ink, const QString &text, bool colour);

/// Whether a person can be asked: standard input and standard error are terminals.
bool canAsk();

/// Asks on standard error and waits for a line. True only for "y" or "yes"; input from before the question is ignored.
bool agreesTo(const QString &question);

} // namespace tidlo
