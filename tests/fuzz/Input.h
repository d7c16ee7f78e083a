#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What each target defines: does its work with any bytes, and aborts where what must hold does not. The name is that
/// of libFuzzer's interface.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace tidlo {

inline QByteArray bytesOf(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
}

/// Ends the program, which makes the input one that is kept, unless \a holds.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "It does not hold that %s.\n", what);
    std::abort();
}

} // namespace tidlo
