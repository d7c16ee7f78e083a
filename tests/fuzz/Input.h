#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Defined by each target: works on the given bytes, and aborts if an invariant does not hold. The name is that of
/// libFuzzer's interface.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace tidlo {

inline QByteArray bytesOf(const uint8_t *data, size_t size)
{
    return QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
}

/// Aborts the program unless \a holds; the fuzzer then keeps the input.
inline void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "It does not hold that %s.\n", what);
    std::abort();
}

} // namespace tidlo
