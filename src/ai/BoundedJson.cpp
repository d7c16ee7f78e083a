#include "ai/BoundedJson.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tidlo {

namespace {

using Json = nlohmann::json;

constexpr std::size_t mostLevels = 64;
constexpr int mostValues = 10'000;

class Reader final : public nlohmann::json_sax<Json>
{
public:
    explicit Reader(std::span<const std::string_view> wanted)
        : keys(wanted)
    {}

    BoundedJson take() { return {.document = std::move(document), .refusal = QString::fromLatin1(refusal)}; }

    bool null() override { return add(nullptr); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(number_integer_t value) override { return add(value); }
    bool number_unsigned(number_unsigned_t value) override { return add(value); }
    bool number_float(number_float_t value, const string_t &) override { return add(value); }
    bool string(string_t &value) override { return add(std::move(value)); }
    bool binary(binary_t &) override { return false; } // JSON has no such values.
    bool start_object(std::size_t) override { return open(Json::object()); }
    bool start_array(std::size_t) override { return open(Json::array()); }
    bool end_object() override { return close(); }
    bool end_array() override { return close(); }
    bool parse_error(std::size_t, const std::string &, const Json::exception &) override
    {
        return refuse("The data is not valid JSON.");
    }
    bool key(string_t &name) override
    {
        lastKey = std::move(name);
        return true;
    }

private:
    bool refuse(const char *reason)
    {
        refusal = reason;
        return false;
    }

    bool add(Json value)
    {
        keep(std::move(value));
        return isWithinBounds();
    }

    bool open(Json empty)
    {
        levels.push_back(keep(std::move(empty)));
        return isWithinBounds();
    }

    bool close()
    {
        levels.pop_back();
        return true;
    }

    /// Called once for each value.
    bool isWithinBounds()
    {
        if (levels.size() > mostLevels)
            return refuse("The data is nested too deeply.");
        return ++values <= mostValues || refuse("The data holds too many values.");
    }

    /// The place where the value is stored; null if it is dropped.
    Json *keep(Json value)
    {
        if (levels.empty())
            return &(document = std::move(value));
        Json *parent = levels.back();
        if (parent == nullptr)
            return nullptr;
        if (parent->is_array())
            return &parent->emplace_back(std::move(value));
        const bool isWanted = std::ranges::find(keys, lastKey) != keys.end();
        return isWanted ? &((*parent)[lastKey] = std::move(value)) : nullptr;
    }

    std::span<const std::string_view> keys;
    Json document;
    const char *refusal = nullptr;
    std::vector<Json *> levels; ///< The lists and objects around the next value; null for those that are dropped.
    std::string lastKey;
    int values = 0;
};

} // namespace

BoundedJson readBoundedJson(const QByteArray &bytes, std::span<const std::string_view> keys)
{
    Reader reader(keys);
    Json::sax_parse(bytes.begin(), bytes.end(), &reader);
    return reader.take();
}

} // namespace tidlo
