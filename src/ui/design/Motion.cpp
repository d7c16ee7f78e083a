#include "ui/design/Motion.h"

#include "ui/design/Spring.h"

#include <QPointF>

#include <cmath>

namespace tidlo {

namespace {

constexpr Spring toggleSpring{.response = 0.24, .dampingFraction = 0.86};
constexpr Spring gaugeSpring{.response = 0.8, .dampingFraction = 0.82};
constexpr Spring themeSpring{.response = 0.3, .dampingFraction = 0.8};

/// A curve calls a plain function, so there is one for each spring.
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

SpringMotion Motion::toggle()
{
    return motionOf<toggleSpring>();
}

SpringMotion Motion::gauge()
{
    return motionOf<gaugeSpring>();
}

int Motion::gaugeDelay()
{
    return 80;
}

SpringMotion Motion::theme()
{
    return motionOf<themeSpring>();
}

QEasingCurve Motion::easeInOut()
{
    QEasingCurve curve(QEasingCurve::BezierSpline);
    curve.addCubicBezierSegment({0.42, 0}, {0.58, 1}, {1, 1});
    return curve;
}

} // namespace tidlo
