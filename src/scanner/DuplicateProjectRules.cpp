#include "platform/Paths.h"
#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

/// The second and third lie in the first and are searched as roots of their own.
constexpr std::array searchRoots{"Sites/localhost", "Sites/localhost/bakcup erpnew", "Sites/localhost/erps"};

/// What each matches is removed, one after the other, once each.
constexpr std::array suffixPatterns{
    R"( copy( \d+)?$)",   // A copy, "shop copy" or "shop copy 2".
    R"( backup$)",        // A backup after a space.
    R"([-_ ]backup$)",    // A backup after a hyphen, an underscore or a space.
    R"( \d{1,2} jan.*$)", // A date in January, "shop 3 jan 2024".
    R"( \d{1,2} feb.*$)", // The same in February.
    R"( \d{1,2} mar.*$)", // The same in March.
    R"( \d{1,2} apr.*$)", // The same in April.
    R"( \d{1,2} may.*$)", // The same in May, the last month that counts.
    R"([_ -]+\d+$)",      // A number with its separators, "shop-2" or "shop_01".
};

QList<QRegularExpression> compiledPatterns()
{
    QList<QRegularExpression> patterns;
    for (const char *pattern : suffixPatterns)
        patterns.append(QRegularExpression(QLatin1StringView(pattern), QRegularExpression::UseUnicodePropertiesOption));
    return patterns;
}

/// Replacement characters would make equals of different names that are not valid UTF-8. Characters of the private use
/// area stand for their foreign bytes instead: they have no case and are no white space.
QString decoded(QByteArrayView name)
{
    if (name.isValidUtf8())
        return QString::fromUtf8(name);
    constexpr char16_t firstPrivateUse = 0xe000;
    QString text = QString::fromLatin1(name);
    for (QChar &character : text) {
        if (character.unicode() >= 0x80)
            character = QChar(static_cast<char16_t>(firstPrivateUse + character.unicode()));
    }
    return text;
}

using Group = QList<DirectoryEntry>;

/// The folders of one root by their normalised names, in the order in which each name is first met.
QList<Group> groupedByName(const QList<DirectoryEntry> &entries)
{
    QList<Group> groups;
    QHash<QString, qsizetype> indices;
    for (const DirectoryEntry &entry : entries) {
        if (entry.attributes.kind != FileKind::directory)
            continue;
        const QString name = normalizedProjectName(lastPathComponent(entry.path));
        const qsizetype index = indices.value(name, groups.size());
        if (index == groups.size()) {
            indices.insert(name, index);
            groups.append(Group());
        }
        groups[index].append(entry);
    }
    return groups;
}

FileTime modificationDate(const DirectoryEntry &entry)
{
    return entry.attributes.modified.value_or(FileTime::min());
}

QList<FilePath> allButTheNewest(Group group)
{
    std::ranges::stable_sort(group, std::ranges::greater(), modificationDate);
    QList<FilePath> paths;
    for (const DirectoryEntry &entry : group.sliced(1))
        paths.append(entry.path);
    return paths;
}

} // namespace

QString normalizedProjectName(QByteArrayView name)
{
    static const QList<QRegularExpression> patterns = compiledPatterns();
    QString text = decoded(name).toLower();
    for (const QRegularExpression &pattern : patterns)
        text.remove(pattern);
    return text.trimmed();
}

QList<Finding> duplicateProjectCandidates(const ScanContext &context)
{
    QList<FilePath> paths;
    for (const char *root : searchRoots) {
        const QList<DirectoryEntry> entries =
            context.files.contentsOfDirectory(joined(context.home, root), context.notes).value_or(Group());
        for (const Group &group : groupedByName(entries))
            paths.append(allButTheNewest(group));
    }
    return {measuredFinding(context, FindingKind::olderCopies, paths)};
}

} // namespace tidlo
