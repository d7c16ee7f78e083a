#include "ui/screens/Excerpt.h"

#include <QLocale>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace tidlo {

namespace {

bool isPair(QStringView text, qsizetype index)
{
    return index + 1 < text.size() && text[index].isHighSurrogate() && text[index + 1].isLowSurrogate();
}

qsizetype charactersIn(QStringView text)
{
    qsizetype count = 0;
    for (qsizetype i = 0; i < text.size(); i += isPair(text, i) ? 2 : 1)
        ++count;
    return count;
}

/// The end of the first \a most characters.
qsizetype endOf(QStringView text, qsizetype most)
{
    qsizetype end = 0;
    for (qsizetype count = 0; count < most && end < text.size(); ++count)
        end += isPair(text, end) ? 2 : 1;
    return end;
}

} // namespace

Excerpt excerptOf(const QString &text, qsizetype most)
{
    const qsizetype end = endOf(text, most);
    const QString considered = text.first(endOf(text, most + 1));
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, considered);
    boundaries.setPosition(end);
    const qsizetype cut = boundaries.isAtBoundary() ? end : boundaries.toPreviousBoundary();
    const qsizetype size = cut > 0 ? cut : end; // All of it may be one grapheme.
    return {.text = text.first(size), .more = charactersIn(QStringView(text).sliced(size))};
}

QString restText(qsizetype more, const QString &advice)
{
    if (more == 0)
        return {};
    const QLocale english(QLocale::English); // As all figures here are written.
    return (more == 1 ? QStringLiteral("1 more character is not shown. ")
                      : QStringLiteral("%1 more characters are not shown. ").arg(english.toString(more))) +
           advice;
}

} // namespace tidlo
