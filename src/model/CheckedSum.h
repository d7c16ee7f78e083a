#pragma once

#include <QtGlobal>

namespace tidlo {

/// The sum of two byte counts. A sum beyond 64 bits stops the program: a wrong figure must never be shown.
inline qint64 checkedSum(qint64 left, qint64 right)
{
    qint64 sum = 0;
    if (__builtin_add_overflow(left, right, &sum))
        qFatal("The sum of two byte counts does not fit 64 bits: %lld + %lld", left, right);
    return sum;
}

} // namespace tidlo
