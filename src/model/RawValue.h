#pragma once

#include <QLatin1StringView>
#include <QString>

#include <algorithm>
#include <array>
#include <optional>

namespace tidlo {

/// One case of an enumeration and its text.
template <typename Enum>
struct RawValueRow
{
    Enum value;
    QLatin1StringView text;
};

// Before version 17, clang does not deduce template arguments for aggregates.
template <typename Enum>
RawValueRow(Enum, QLatin1StringView) -> RawValueRow<Enum>;

/// The cases of \a Enum with their texts, in declaration order. Each enumeration with raw values specialises this.
template <typename Enum>
inline constexpr std::array<RawValueRow<Enum>, 0> rawValues{};

/// The text of a case. A value that is not a case of the enumeration yields an empty text.
template <typename Enum>
QString rawValue(Enum value)
{
    const auto &rows = rawValues<Enum>;
    const auto row = std::ranges::find(rows, value, &RawValueRow<Enum>::value);
    return row == rows.end() ? QString() : QString(row->text);
}

/// The case whose text is exactly \a text, case-sensitively; nothing for any other text.
template <typename Enum>
std::optional<Enum> fromRawValue(QStringView text)
{
    const auto &rows = rawValues<Enum>;
    const auto row = std::ranges::find_if(rows, [text](const auto &candidate) { return candidate.text == text; });
    return row == rows.end() ? std::nullopt : std::optional(row->value);
}

/// Every case, in declaration order.
template <typename Enum>
constexpr auto allCases()
{
    std::array<Enum, rawValues<Enum>.size()> cases{};
    std::ranges::transform(rawValues<Enum>, cases.begin(), &RawValueRow<Enum>::value);
    return cases;
}

} // namespace tidlo
