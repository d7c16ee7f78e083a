#pragma once

#include <QEasingCurve>
#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tidlo {

/// The motion of a mass of 1 on a damped spring, from 0, at rest, to 1: stiffness (2 pi / response)^2, damping
/// 4 pi dampingFraction / response.
struct Spring
{
    double response = 0;        ///< Seconds of one oscillation without damping; above 0.
    double dampingFraction = 1; ///< Above 0. Below 1, which is critical damping, it overshoots.

    /// The position after \a seconds.
    double position(double seconds) const;

    /// The seconds after which it stays within a thousandth of 1.
    double settlingTime() const;
};

/// A spring as a QML animation takes it, or its replacement where motion is reduced.
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

/// The motions that several views share. Times are in milliseconds. Where motion is reduced, nothing overshoots,
/// movements end at once and endless animations stand still; colours and appearing items may still fade, briefly. Main
/// thread.
class Motion : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isReduced READ isReduced WRITE setReduced NOTIFY changed)
    Q_PROPERTY(tidlo::SpringMotion toggle READ toggle NOTIFY changed)
    Q_PROPERTY(tidlo::SpringMotion gauge READ gauge NOTIFY changed)
    Q_PROPERTY(tidlo::SpringMotion theme READ theme NOTIFY changed)
    Q_PROPERTY(int gaugeDelay READ gaugeDelay NOTIFY changed)
    Q_PROPERTY(int longestFade READ longestFade NOTIFY changed)
    Q_PROPERTY(QEasingCurve easeInOut READ easeInOut CONSTANT)

public:
    bool isReduced() const { return reduced; }
    void setReduced(bool isReduced);

    SpringMotion toggle() const; ///< A row is ticked.
    SpringMotion gauge() const;  ///< A ring grows to its value when it appears,
    int gaugeDelay() const;      ///< after this wait.
    SpringMotion theme() const;  ///< The colours change.
    int longestFade() const;     ///< The longest that a fade may take; unlimited unless motion is reduced.

    /// The platform's curve that begins and ends gently: a cubic Bezier with the control points (0.42, 0), (0.58, 1).
    static QEasingCurve easeInOut();

Q_SIGNALS:
    void changed();

private:
    bool reduced = false;
};

} // namespace tidlo
