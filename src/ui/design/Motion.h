#pragma once

#include <QEasingCurve>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// The motion of a mass of 1 on a damped spring, from 0, at rest, to 1: stiffness (2 pi / response)^2, damping
/// 4 pi dampingFraction / response.
struct Spring
{
    double response = 0;        ///< Seconds of one swing if it were not damped; above 0.
    double dampingFraction = 1; ///< Above 0. Below 1, which is critical, it swings over.

    /// Where the mass is after \a seconds.
    double position(double seconds) const;

    /// Seconds after which it stays within a thousandth of 1.
    double settlingTime() const;
};

/// A spring as an animation of QML takes it.
struct SpringMotion
{
    Q_GADGET
    QML_VALUE_TYPE(springMotion)
    Q_PROPERTY(int duration MEMBER duration)
    Q_PROPERTY(QEasingCurve easing MEMBER easing)

public:
    int duration = 0; ///< Milliseconds until the spring has settled.
    QEasingCurve easing;
};

/// The motions that several views share. Times are milliseconds.
class Motion : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(tidlo::SpringMotion toggle READ toggle CONSTANT)
    Q_PROPERTY(tidlo::SpringMotion gauge READ gauge CONSTANT)
    Q_PROPERTY(tidlo::SpringMotion theme READ theme CONSTANT)
    Q_PROPERTY(int gaugeDelay READ gaugeDelay CONSTANT)
    Q_PROPERTY(QEasingCurve easeInOut READ easeInOut CONSTANT)

public:
    static SpringMotion toggle(); ///< A row is ticked.
    static SpringMotion gauge();  ///< A ring grows to its value when it appears,
    static int gaugeDelay();      ///< after this wait.
    static SpringMotion theme();  ///< The colours change.

    /// The platform's curve that begins and ends gently: a cubic Bezier with the control points (0.42, 0), (0.58, 1).
    static QEasingCurve easeInOut();
};

} // namespace tidlo
