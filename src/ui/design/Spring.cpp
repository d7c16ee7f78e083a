#include "ui/design/Spring.h"

#include <cmath>
#include <numbers>

namespace tidlo {

namespace {

constexpr double thousandth = 0.001;

double angularFrequency(const Spring &spring)
{
    return 2 * std::numbers::pi / spring.response;
}

/// How much the damping slows the swing down.
double swing(const Spring &spring)
{
    return std::sqrt(1 - spring.dampingFraction * spring.dampingFraction);
}

/// The same of a spring that creeps instead.
double creep(const Spring &spring)
{
    return std::sqrt(spring.dampingFraction * spring.dampingFraction - 1);
}

/// When a spring that does not swing over comes within a thousandth, to the precision of a double.
double timeOfCreeping(const Spring &spring)
{
    double early = 0;
    double late = spring.response;
    while (spring.position(late) < 1 - thousandth)
        late *= 2;
    for (double middle = late / 2; early < middle && middle < late; middle = (early + late) / 2) {
        if (spring.position(middle) < 1 - thousandth)
            early = middle;
        else
            late = middle;
    }
    return late;
}

} // namespace

double Spring::position(double seconds) const
{
    const double phase = angularFrequency(*this) * seconds;
    const double decayed = std::exp(-dampingFraction * phase);
    if (dampingFraction < 1) {
        const double swung = swing(*this) * phase;
        return 1 - decayed * (std::cos(swung) + dampingFraction / swing(*this) * std::sin(swung));
    }
    if (dampingFraction > 1) {
        const double slow = std::exp((creep(*this) - dampingFraction) * phase);
        const double quick = std::exp((-creep(*this) - dampingFraction) * phase);
        return 1 - (slow + quick) / 2 - dampingFraction / creep(*this) * (slow - quick) / 2;
    }
    return 1 - decayed * (1 + phase);
}

double Spring::settlingTime() const
{
    if (dampingFraction >= 1)
        return timeOfCreeping(*this);
    return -std::log(thousandth * swing(*this)) / (dampingFraction * angularFrequency(*this));
}

} // namespace tidlo
