#include "ui/screens/PathSearch.h"

#include "platform/VisibleText.h"

#include <algorithm>
#include <string_view>

namespace {

/// Whether it is shown as itself and is one byte.
constexpr bool isPlainCharacter(unsigned character)
{
    return character >= 0x20 && character < 0x7f && character != '\\';
}

constexpr char lowerCase(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

/// Puts \a path into \a lowered, which has its size, and tells whether all of its characters are plain.
bool lower(const FilePath &path, char *lowered)
{
    bool isPlain = true;
    for (const char character : path) {
        isPlain &= isPlainCharacter(static_cast<unsigned char>(character));
        *lowered++ = lowerCase(character);
    }
    return isPlain;
}

} // namespace

PathSearch::PathSearch(const QString &given)
    : wanted(given)
{
    for (const QChar character : wanted)
        plainWanted += character.toCaseFolded().toLatin1(); // Some signs are other cases of plain letters.
}

bool PathSearch::finds(const FilePath &path)
{
    if (wanted.isEmpty())
        return true;
    lowered.resize(path.size());
    if (!lower(path, lowered.data()))
        return visibleText(path).contains(wanted, Qt::CaseInsensitive);
    const std::string_view whole(lowered.constData(), static_cast<size_t>(lowered.size()));
    return whole.find({plainWanted.constData(), static_cast<size_t>(plainWanted.size())}) != std::string_view::npos;
}
