#include "ui/screens/PathSearch.h"

#include "platform/VisibleText.h"

#include <algorithm>
#include <string_view>

namespace tidlo {

namespace {

/// Whether the character is shown as itself and is one byte.
constexpr bool isPlainCharacter(char character)
{
    return character >= 0x20 && character < 0x7f && character != '\\';
}

constexpr char lowerCase(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

std::string_view view(const QByteArray &text)
{
    return {text.constData(), static_cast<size_t>(text.size())};
}

bool contains(const QByteArray &text, const QByteArray &wanted)
{
    return view(text).find(view(wanted)) != std::string_view::npos;
}

} // namespace

QByteArray searchableText(const FilePath &path)
{
    return visibleText(path).toCaseFolded().toUtf8();
}

bool needsSearchableText(const FilePath &path)
{
    return !std::ranges::all_of(path, isPlainCharacter);
}

PathSearch::PathSearch(const QString &given)
    : wanted(given.toCaseFolded().toUtf8())
{}

bool PathSearch::finds(const FilePath &path, const QByteArray &text)
{
    if (wanted.isEmpty())
        return true;
    if (!text.isEmpty())
        return contains(text, wanted);
    if (needsSearchableText(path))
        return contains(searchableText(path), wanted);
    lowered.resize(path.size());
    std::ranges::transform(path, lowered.begin(), lowerCase);
    return contains(lowered, wanted);
}

} // namespace tidlo
