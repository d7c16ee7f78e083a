#pragma once

#include <array>
#include <atomic>
#include <initializer_list>

namespace tidlo {

/// How system calls, and functions of the C and C++ libraries, are changed in this program, for all of its threads.
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

    /// The error for each kind of call; it hits one of every few calls of each thread. 0: none fails.
    std::array<std::atomic<int>, static_cast<size_t>(Call::count)> errors{};
    std::atomic<int> period = 2;
    /// If set, these calls fail just once instead: after so many more that succeed. Less than 0 when that has happened.
    std::atomic<int> allowed = unlimited;

    std::atomic<int> batches = unlimited;     ///< How many more batches of a listing are read; the next one fails.
    std::atomic<bool> hidesKinds = false;     ///< Listings do not say what kind an entry is.
    std::atomic<bool> hidesRoom = false;      ///< Of 2,000 free blocks of 4,096 bytes, half are free only for root.
    std::atomic<int> threads = unlimited;     ///< How many more threads can be started.
    std::atomic<int> allocations = unlimited; ///< How many more allocations with "new" succeed before one fails.
    std::atomic<bool> staysFull = false;      ///< After the first failure, all others fail as well.
    std::atomic<int> batchesRead = 0;         ///< Batches of listings that were requested.

    void bendEvery(std::initializer_list<Call> calls, int error);
    /// Undoes all changes.
    void straighten();
};

extern Bends bends;

/// Undoes all changes when it is destroyed.
struct Straightener
{
    ~Straightener() { bends.straighten(); }
};

} // namespace tidlo
