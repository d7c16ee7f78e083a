#pragma once

#include <QString>

namespace tidlo {

/// The beginning of a text, and how much of it there is besides. A character is what Unicode calls a code point.
struct Excerpt
{
    QString text;
    qsizetype more = 0; ///< Characters that were left out.
    bool operator==(const Excerpt &) const = default;
};

/// The first \a most characters of \a text, or a few less, so that what is drawn as one is not cut apart. Takes time by
/// \a most, but for counting what is left out.
Excerpt excerptOf(const QString &text, qsizetype most);

/// That \a more characters are not shown, as a sentence, and \a advice; empty if there are none.
QString restText(qsizetype more, const QString &advice);

} // namespace tidlo
