#include "cli/Output.h"

#include "platform/Descriptor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace tidlo {

namespace {

/// Far more than a pipe holds, so that the writer must wait for the reader again and again.
const QByteArray text(1 << 20, 'x');

/// Writes the text into \a pipe while another thread reads it and calls \a between before each read. Returns whether
/// that thread has read all of it.
bool isWrittenWhole(Pipe &pipe, const std::function<void()> &between)
{
    QByteArray received;
    std::thread reader([&] {
        std::array<char, 4096> part{};
        ssize_t count = 0;
        do {
            between();
            count = read(pipe.readEnd.get(), part.data(), part.size());
            received.append(part.data(), std::max<ssize_t>(count, 0));
        } while (count > 0);
    });
    EXPECT_EQ(writeAll(pipe.writeEnd.get(), text), 0);
    pipe.writeEnd = Descriptor();
    reader.join();
    return received == text;
}

std::atomic<int> signalsHeard = 0;

} // namespace

TEST(Output, IsWrittenWholeWhereTheReaderIsSlowAndWritingDoesNotWait)
{
    Pipe pipe = openPipe();
    ASSERT_EQ(fcntl(pipe.writeEnd.get(), F_SETFL, O_NONBLOCK), 0);
    EXPECT_TRUE(isWrittenWhole(pipe, [] {}));
}

TEST(Output, IsWrittenWholeThoughSignalsInterruptIt)
{
    struct sigaction former = {};
    struct sigaction hearing = {}; // Without SA_RESTART: a signal interrupts a waiting call.
    hearing.sa_handler = [](int) { ++signalsHeard; };
    ASSERT_EQ(sigaction(SIGUSR1, &hearing, &former), 0);
    const pthread_t writer = pthread_self();
    Pipe pipe = openPipe();

    EXPECT_TRUE(isWrittenWhole(pipe, [writer] {
        for (int signal = 0; signal < 3; ++signal) {
            const int before = signalsHeard;
            pthread_kill(writer, SIGUSR1);
            while (signalsHeard == before)
                std::this_thread::yield();
        }
    }));

    sigaction(SIGUSR1, &former, nullptr);
}

} // namespace tidlo
