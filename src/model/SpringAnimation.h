#pragma once

#include <QMetaType>

namespace tidlo {

/// The animation of a change: a spring, with times in seconds.
struct SpringAnimation
{
    Q_GADGET
    Q_PROPERTY(double response MEMBER response)
    Q_PROPERTY(double dampingFraction MEMBER dampingFraction)
    Q_PROPERTY(double blendDuration MEMBER blendDuration)

public:
    double response = 0;
    double dampingFraction = 1;
    double blendDuration = 0;

    bool operator==(const SpringAnimation &) const = default;
};

/// The animation of a row that is ticked or unticked.
inline constexpr SpringAnimation toggleAnimation{.response = 0.24, .dampingFraction = 0.86, .blendDuration = 0};

} // namespace tidlo
