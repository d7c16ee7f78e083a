#pragma once

#include "app/AppViewModel.h"

#include <QMetaProperty>
#include <QVariant>

#include <string>
#include <vector>

namespace tidlo {

/// Records every change of a state owner, in order, as "phase: results". The test fails if a change is not announced by
/// objectWillChange() while the old value still stands, or if a change alters anything else.
class NotificationLog final : public QObject
{
    Q_OBJECT

public:
    explicit NotificationLog(AppViewModel &watched);

    /// The changes since the last call.
    std::vector<std::string> taken();

private Q_SLOTS:
    void expectChange();
    void recordChange();
    void recordAnimation(const SpringAnimation &animation);

private:
    QVariantMap values() const;

    const AppViewModel &model;
    QVariantMap known; ///< The values after the last change.
    bool isAnnounced = false;
    std::vector<std::string> lines;
};

/// A value of a property in words: "absent", the case of an enumeration by number, the titles of candidates.
std::string inWords(const QVariant &value);

} // namespace tidlo
