#include "proxy/SocketDeadline.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// Two ends of a connection.
class Connection final
{
public:
    Connection() { EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0); }
    ~Connection()
    {
        close();
        ::close(ends[1]);
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    int near() const { return ends[0]; }
    int far() const { return ends[1]; }
    /// Closes the near end.
    void close() { ::close(std::exchange(ends[0], -1)); }

private:
    std::array<int, 2> ends{};
};

/// Waits until bytes come to \a socket; gives how many, 0 if it was ended.
ssize_t readFrom(int socket)
{
    std::array<char, 10> bytes{};
    return ::read(socket, bytes.data(), bytes.size());
}

SocketDeadline::Clock::time_point in(std::chrono::milliseconds time)
{
    return SocketDeadline::Clock::now() + time;
}

} // namespace

TEST(SocketDeadline, EndsWhatIsUnderWay)
{
    const Connection connection;
    SocketDeadline deadline(in(20ms));
    deadline.watch(connection.near());

    EXPECT_EQ(readFrom(connection.near()), 0);
}

TEST(SocketDeadline, EndsWhatBeginsAfterwardsToo)
{
    const Connection first;
    const Connection second;
    SocketDeadline deadline(in(0ms));
    deadline.watch(first.near());
    EXPECT_EQ(readFrom(first.near()), 0);

    deadline.watch(second.near());

    EXPECT_EQ(readFrom(second.near()), 0);
}

TEST(SocketDeadline, LeavesAloneWhatIsDoneInTime)
{
    const Connection connection;
    {
        SocketDeadline deadline(in(1h));
        deadline.watch(connection.near());
    }

    EXPECT_EQ(::write(connection.far(), "x", 1), 1);
    EXPECT_EQ(readFrom(connection.near()), 1);
}

TEST(SocketDeadline, LeavesAloneASocketThatHasTheNumberOfOneThatWasClosed)
{
    Connection closed;
    const int number = closed.near();
    SocketDeadline deadline(in(20ms));
    deadline.watch(number);
    closed.close();
    const Connection other;
    ASSERT_EQ(other.near(), number);

    EXPECT_EQ(readFrom(closed.far()), 0) << "its time is up";

    EXPECT_EQ(::write(other.far(), "x", 1), 1);
    EXPECT_EQ(readFrom(other.near()), 1);
}
