#include "proxy/BoundedStream.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

BIO *layers(socket_t socket, SSL_CTX *tls)
{
    BIO *plain = BIO_new_socket(socket, BIO_NOCLOSE);
    if (tls == nullptr)
        return plain;
    constexpr int asServer = 0;
    BIO *encrypting = BIO_new_ssl(tls, asServer);
    return BIO_push(encrypting, plain);
}

int milliseconds(std::chrono::steady_clock::duration rest)
{
    using std::chrono::milliseconds;
    return static_cast<int>(std::max(std::chrono::ceil<milliseconds>(rest), milliseconds(0)).count());
}

} // namespace

BoundedStream::BoundedStream(socket_t socket, SSL_CTX *tls, const ConnectionLimits &limits, int stopping)
    : descriptor(socket)
    , limits(limits)
    , stopping(stopping)
    , readDeadline(Clock::now() + limits.toRead)
    , bio(layers(socket, tls))
    , isEncrypted(tls != nullptr)
    , mostBytes(limits.headBytes)
{
    ::fcntl(socket, F_SETFL, ::fcntl(socket, F_GETFL) | O_NONBLOCK);
}

BoundedStream::~BoundedStream()
{
    bio.reset();
    ::close(descriptor);
}

bool BoundedStream::hasRequest()
{
    return taken < filled || fill();
}

void BoundedStream::finish(size_t rest)
{
    const Clock::time_point deadline = Clock::now() + limits.toClose;
    const size_t end = consumed() + rest;
    while (received < end && refill(deadline)) {
    }
    if (isEncrypted)
        BIO_ssl_shutdown(bio.get());
    ::shutdown(descriptor, SHUT_WR);
    while (waitFor(POLLIN, deadline)) {
        const ssize_t ignored = ::recv(descriptor, buffer.data(), buffer.size(), 0);
        if (ignored == 0 || (ignored < 0 && errno != EAGAIN && errno != EINTR))
            break;
    }
}

bool BoundedStream::is_readable() const
{
    return true; // Reading and writing wait by themselves.
}

bool BoundedStream::is_writable() const
{
    return true;
}

ssize_t BoundedStream::read(char *bytes, size_t size)
{
    if (!hasRequest())
        return -1;
    writeDeadline.reset(); // What was written so far only asked to go on.
    const size_t count = std::min(size, filled - taken);
    std::copy_n(buffer.begin() + static_cast<ptrdiff_t>(taken), count, bytes);
    taken += count;
    return static_cast<ssize_t>(count);
}

ssize_t BoundedStream::write(const char *bytes, size_t size)
{
    if (!writeDeadline)
        writeDeadline = Clock::now() + limits.toWrite;
    for (;;) {
        const int count = BIO_write(bio.get(), bytes, static_cast<int>(std::min<size_t>(size, 16'384)));
        if (count > 0)
            return count;
        if (!BIO_should_retry(bio.get()) || !waitFor(BIO_should_read(bio.get()) ? POLLIN : POLLOUT, *writeDeadline))
            return -1;
    }
}

void BoundedStream::get_remote_ip_and_port(std::string &, int &) const {} // Nobody is to know.

void BoundedStream::get_local_ip_and_port(std::string &, int &) const {}

bool BoundedStream::fill()
{
    return received < mostBytes && refill(readDeadline);
}

bool BoundedStream::refill(Clock::time_point deadline)
{
    for (;;) {
        const int count = BIO_read(bio.get(), buffer.data(), static_cast<int>(buffer.size()));
        if (count > 0) {
            taken = 0;
            filled = static_cast<size_t>(count);
            received += filled;
            return true;
        }
        if (!BIO_should_retry(bio.get()) || !waitFor(BIO_should_write(bio.get()) ? POLLOUT : POLLIN, deadline))
            return false;
    }
}

bool BoundedStream::waitFor(short events, Clock::time_point deadline) const
{
    std::array<pollfd, 2> waits{pollfd{.fd = descriptor, .events = events, .revents = 0},
                                pollfd{.fd = received == 0 ? stopping : -1, .events = POLLIN, .revents = 0}};
    for (;;) {
        const int ready = ::poll(waits.data(), waits.size(), milliseconds(deadline - Clock::now()));
        if (ready >= 0 || errno != EINTR)
            return ready > 0 && waits[1].revents == 0;
    }
}
