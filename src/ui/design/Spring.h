#pragma once

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

} // namespace tidlo
