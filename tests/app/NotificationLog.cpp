#include "app/NotificationLog.h"

#include <gtest/gtest.h>

namespace tidlo {

namespace {

std::vector<QMetaProperty> publishedProperties()
{
    const QMetaObject &meta = AppViewModel::staticMetaObject;
    std::vector<QMetaProperty> properties;
    for (int index = meta.propertyOffset(); index < meta.propertyCount(); ++index)
        properties.push_back(meta.property(index));
    return properties;
}

constexpr std::array phases{"ready", "scanning", "results", "report"};

template <typename Value>
std::string optionalInWords(const QVariant &value, std::string (*words)(const Value &))
{
    const auto optional = value.value<std::optional<Value>>();
    return optional ? words(*optional) : "absent";
}

std::string titles(const QList<CleanupCandidate> &candidates)
{
    QStringList titles;
    for (const CleanupCandidate &candidate : candidates)
        titles.append((candidate.selected ? QStringLiteral("+") : QStringLiteral("-")) + candidate.title);
    return "[" + titles.join(QStringLiteral(", ")).toStdString() + "]";
}

} // namespace

NotificationLog::NotificationLog(AppViewModel &watched)
    : model(watched)
    , known(values())
{
    connect(&watched, &AppViewModel::objectWillChange, this, &NotificationLog::expectChange);
    connect(&watched, &AppViewModel::willAnimate, this, &NotificationLog::recordAnimation);
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("recordChange()"));
    for (const QMetaProperty &property : publishedProperties())
        connect(&watched, property.notifySignal(), this, slot);
}

std::vector<std::string> NotificationLog::taken()
{
    return std::exchange(lines, {});
}

void NotificationLog::expectChange()
{
    EXPECT_FALSE(isAnnounced) << "announced twice";
    EXPECT_EQ(values(), known) << "changed before it was announced";
    isAnnounced = true;
}

void NotificationLog::recordChange()
{
    EXPECT_TRUE(std::exchange(isAnnounced, false)) << "not announced";
    for (const QMetaProperty &property : publishedProperties()) {
        if (property.notifySignalIndex() != senderSignalIndex())
            continue;
        const QString name = QString::fromLatin1(property.name());
        known[name] = property.read(&model);
        lines.push_back(name.toStdString() + ": " + inWords(known[name]));
    }
    EXPECT_EQ(values(), known) << "something else changed too";
}

void NotificationLog::recordAnimation(const SpringAnimation &animation)
{
    EXPECT_FALSE(isAnnounced);
    lines.push_back("animated: " + std::to_string(animation.response).substr(0, 4) + " " +
                    std::to_string(animation.dampingFraction).substr(0, 4) + " " +
                    std::to_string(animation.blendDuration).substr(0, 1));
}

QVariantMap NotificationLog::values() const
{
    QVariantMap values;
    for (const QMetaProperty &property : publishedProperties())
        values.insert(QString::fromLatin1(property.name()), property.read(&model));
    return values;
}

std::string inWords(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<ScanPhase>())
        return phases.at(static_cast<size_t>(value.value<ScanPhase>()));
    if (value.metaType() == QMetaType::fromType<AppSection>())
        return rawValue(value.value<AppSection>()).toStdString();
    if (value.metaType() == QMetaType::fromType<QList<CleanupCandidate>>())
        return titles(value.value<QList<CleanupCandidate>>());
    if (value.metaType() == QMetaType::fromType<ScanTotals>())
        return std::to_string(value.value<ScanTotals>().totalBytes) + " bytes";
    if (value.metaType() == QMetaType::fromType<std::optional<CleanupRisk>>())
        return optionalInWords<CleanupRisk>(value,
                                            [](const CleanupRisk &risk) { return rawValue(risk).toStdString(); });
    if (value.metaType() == QMetaType::fromType<std::optional<QString>>())
        return optionalInWords<QString>(value, [](const QString &text) { return text.toStdString(); });
    if (value.metaType() == QMetaType::fromType<std::optional<CleanupReport>>()) {
        return optionalInWords<CleanupReport>(value, [](const CleanupReport &report) {
            return std::to_string(report.removedItems) + " removed, " + std::to_string(report.protectedItems) +
                   " protected";
        });
    }
    return value.toString().toStdString();
}

} // namespace tidlo
