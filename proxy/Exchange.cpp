#include "proxy/Exchange.h"

#include "proxy/Limits.h"
#include "proxy/Stream.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

namespace tidlo::proxy {
namespace {

namespace http = boost::beast::http;
using Parser = http::response_parser<http::string_body>;
using Endpoints = std::vector<tcp::endpoint>;

constexpr size_t longestHead = 64 * kilobyte;
constexpr size_t longestBody = 1'024 * kilobyte;
constexpr size_t longestReply = 2 * longestBody; ///< Includes what separates chunks, and interim replies.
constexpr std::chrono::seconds toConnect(10);    ///< Per address of a server.

/// The addresses of \a host, as far as they are known in time. The system's look-up of a name cannot be cancelled, so
/// only the waiting ends early.
Task<Endpoints> lookUp(std::string host, std::string port, Clock::time_point deadline)
{
    const auto executor = co_await asio::this_coro::executor;
    const auto found = std::make_shared<Endpoints>();
    const auto waiting = std::make_shared<asio::steady_timer>(executor, deadline);
    tcp::resolver resolver(executor);
    resolver.async_resolve(host, port, [=](error_code, const tcp::resolver::results_type &results) {
        for (const auto &result : results)
            found->push_back(result.endpoint());
        waiting->expires_at(Clock::time_point::min());
    });
    while (Clock::now() < waiting->expiry())
        co_await waiting->async_wait(asTuple());
    co_return *found;
}

/// Connects \a stream to \a server, with encryption unless it is plain HTTP; returns whether that succeeded.
Task<bool> connect(Stream *stream, QUrl server, SSL_CTX *tls, Clock::time_point deadline)
{
    const bool isPlain = server.scheme() == QStringLiteral("http");
    const std::string host = server.host(QUrl::FullyEncoded).toStdString();
    const Endpoints endpoints = co_await lookUp(host, std::to_string(server.port(isPlain ? 80 : 443)), deadline);
    for (const tcp::endpoint &endpoint : endpoints) {
        if (isPlain && !endpoint.address().is_loopback())
            continue;
        stream->until(std::min(Clock::now() + toConnect, deadline));
        const bool isConnected = co_await stream->connect(endpoint);
        stream->until(deadline);
        if (isConnected)
            co_return stream->encryptTo(isPlain ? nullptr : tls, host.c_str());
    }
    co_return false;
}

void prepare(std::optional<Parser> &parser)
{
    parser.emplace();
    parser->header_limit(longestHead);
    parser->body_limit(longestBody);
    parser->eager(true);
}

/// Feeds \a parser with \a pending, as much as it takes; skips interim replies.
error_code parse(std::optional<Parser> &parser, std::string &pending)
{
    error_code error;
    while (!error && !pending.empty() && !parser->is_done()) {
        pending.erase(0, parser->put(asio::buffer(pending), error));
        if (parser->is_done() && parser->get().result_int() / 100 == 1)
            prepare(parser);
    }
    return error == http::error::need_more ? error_code() : error;
}

/// The reply that \a parser has read, if it is complete.
Reply whole(Parser &parser)
{
    const int status = static_cast<int>(parser.get().result_int());
    if (status != 200)
        return {.outcome = Reply::Outcome::whole, .status = status};
    if (!parser.get()[http::field::content_encoding].empty())
        return {.outcome = Reply::Outcome::unusable};
    return {.outcome = Reply::Outcome::whole, .status = status, .body = std::move(parser.get().body())};
}

Task<Reply> readReply(Stream *stream)
{
    std::optional<Parser> parser;
    prepare(parser);
    std::string pending;
    std::array<char, 4096> bytes; // NOLINT: filled by what is read.
    size_t received = 0;
    for (;;) {
        const size_t count = co_await stream->read(bytes);
        received += count;
        pending.append(bytes.data(), count);
        error_code error = parse(parser, pending);
        if (count == 0 && parser->got_some() && !error)
            parser->put_eof(error);
        if (error == http::error::body_limit || received > longestReply)
            co_return Reply{.outcome = Reply::Outcome::unusable};
        const bool isError = parser->is_header_done() && parser->get().result_int() != 200; // Its body is not read.
        if (!error && (parser->is_done() || isError))
            co_return whole(*parser);
        if (error || count == 0 || pending.size() > longestHead)
            co_return Reply{.outcome = Reply::Outcome::unreachable};
    }
}

} // namespace

Task<Reply> exchange(QUrl server, std::shared_ptr<SSL_CTX> tls, std::string request, Clock::time_point deadline)
{
    Stream stream{tcp::socket(co_await asio::this_coro::executor)};
    stream.until(deadline);
    Reply reply;
    if (co_await connect(&stream, server, tls.get(), deadline)) {
        co_await stream.write(request); // A server that does not take all of it may have answered already.
        reply = co_await readReply(&stream);
    }
    if (Clock::now() >= deadline)
        reply.outcome = Reply::Outcome::late;
    co_return reply;
}

} // namespace tidlo::proxy
