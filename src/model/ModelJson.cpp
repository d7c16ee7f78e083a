#include "model/ModelJson.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace tidlo {

using Json = nlohmann::ordered_json;

namespace {

Json toJson(const QString &text)
{
    return text.toStdString();
}

Json toJson(const QList<FilePath> &paths)
{
    Json list = Json::array();
    for (const FilePath &path : paths)
        list.push_back(toJson(QString::fromUtf8(path)));
    return list;
}

/// Reads the keys of one object; remembers the first that is missing or has another type.
class Reader final
{
public:
    explicit Reader(const Json &json)
        : object(json)
    {
        if (!object.is_object())
            error = QStringLiteral("A cleanup candidate must be a JSON object.");
    }

    const Json *find(const char *key)
    {
        if (!error.isEmpty())
            return nullptr;
        const auto found = object.find(key);
        if (found != object.end())
            return &*found;
        fail(key, "is missing");
        return nullptr;
    }

    QString text(const char *key)
    {
        const Json *value = find(key);
        if (value == nullptr)
            return {};
        if (!value->is_string())
            fail(key, "must be a text");
        return value->is_string() ? QString::fromStdString(value->get_ref<const std::string &>()) : QString();
    }

    std::optional<QString> optionalText(const char *key)
    {
        const auto found = object.find(key);
        if (found == object.end() || found->is_null())
            return std::nullopt;
        return text(key);
    }

    template <typename Enum>
    Enum enumeration(const char *key)
    {
        const std::optional<Enum> value = fromRawValue<Enum>(text(key));
        if (!value)
            fail(key, "is not one of the known titles");
        return value.value_or(Enum{});
    }

    QUuid uuid(const char *key)
    {
        const QString given = text(key);
        const QUuid id = QUuid::fromString(given);
        if (id.toString(QUuid::WithoutBraces).compare(given, Qt::CaseInsensitive) != 0)
            fail(key, "must be a UUID");
        return id;
    }

    qint64 integer(const char *key)
    {
        const Json *value = find(key);
        const bool fits = value != nullptr && value->is_number_integer() &&
                          (!value->is_number_unsigned() ||
                           value->get<quint64>() <= static_cast<quint64>(std::numeric_limits<qint64>::max()));
        if (!fits)
            fail(key, "must be a whole number of 64 bits");
        return fits ? value->get<qint64>() : 0;
    }

    bool boolean(const char *key)
    {
        const Json *value = find(key);
        const bool fits = value != nullptr && value->is_boolean();
        if (!fits)
            fail(key, "must be true or false");
        return fits && value->get<bool>();
    }

    QList<FilePath> paths(const char *key)
    {
        QList<FilePath> list;
        const Json *value = find(key);
        const bool fits = value != nullptr && value->is_array() &&
                          std::ranges::all_of(*value, [](const Json &path) { return path.is_string(); });
        if (!fits) {
            fail(key, "must be a list of texts");
            return list;
        }
        for (const Json &path : *value)
            list.append(FilePath::fromStdString(path.get_ref<const std::string &>()));
        return list;
    }

    QString error;

private:
    void fail(const char *key, const char *reason)
    {
        if (error.isEmpty())
            error = QStringLiteral("The key \"%1\" %2.").arg(QLatin1StringView(key), QLatin1StringView(reason));
    }

    const Json &object;
};

} // namespace

Json toJson(const CleanupCandidate &candidate)
{
    Json json;
    json["id"] = toJson(candidate.id.toString(QUuid::WithoutBraces).toUpper());
    json["title"] = toJson(candidate.title);
    json["detail"] = toJson(candidate.detail);
    json["category"] = toJson(rawValue(candidate.category));
    json["risk"] = toJson(rawValue(candidate.risk));
    json["bytes"] = candidate.bytes;
    json["paths"] = toJson(candidate.paths);
    json["selected"] = candidate.selected;
    if (candidate.aiExplanation)
        json["aiExplanation"] = toJson(*candidate.aiExplanation);
    return json;
}

Json toJson(const ScanTotals &totals)
{
    return {{"diskUsedPercent", totals.diskUsedPercent},
            {"recoverablePercent", totals.recoverablePercent},
            {"totalBytes", totals.totalBytes},
            {"recoverableBytes", totals.recoverableBytes},
            {"freeBytes", totals.freeBytes},
            {"volumeBytes", totals.volumeBytes}};
}

Json toJson(const CleanupReport &report)
{
    Json json{{"recoveredBytes", report.recoveredBytes},
              {"removedItems", report.removedItems},
              {"protectedItems", report.protectedItems},
              {"finalDiskUsedPercent", report.finalDiskUsedPercent}};
    if (report.aiSummary)
        json["aiSummary"] = toJson(*report.aiSummary);
    return json;
}

std::optional<CleanupCandidate> candidateFromJson(const Json &json, QString *error)
{
    Reader reader(json);
    CleanupCandidate candidate{.id = reader.uuid("id"),
                               .title = reader.text("title"),
                               .detail = reader.text("detail"),
                               .category = reader.enumeration<CleanupCategory>("category"),
                               .risk = reader.enumeration<CleanupRisk>("risk"),
                               .bytes = reader.integer("bytes"),
                               .paths = reader.paths("paths"),
                               .selected = reader.boolean("selected"),
                               .aiExplanation = reader.optionalText("aiExplanation")};
    if (error != nullptr)
        *error = reader.error;
    return reader.error.isEmpty() ? std::optional(std::move(candidate)) : std::nullopt;
}

} // namespace tidlo
