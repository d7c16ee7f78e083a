#include "InstrumentedCalls.h"

#include <memory>

namespace tidlo {

namespace {

struct Counter
{
    Around around;
    int count = 0;
};

std::string pathAmong(int)
{
    return {};
}

template <typename Second, typename... Others>
std::string pathAmong(int, Second second, Others...)
{
    if constexpr (std::is_same_v<Second, const char *>)
        return second;
    return {};
}

template <typename Result, typename... Arguments>
void instrument(std::function<Result(Arguments...)> &call, const char *name, std::shared_ptr<Counter> counter)
{
    call = [real = call, name, counter](Arguments... arguments) {
        const Call now{.number = ++counter->count, .name = name, .path = pathAmong(arguments...)};
        return static_cast<Result>(counter->around(now, [&] { return static_cast<long>(real(arguments...)); }));
    };
}

} // namespace

SystemCalls instrumented(const Around &around, const SystemCalls &real)
{
    const auto counter = std::make_shared<Counter>(Counter{.around = around});
    SystemCalls calls = real;
    SystemCalls creating = real;
    instrument(calls.openat, "openat", counter);
    instrument(creating.openat, "create", counter);
    calls.openat = [open = calls.openat, create = creating.openat](int folder, const char *name, int flags,
                                                                   mode_t mode) {
        return ((flags & O_CREAT) != 0 ? create : open)(folder, name, flags, mode);
    };
    instrument(calls.openat2, "openat2", counter);
    instrument(calls.mkdirat, "mkdirat", counter);
    instrument(calls.statx, "statx", counter);
    instrument(calls.fstatvfs, "fstatvfs", counter);
    instrument(calls.readlinkat, "readlinkat", counter);
    instrument(calls.read, "read", counter);
    instrument(calls.pwrite, "pwrite", counter);
    instrument(calls.fsync, "fsync", counter);
    instrument(calls.close, "close", counter);
    instrument(calls.renameat2, "renameat2", counter);
    instrument(calls.unlinkat, "unlinkat", counter);
    return calls;
}

} // namespace tidlo
