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

/// A spring as an animation of QML takes it, or what stands for it where motion is reduced.
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

/// The motions that several views share. Times are milliseconds. Where motion is reduced nothing swings, what would
/// move is there at once, and what moves for ever stands still; colours and what appears may fade, shortly. Main
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
    int longestFade() const;     ///< What a fade may take at most; without end unless motion is reduced.

    /// The platform's curve that begins and ends gently: a cubic Bezier with the control points (0.42, 0), (0.58, 1).
    static QEasingCurve easeInOut();

Q_SIGNALS:
    void changed();

private:
    bool reduced = false;
};

} // namespace tidlo
