#include "proxy/PromptFindings.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>

namespace tidlo::proxy {
namespace {

constexpr qsizetype mostFindings = 8;
constexpr QLatin1StringView metadataStart("\nScan metadata:\n");

// The labels of a finding's lines; names come only after the last one.
constexpr QLatin1StringView idLabel("- id: ");
constexpr QLatin1StringView titleLabel("title: ");
constexpr QLatin1StringView categoryLabel("category: ");
constexpr QLatin1StringView riskLabel("risk: ");
constexpr QLatin1StringView sizeLabel("size: ");
constexpr qsizetype linesRead = 5;

struct Size
{
    QString text;
    double bytes;
};

double bytesIn(QStringView unit)
{
    constexpr std::array units{QLatin1StringView("KB"), QLatin1StringView("MB"), QLatin1StringView("GB"),
                               QLatin1StringView("TB"), QLatin1StringView("PB"), QLatin1StringView("EB")};
    double bytes = 1;
    for (const QLatin1StringView larger : units) {
        bytes *= 1000;
        if (unit == larger)
            return bytes;
    }
    return 1; // The smallest unit, "byte" or "bytes".
}

std::optional<Size> sizeFrom(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A(?:Zero KB|([0-9]{1,3}(?:\\.[0-9]{1,2})?) (byte|bytes|[KMGTPE]B))\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return Size{.text = text, .bytes = match.captured(1).toDouble() * bytesIn(match.capturedView(2))};
}

/// The text after \a label, or nothing if the line does not begin with it.
std::optional<QString> after(QLatin1StringView label, const QString &line)
{
    return line.startsWith(label) ? std::optional(line.mid(label.size())) : std::nullopt;
}

std::optional<PromptFinding> findingFrom(const QStringList &lines)
{
    const auto id = after(idLabel, lines.value(0));
    const auto title = after(titleLabel, lines.value(1));
    const auto category = after(categoryLabel, lines.value(2));
    const auto risk = after(riskLabel, lines.value(3));
    const auto size = after(sizeLabel, lines.value(4));
    if (!id || !title || !category || !risk || !size)
        return std::nullopt;
    const auto knownCategory = fromRawValue<CleanupCategory>(*category);
    const auto knownRisk = fromRawValue<CleanupRisk>(*risk);
    const auto knownSize = sizeFrom(*size);
    if (!knownCategory || !knownRisk || !knownSize)
        return std::nullopt;
    return PromptFinding{.title = *title,
                         .category = *knownCategory,
                         .risk = *knownRisk,
                         .size = knownSize->text,
                         .bytes = knownSize->bytes};
}

} // namespace

std::optional<QList<PromptFinding>> findingsIn(const QString &prompt)
{
    const qsizetype start = prompt.indexOf(metadataStart);
    if (start == -1)
        return std::nullopt;
    const QStringList lines = prompt.mid(start + metadataStart.size()).split(u'\n');
    QList<PromptFinding> findings;
    for (qsizetype line = 0; line < lines.size() && findings.size() < mostFindings; ++line) {
        if (!lines.at(line).startsWith(idLabel))
            continue;
        if (const auto finding = findingFrom(lines.mid(line, linesRead)))
            findings.append(*finding);
    }
    return findings;
}

} // namespace tidlo::proxy
