#include "platform/Paths.h"
#include "scanner/Finding.h"
#include "scanner/FindingRules.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace tidlo {

namespace {

/// The second and third lie inside the first and are searched as separate roots.
constexpr std::array searchRoots{"Sites/localhost", "Sites/localhost/bakcup erpnew", "Sites/localhost/erps"};

/// Patterns of suffixes; each is removed from a name at most once, in this order.
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

/// Decoding invalid UTF-8 to replacement characters would make different names equal. So each foreign byte becomes a
/// character of the private use area, which has no case and is no white space.
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

/// The folders of one root, grouped by normalised name, in the order in which each name first occurs.
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
