#pragma once

#include "model/FilePath.h"
#include "model/RawValue.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QUuid>

#include <optional>

namespace tidlo {

/// The category of a finding. The raw value is the title that is shown, and the identity when encoded.
enum class CleanupCategory {
    devProjects,
    whatsApp,
    caches,
    downloads,
    oldLargeFiles,
    protected_, ///< Stands for `protected`, a keyword in C++.
};

template <>
inline constexpr std::array rawValues<CleanupCategory>{
    RawValueRow{CleanupCategory::devProjects, QLatin1StringView("Project files")},
    RawValueRow{CleanupCategory::whatsApp, QLatin1StringView("WhatsApp")},
    RawValueRow{CleanupCategory::caches, QLatin1StringView("User caches")},
    RawValueRow{CleanupCategory::downloads, QLatin1StringView("Downloads")},
    RawValueRow{CleanupCategory::oldLargeFiles, QLatin1StringView("Large & old files")},
    RawValueRow{CleanupCategory::protected_, QLatin1StringView("Protected")},
};

/// How safe it is to move a finding to the Trash. The raw value is the title that is shown, and the identity when
/// encoded.
enum class CleanupRisk { safe, rebuildable, review, never };

template <>
inline constexpr std::array rawValues<CleanupRisk>{
    RawValueRow{CleanupRisk::safe, QLatin1StringView("Safe to delete")},
    RawValueRow{CleanupRisk::rebuildable, QLatin1StringView("Rebuildable")},
    RawValueRow{CleanupRisk::review, QLatin1StringView("Review first")},
    RawValueRow{CleanupRisk::never, QLatin1StringView("Never touch")},
};

/// One cleanup proposal: any number of paths under one title. A value; the identifier is its identity in lists.
struct CleanupCandidate
{
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(CleanupCategory category MEMBER category)
    Q_PROPERTY(CleanupRisk risk MEMBER risk)
    Q_PROPERTY(qint64 bytes MEMBER bytes)
    Q_PROPERTY(bool selected MEMBER selected)

public:
    QUuid id = QUuid::createUuid();
    QString title;
    QString detail; ///< One or two sentences: what the items are and how to get them back.
    CleanupCategory category = CleanupCategory::devProjects;
    CleanupRisk risk = CleanupRisk::review;
    qint64 bytes = 0;                     ///< Allocated size of all paths together, never negative.
    QList<FilePath> paths;                ///< Absolute, in the order in which they were found.
    bool selected = true;                 ///< Whether it will be moved to the Trash.
    std::optional<QString> aiExplanation; ///< Absent when created.

    bool operator==(const CleanupCandidate &) const = default;
};

/// Combines all nine fields, in order.
size_t qHash(const CleanupCandidate &candidate, size_t seed = 0) noexcept;

} // namespace tidlo
