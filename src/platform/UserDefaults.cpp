#include "platform/UserDefaults.h"

namespace tidlo {

namespace {

constexpr qsizetype longestList = 1'000'000; ///< Characters; a longer list is neither stored nor read.

/// A list is stored as a text: its paths, percent-encoded, separated by spaces. Nothing if the text is no such list.
std::optional<QList<FilePath>> pathsFrom(const QVariant &kept)
{
    if (!kept.isValid())
        return QList<FilePath>();
    if (kept.typeId() != QMetaType::QString || kept.toString().size() > longestList)
        return std::nullopt;
    QList<FilePath> paths;
    for (const QByteArray &word : kept.toString().toUtf8().split(' ')) {
        const FilePath path = FilePath::fromPercentEncoding(word);
        if (!path.startsWith('/') || path.contains('\0') || path.toPercentEncoding("/") != word)
            return std::nullopt;
        paths.append(path);
    }
    return paths;
}

QVariant kept(const QList<FilePath> &paths)
{
    QByteArrayList words;
    for (const FilePath &path : paths)
        words.append(path.toPercentEncoding("/"));
    return words.isEmpty() ? QVariant() : QString::fromLatin1(words.join(' '));
}

} // namespace

UserDefaults::UserDefaults(QObject *parent)
    : QObject(parent)
    , store(preferencesOfUser())
{}

UserDefaults::UserDefaults(const QString &file, QObject *parent)
    : QObject(parent)
    , store(preferencesIn(file))
{}

QString UserDefaults::string(QLatin1StringView key, const QString &otherwise) const
{
    const QVariant found = store->value(key);
    return found.typeId() == QMetaType::QString ? found.toString() : otherwise;
}

bool UserDefaults::boolean(QLatin1StringView key, bool otherwise) const
{
    const QVariant found = store->value(key);
    if (!found.isValid())
        return otherwise && store->kept(key);
    return found.toString() == u"true"; // Any other text would convert to true as well.
}

std::optional<QList<FilePath>> UserDefaults::paths(QLatin1StringView key) const
{
    const std::optional<QVariant> kept = store->kept(key);
    return kept ? pathsFrom(*kept) : std::nullopt;
}

bool UserDefaults::changePaths(QLatin1StringView key, const std::function<void(QList<FilePath> &)> &change)
{
    bool isChanged = false;
    const bool isKept = store->change(key, [&](const QVariant &former) -> QVariant {
        std::optional<QList<FilePath>> paths = pathsFrom(former);
        if (!paths)
            return former;
        change(*paths);
        const QVariant list = kept(*paths);
        isChanged = list.toString().size() <= longestList;
        return isChanged ? list : former;
    });
    Q_EMIT changed(key);
    return isKept && isChanged;
}

bool UserDefaults::addPath(QLatin1StringView key, const FilePath &path)
{
    return changePaths(key, [&](QList<FilePath> &paths) {
        if (!paths.contains(path))
            paths.append(path);
    });
}

bool UserDefaults::removePath(QLatin1StringView key, const FilePath &path)
{
    return changePaths(key, [&](QList<FilePath> &paths) { paths.removeAll(path); });
}

void UserDefaults::set(QLatin1StringView key, const QVariant &value)
{
    store->set(key, value);
    Q_EMIT changed(key);
}

} // namespace tidlo
