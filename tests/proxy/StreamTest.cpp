#include "proxy/Stream.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tidlo::proxy {
namespace {

using namespace std::chrono_literals;

/// Two ends of a connection, one of them a stream, on one loop.
class StreamTest : public testing::Test
{
protected:
    StreamTest()
        : stream(connected())
    {}

    /// With small buffers, so that each end soon has to wait for the other.
    tcp::socket connected()
    {
        constexpr int small = 16'384;
        tcp::acceptor acceptor(loop, {asio::ip::address_v4::loopback(), 0});
        client.open(tcp::v4());
        client.set_option(tcp::socket::receive_buffer_size(small));
        client.connect(acceptor.local_endpoint());
        tcp::socket accepted = acceptor.accept();
        accepted.set_option(tcp::socket::send_buffer_size(small));
        return accepted;
    }

    asio::io_context loop;
    tcp::socket client{loop};
    Stream stream;
};

Task<void> writeAll(Stream *stream, std::string text, bool *isWritten)
{
    co_await stream->encryptWhenAsked(nullptr);
    stream->within(300ms);
    *isWritten = co_await stream->write(text);
}

/// Reads a little at a time until the end.
Task<void> readSlowly(tcp::socket *socket, size_t *count)
{
    co_await socket->async_send(asio::buffer("x", 1), asTuple());
    asio::steady_timer pause(co_await asio::this_coro::executor);
    std::array<char, 16'384> bytes{};
    for (;;) {
        pause.expires_after(5ms);
        co_await pause.async_wait(asTuple());
        const auto [error, read] = co_await socket->async_read_some(asio::buffer(bytes), asTuple());
        *count += read;
        if (error)
            co_return;
    }
}

Task<void> readWithin(Stream *stream, std::chrono::milliseconds time, size_t *count)
{
    co_await stream->encryptWhenAsked(nullptr);
    stream->within(time);
    std::array<char, 10> bytes{};
    while (const size_t read = co_await stream->read(bytes))
        *count += read;
}

/// Writes a byte at a time until that fails.
Task<void> drip(tcp::socket *socket)
{
    asio::steady_timer pause(co_await asio::this_coro::executor);
    for (;;) {
        const auto [error, written] = co_await socket->async_send(asio::buffer("x", 1), asTuple());
        if (error)
            co_return;
        pause.expires_after(10ms);
        co_await pause.async_wait(asTuple());
    }
}

} // namespace

TEST_F(StreamTest, WritesWithinOneDeadlineHoweverSlowlyTheOtherEndReads)
{
    bool isWritten = true;
    size_t count = 0;
    asio::co_spawn(loop, writeAll(&stream, std::string(4'000'000, 'x'), &isWritten),
                   [&](const std::exception_ptr &) { client.close(); });
    asio::co_spawn(loop, readSlowly(&client, &count), asio::detached);
    loop.run();

    EXPECT_FALSE(isWritten);
    EXPECT_TRUE(stream.isLate());
    EXPECT_GT(count, 0U);
}

TEST_F(StreamTest, ReadsWithinOneDeadlineHoweverSlowlyTheOtherEndWrites)
{
    size_t count = 0;
    asio::co_spawn(loop, readWithin(&stream, 100ms, &count), [&](const std::exception_ptr &) { client.close(); });
    asio::co_spawn(loop, drip(&client), asio::detached);
    loop.run();

    EXPECT_TRUE(stream.isLate());
    EXPECT_GT(count, 0U);
}

TEST_F(StreamTest, CanBeUsedAgainWithANewDeadline)
{
    size_t count = 0;
    asio::co_spawn(loop, readWithin(&stream, 1ms, &count), asio::detached);
    client.send(asio::buffer("x", 1));
    loop.run();
    EXPECT_TRUE(stream.isLate());

    bool isWritten = false;
    client.send(asio::buffer("x", 1));
    asio::co_spawn(loop, writeAll(&stream, "late", &isWritten), [&](const std::exception_ptr &) { loop.stop(); });
    loop.restart();
    loop.run();

    EXPECT_TRUE(isWritten);
}

} // namespace tidlo::proxy
