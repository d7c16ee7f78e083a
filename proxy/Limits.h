#pragma once

#include <chrono>
#include <cstddef>

namespace tidlo::proxy {

inline constexpr size_t kilobyte = 1024; ///< In bytes.

/// What clients may take. Times are for the whole of what they name, however slowly bytes come.
struct Limits
{
    std::chrono::milliseconds toRead = std::chrono::seconds(20);  ///< From the connection's start to the request's end.
    std::chrono::milliseconds toWrite = std::chrono::seconds(10); ///< The answer.
    std::chrono::milliseconds toClose = std::chrono::seconds(2);  ///< For the client to take the answer and leave.
    std::chrono::milliseconds toBegin = std::chrono::seconds(1);  ///< For a client to ask, once the service stops.
    std::chrono::seconds idle{0};         ///< Without a connection, after which the service stops; 0 for never.
    size_t headBytes = 16 * kilobyte;     ///< The lines in front of a body, or a line between two chunks of it.
    size_t bodyBytes = 256 * kilobyte;    ///< A body.
    size_t requestBytes = 512 * kilobyte; ///< A whole request, with whatever stands between the chunks of its body.
    size_t allBodiesBytes = 65'536 * kilobyte; ///< The bodies of all requests together; a small one always passes.
    size_t connections = 2'048;                ///< At a time; more wait until they are accepted.
    size_t connectionsOfAddress = 0;           ///< Of one address at a time, 0 for any number; more are turned away.
    int perMinute = 0;                         ///< Questions of one device, 0 for any number.
};

} // namespace tidlo::proxy
