#pragma once

#include "model/CleanupCategory.h"
#include "model/CleanupRisk.h"
#include "model/FilePath.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QUuid>

#include <optional>

namespace tidlo {

/// One cleanup proposal: many paths under one title. A value; the identifier is its identity in lists.
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
    QString detail; ///< One or two sentences: what the items are and how they come back.
    CleanupCategory category = CleanupCategory::devProjects;
    CleanupRisk risk = CleanupRisk::review;
    qint64 bytes = 0;                     ///< Allocated size of all paths together, never negative.
    QList<FilePath> paths;                ///< Absolute, in the order they were found.
    bool selected = true;                 ///< Whether it will be moved to the Trash.
    std::optional<QString> aiExplanation; ///< Absent when created.

    bool operator==(const CleanupCandidate &) const = default;
};

/// Combines all nine fields, in order.
size_t qHash(const CleanupCandidate &candidate, size_t seed = 0) noexcept;

} // namespace tidlo
