#pragma once

#include <array>
#include <atomic>
#include <initializer_list>

namespace tidlo {

/// How calls of the system, and of the C and C++ libraries, are bent in this program, for all of its threads.
struct Bends
{
    enum class Call {
        openat,
        openat2,
        getdents,
        statx,
        fstat,
        faccessat,
        statvfs,
        open,
        sendfile,
        fchmod,
        utimensat,
        pwrite,
        fsync,
        count
    };

    static constexpr int unlimited = 1 << 30;

    /// With what error calls of a kind fail, one of so many of each thread's; 0 where none does.
    std::array<std::atomic<int>, static_cast<size_t>(Call::count)> errors{};
    std::atomic<int> period = 2;

    std::atomic<int> batches = unlimited;     ///< How many more batches of a listing are read; then an error is told.
    std::atomic<bool> hidesKinds = false;     ///< Listings do not tell what an entry is.
    std::atomic<bool> hidesRoom = false;      ///< Of 2,000 free blocks of 4,096 bytes, half are free for root alone.
    std::atomic<int> threads = unlimited;     ///< How many more threads can be started.
    std::atomic<int> allocations = unlimited; ///< How many more allocations with "new" succeed before one fails.
    std::atomic<bool> staysFull = false;      ///< After that one, all others fail as well.
    std::atomic<int> batchesRead = 0;         ///< Batches of listings that were asked for.

    void bendEvery(std::initializer_list<Call> calls, int error);
    /// As it was.
    void straighten();
};

extern Bends bends;

/// Straightens all when it goes.
struct Straightener
{
    ~Straightener() { bends.straighten(); }
};

} // namespace tidlo
