#pragma once

#include <QString>

namespace tidlo::proxy {

/// Something, or a sentence for a person that says why there is none.
template <typename Value>
struct OrReason
{
    Value value{};
    QString reason; ///< Empty if there is a value.
};

} // namespace tidlo::proxy
