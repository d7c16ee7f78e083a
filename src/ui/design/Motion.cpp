#include "ui/design/Motion.h"

#include "model/SpringAnimation.h"

#include <QPointF>

#include <cmath>
#include <limits>
#include <numbers>

namespace tidlo {

namespace {

constexpr double thousandth = 0.001;

double angularFrequency(const Spring &spring)
{
    return 2 * std::numbers::pi / spring.response;
}

/// The factor by which damping lowers the frequency of the oscillation.
double swing(const Spring &spring)
{
    return std::sqrt(1 - spring.dampingFraction * spring.dampingFraction);
}

/// The same factor for an overdamped spring.
double creep(const Spring &spring)
{
    return std::sqrt(spring.dampingFraction * spring.dampingFraction - 1);
}

/// When a spring that does not overshoot comes within a thousandth of 1, to the precision of a double.
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

constexpr Spring toggleSpring{.response = toggleAnimation.response, .dampingFraction = toggleAnimation.dampingFraction};
constexpr Spring gaugeSpring{.response = 0.8, .dampingFraction = 0.82};
constexpr Spring themeSpring{.response = 0.3, .dampingFraction = 0.8};
constexpr int shortFade = 100;

/// An easing curve calls a plain function, so there is one for each spring.
template <const Spring &spring>
qreal positionAt(qreal fraction)
{
    return fraction < 1 ? spring.position(fraction * spring.settlingTime()) : 1;
}

template <const Spring &spring>
SpringMotion motionOf()
{
    SpringMotion motion;
    motion.duration = static_cast<int>(std::lround(spring.settlingTime() * 1000));
    motion.easing.setCustomType(positionAt<spring>);
    return motion;
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

void Motion::setReduced(bool isReduced)
{
    if (isReduced == reduced)
        return;
    reduced = isReduced;
    Q_EMIT changed();
}

SpringMotion Motion::toggle() const
{
    return reduced ? SpringMotion() : motionOf<toggleSpring>();
}

SpringMotion Motion::gauge() const
{
    return reduced ? SpringMotion() : motionOf<gaugeSpring>();
}

int Motion::gaugeDelay() const
{
    return reduced ? 0 : 80;
}

SpringMotion Motion::theme() const
{
    return reduced ? SpringMotion{.duration = shortFade, .easing = easeInOut()} : motionOf<themeSpring>();
}

int Motion::longestFade() const
{
    return reduced ? shortFade : std::numeric_limits<int>::max();
}

QEasingCurve Motion::easeInOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    return curve;
}

} // namespace tidlo
