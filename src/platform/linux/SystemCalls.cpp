#include "platform/linux/SystemCalls.h"

#include "platform/Descriptor.h"

namespace tidlo {

namespace {

template <typename Result, typename... Arguments>
void repeat(std::function<Result(Arguments...)> &call)
{
    call = [once = std::move(call)](Arguments... arguments) {
        return tidlo::uninterrupted([&] { return once(arguments...); });
    };
}

} // namespace

SystemCalls uninterrupted(SystemCalls calls)
{
    repeat(calls.openat);
    repeat(calls.openat2);
    repeat(calls.mkdirat);
    repeat(calls.statx);
    repeat(calls.fstatvfs);
    repeat(calls.readlinkat);
    repeat(calls.read);
    repeat(calls.pwrite);
    repeat(calls.fsync);
    repeat(calls.renameat2);
    repeat(calls.unlinkat);
    return calls;
}

} // namespace tidlo
