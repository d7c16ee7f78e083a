#include "proxy/Connection.h"

#include "fuzz/Input.h"
#include "proxy/OfflineExplanation.h"

#include <algorithm>
#include <array>
#include <string_view>

#include <sys/socket.h>
#include <unistd.h>

namespace tidlo::proxy {

namespace {

Task<Answer> explain(std::string body)
{
    const auto prompt = readPrompt(body);
    const auto *refused = std::get_if<Answer>(&prompt);
    co_return refused != nullptr ? *refused : explanation(offlineExplanation(std::get<QString>(prompt)));
}

/// Sends \a bytes to a fresh service, \a part of them at a time, and returns all that it answers.
std::string answerTo(std::string_view bytes, size_t part)
{
    asio::io_context loop(1);
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        std::abort();
    Service service{.explain = explain, .tls = nullptr, .limits = {}};
    Places places(1, 0, [] {});
    tcp::socket socket(loop);
    socket.assign(tcp::v4(), ends[0]);
    auto connection = std::make_unique<Connection>(&service, std::move(socket), places.take({}));
    asio::co_spawn(loop, Connection::run(std::move(connection)), asio::detached);
    while (!bytes.empty()) {
        loop.poll();
        const std::string_view now = bytes.substr(0, part);
        if (send(ends[1], now.data(), now.size(), MSG_NOSIGNAL | MSG_DONTWAIT) != static_cast<ssize_t>(now.size()))
            break; // It has stopped reading.
        bytes.remove_prefix(now.size());
    }
    shutdown(ends[1], SHUT_WR);
    loop.run();
    std::string said;
    std::array<char, 4096> read{};
    for (ssize_t count = 1; count > 0; said.append(read.data(), static_cast<size_t>(count)))
        count = std::max<ssize_t>(recv(ends[1], read.data(), read.size(), 0), 0);
    close(ends[1]);
    return said;
}

void check(std::string_view said)
{
    constexpr std::string_view goOn = "HTTP/1.1 100 Continue\r\n\r\n";
    if (said.starts_with(goOn))
        said.remove_prefix(goOn.size());
    const size_t headEnd = said.find("\r\n\r\n");
    require(said.starts_with("HTTP/1.1 ") && headEnd != std::string_view::npos, "whoever asks gets an answer");
    const std::string_view head = said.substr(0, headEnd);
    const std::string_view body = said.substr(headEnd + 4);
    constexpr std::string_view statuses = "200 400 404 405 408 411 413 414 415 431 501";
    require(statuses.find(head.substr(9, 3)) != std::string_view::npos, "an answer has a status that is known");
    const std::string length = "\r\nContent-Length: " + std::to_string(body.size());
    require(body.empty() || (std::string(head) + "\r\n").find(length + "\r\n") != std::string::npos,
            "an answer is whole, and there is one");
}

} // namespace

} // namespace tidlo::proxy

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo::proxy;
    if (size < 2)
        return 0;
    constexpr size_t large = 200;
    const size_t part = data[0] < large ? data[0] + 1U : size;
    const std::string_view bytes(reinterpret_cast<const char *>(data + 1), size - 1);
    const std::string said = answerTo(bytes, part);
    check(said);
    // For a refused request, the error that is found first depends on the parts.
    const auto isTaken = [](const std::string &all) { return all.find("HTTP/1.1 200 ") != std::string::npos; };
    tidlo::require(isTaken(answerTo(bytes, bytes.size())) == isTaken(said), "how a question comes in decides nothing");
    return 0;
}
