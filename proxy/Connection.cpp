#include "proxy/Connection.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <limits>

#include <boost/asio/post.hpp>

namespace tidlo::proxy {
namespace {

namespace http = boost::beast::http;

std::string headOf(const Answer &answer)
{
    const auto reason = http::obsolete_reason(static_cast<http::status>(answer.status));
    std::string head = "HTTP/1.1 " + std::to_string(answer.status) + ' ' + std::string(reason) +
                       "\r\nContent-Type: application/json\r\nCache-Control: no-store\r\nConnection: close"
                       "\r\nContent-Length: " +
                       std::to_string(answer.body.size());
    if (!answer.allow.isEmpty())
        head += "\r\nAllow: " + answer.allow.toStdString();
    if (answer.retryAfter > 0)
        head += "\r\nRetry-After: " + std::to_string(answer.retryAfter);
    return head + "\r\n\r\n";
}

} // namespace

Connection::Connection(Service *shared, tcp::socket socket, Places::Place taken)
    : place(std::move(taken))
    , service(*shared)
    , limits(service.limits)
    , stream(std::move(socket))
    , share(&service.bodies)
{
    parser.header_limit(static_cast<std::uint32_t>(limits.headBytes));
    parser.body_limit(boost::none);
    service.silent.insert(&stream);
    stream.within(service.isStopping ? limits.toBegin : limits.toRead);
}

Task<void> Connection::run(std::unique_ptr<Connection> connection)
{
    std::optional<Answer> answer = co_await connection->answer();
    if (connection->received == 0)
        co_return; // The client sent nothing.
    if (!answer)
        answer = refusal(Refusal::failed);
    co_await connection->send(*answer);
    co_await connection->finish();
}

Task<std::optional<Answer>> Connection::answer()
try {
    if (!co_await stream.encryptWhenAsked(service.tls.get()))
        co_return std::nullopt;
    std::optional<Answer> answer = co_await readHead();
    if (!answer)
        answer = co_await readBody();
    if (!answer) {
        std::string body;
        body.swap(parser.get().body());
        answer = co_await service.explain(std::move(body));
    }
    share.release();
    co_return answer;
} catch (const std::exception &) { // Above all std::bad_alloc.
    co_return std::nullopt;
}

Task<std::optional<Answer>> Connection::readHead()
{
    while (!parser.is_header_done()) {
        if (!co_await readMore())
            co_return refusal(Refusal::notWhole);
        const error_code error = parse();
        const size_t head = received - (parser.is_header_done() ? pending.size() : 0);
        if (head > limits.headBytes || error == http::error::header_limit)
            co_return refusal(Refusal::headTooLong);
        if (error)
            co_return refusal(Refusal::badRequest);
    }
    if (const auto answer = answerToHead(parser, limits.bodyBytes))
        co_return answer;
    const std::string device(parser.get()["X-Device-UUID"]);
    const std::chrono::seconds wait = service.limiter.admit(QByteArray::fromStdString(device), Clock::now());
    if (wait.count() > 0)
        co_return tooOften(static_cast<int>(wait.count()));
    co_return std::nullopt;
}

Task<std::optional<Answer>> Connection::readBody()
{
    const bool isWaiting = boost::beast::iequals(parser.get()[http::field::expect], "100-continue");
    if (isWaiting)
        co_await stream.write("HTTP/1.1 100 Continue\r\n\r\n");
    parser.eager(true);
    for (;;) {
        if (parse() || pending.size() > limits.headBytes)
            co_return refusal(Refusal::badRequest);
        const size_t length = parser.get().body().size();
        if (length > limits.bodyBytes || received > limits.requestBytes)
            co_return refusal(Refusal::tooLong);
        // All of it at once: bodies that each hold a part and wait for more could wait for each other forever.
        const bool isSmall = length <= BodyBudget::alwaysPasses;
        const size_t held = isSmall ? length : parser.content_length().value_or(limits.bodyBytes);
        if (!co_await share.hold(held, stream.deadline())) {
            std::string().swap(parser.get().body());
            co_return refusal(Refusal::busy);
        }
        if (parser.is_done())
            co_return std::nullopt;
        if (!co_await readMore())
            co_return refusal(Refusal::notWhole);
    }
}

Task<void> Connection::send(Answer answer)
{
    std::fprintf(stderr, "%s %d%s%s\n", nameForLog(parser), answer.status, answer.error.isEmpty() ? "" : " ",
                 answer.error.constData());
    std::string bytes = headOf(answer);
    if (parser.get().method() != http::verb::head)
        bytes += answer.body.toStdString();
    stream.within(limits.toWrite);
    co_await stream.write(bytes);
}

/// How many bytes of a refused request the client has yet to send, if that is known.
uint64_t Connection::unsent() const
{
    if (parser.is_done())
        return 0;
    if (!parser.is_header_done() || !parser.content_length_remaining())
        return std::numeric_limits<uint64_t>::max();
    return *parser.content_length_remaining() - std::min<uint64_t>(*parser.content_length_remaining(), pending.size());
}

/// Gives the client time to send the rest, which is thrown away: clients read nothing while they send.
Task<void> Connection::finish()
{
    stream.within(limits.toClose);
    const uint64_t end = unsent();
    const size_t before = received;
    while (received - before < end && !stream.isLate()) {
        pending.clear();
        if (!co_await readMore())
            break;
        co_await asio::post(asio::use_awaitable); // Lets other connections run, however fast this client sends.
    }
    co_await stream.leave();
}

Task<bool> Connection::readMore()
{
    std::array<char, 2048> bytes; // NOLINT: filled by the read below.
    const size_t count = co_await stream.read(bytes);
    if (received == 0 && count > 0 && service.silent.erase(&stream) > 0 && service.isStopping)
        stream.within(limits.toRead);
    received += count;
    pending.append(bytes.data(), count);
    co_return count > 0;
}

/// Parses as much of the pending bytes as possible: first only the head, then the body.
error_code Connection::parse()
{
    const bool hadHead = parser.is_header_done();
    error_code error;
    while (!error && !pending.empty() && !parser.is_done() && hadHead == parser.is_header_done())
        pending.erase(0, parser.put(asio::buffer(pending), error));
    if (pending.empty())
        std::string().swap(pending); // Frees the memory, since thousands of connections may wait for the rest.
    return error == http::error::need_more ? error_code() : error;
}

} // namespace tidlo::proxy
