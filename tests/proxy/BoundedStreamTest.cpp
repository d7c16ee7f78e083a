#include "proxy/BoundedStream.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include <sys/socket.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// A stream without TLS, and its other end.
class BoundedStreamTest : public testing::Test
{
protected:
    void TearDown() override { ::close(client); }

    BoundedStream streamWithin(const ConnectionLimits &limits)
    {
        std::array<int, 2> ends{};
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
        client = ends[1];
        return BoundedStream(ends[0], nullptr, limits, -1);
    }

    void send(const std::string &bytes) const
    {
        EXPECT_EQ(::write(client, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    int client = -1;
};

/// How many bytes of \a stream can be read.
size_t readable(BoundedStream &stream)
{
    std::array<char, 100> bytes;
    size_t sum = 0;
    for (ssize_t count = 0; (count = stream.read(bytes.data(), bytes.size())) > 0;)
        sum += static_cast<size_t>(count);
    return sum;
}

/// How many bytes of \a text can be written to \a stream.
size_t writtenOf(const std::string &text, BoundedStream &stream)
{
    size_t sum = 0;
    while (sum < text.size()) {
        const ssize_t count = stream.write(text.data() + sum, text.size() - sum);
        if (count < 0)
            break;
        sum += static_cast<size_t>(count);
    }
    return sum;
}

} // namespace

TEST_F(BoundedStreamTest, ReadsNoMoreThanAHeadUntilItIsTold)
{
    BoundedStream stream = streamWithin({.headBytes = 4'096, .requestBytes = 12'288});
    send(std::string(20'000, 'x'));

    EXPECT_EQ(readable(stream), 4'096U);
    stream.headIsRead();
    EXPECT_EQ(readable(stream), 8'192U);
}

TEST_F(BoundedStreamTest, GivesTheAnswerItsWholeTimeAfterAWordInBetween)
{
    constexpr auto toWrite = 500ms;
    BoundedStream stream = streamWithin({.toWrite = toWrite, .toClose = 1ms});
    stream.write("go on", 5);
    std::this_thread::sleep_for(toWrite); // As a slow client does, then a slow model.
    send("x");
    char byte = 0;
    ASSERT_EQ(stream.read(&byte, 1), 1);
    const std::jthread reader([this] {
        std::array<char, 65'536> bytes;
        while (::read(client, bytes.data(), bytes.size()) > 0) {
        }
    });

    const std::string answer(2'000'000, 'x'); // More than the system takes at once.
    EXPECT_EQ(writtenOf(answer, stream), answer.size());
    stream.finish(0);
}
