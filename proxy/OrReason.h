#pragma once

#include <QString>

namespace tidlo::proxy {

/// A value, or a sentence for a person that says why there is none.
template <typename Value>
struct OrReason
{
    Value value{};
    QString reason; ///< Empty if there is a value.
};

} // namespace tidlo::proxy
