#pragma once

#include <QString>

namespace tidlo {

/// The beginning of a text, and how much was left out. A character is a Unicode code point.
struct Excerpt
{
    QString text;
    qsizetype more = 0; ///< Characters that were left out.
    bool operator==(const Excerpt &) const = default;
};

/// The first \a most characters of \a text, or a few less, so that no grapheme is cut. The time grows with \a most;
/// only counting the rest grows with the text.
Excerpt excerptOf(const QString &text, qsizetype most);

/// A sentence that \a more characters are not shown, followed by \a advice; empty if \a more is 0.
QString restText(qsizetype more, const QString &advice);

} // namespace tidlo
