#pragma once

#include <chrono>
#include <cstddef>

namespace tidlo::proxy {

inline constexpr size_t kilobyte = 1024; ///< Bytes.

/// The limits for clients. Each time covers the whole operation, however slowly bytes come.
struct Limits
{
    std::chrono::milliseconds toRead = std::chrono::seconds(20);  ///< From the connection to the request's end.
    std::chrono::milliseconds toWrite = std::chrono::seconds(10); ///< To send the answer.
    std::chrono::milliseconds toClose = std::chrono::seconds(2);  ///< For the client to read the answer and close.
    std::chrono::milliseconds toBegin = std::chrono::seconds(1);  ///< For a first byte, once the service stops.
    std::chrono::seconds idle{0};              ///< After this time without a connection the service stops; 0: never.
    size_t headBytes = 16 * kilobyte;          ///< The head of a request, or a line between two chunks.
    size_t bodyBytes = 256 * kilobyte;         ///< A body.
    size_t requestBytes = 512 * kilobyte;      ///< A whole request, with the lines between the chunks of its body.
    size_t allBodiesBytes = 65'536 * kilobyte; ///< The bodies of all requests together; a small one always passes.
    size_t connections = 2'048;                ///< At a time; more wait to be accepted.
    size_t connectionsOfAddress = 0;           ///< From one address at a time, 0: unlimited; more are closed.
    int perMinute = 0;                         ///< Questions of one device, 0: unlimited.
};

} // namespace tidlo::proxy
