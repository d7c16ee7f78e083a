#include "ui/design/Spring.h"

#include <cmath>
#include <numbers>

namespace {

double angularFrequency(const Spring &spring)
{
    return 2 * std::numbers::pi / spring.response;
}

/// How much the damping slows the swing down.
double swing(const Spring &spring)
{
    return std::sqrt(1 - spring.dampingFraction * spring.dampingFraction);
}

} // namespace

double Spring::position(double seconds) const
{
    const double decay = dampingFraction * angularFrequency(*this);
    const double frequency = angularFrequency(*this) * swing(*this);
    const double phase = frequency * seconds;
    return 1 - std::exp(-decay * seconds) * (std::cos(phase) + decay / frequency * std::sin(phase));
}

double Spring::settlingTime() const
{
    constexpr double thousandth = 0.001;
    return -std::log(thousandth * swing(*this)) / (dampingFraction * angularFrequency(*this));
}
