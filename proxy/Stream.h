#pragma once

#include "proxy/Asio.h"

#include <memory>
#include <span>
#include <string_view>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// A connection, encrypted or not, with one deadline for all that is done over it, however slowly bytes come. When that
/// has passed, whatever is under way fails, and so does all else until there is a new deadline. OpenSSL works straight
/// on the socket: Asio's own stream keeps 70 KB for each connection, this one 20.
class Stream final
{
public:
    explicit Stream(tcp::socket taken);
    Stream(const Stream &) = delete;
    Stream &operator=(const Stream &) = delete;

    void until(Clock::time_point deadline);
    void within(Clock::duration time) { until(Clock::now() + time); }
    Clock::time_point deadline() const { return end; }
    bool isLate() const { return late; }

    /// Whether it is connected to \a endpoint now. An earlier connection is ended.
    Task<bool> connect(tcp::endpoint endpoint);
    /// As a client that sends to nobody who cannot prove to be \a host, a name or an address; plain without \a tls.
    bool encryptTo(SSL_CTX *tls, const char *host);
    /// As a server, as soon as the client's first byte has come: a handshake takes 45 KB until it is done. Plain
    /// without \a tls. Whether one came.
    Task<bool> encryptWhenAsked(SSL_CTX *tls);

    /// How many bytes were read; 0 at the end, whatever that is.
    Task<size_t> read(std::span<char> to);
    /// Whether all of \a bytes were written, which must live as long.
    Task<bool> write(std::string_view bytes);
    /// Says good-bye, and waits until the other end has gone: closing at once would lose what it has not read yet.
    Task<void> leave();

private:
    struct Free
    {
        void operator()(BIO *chain) const { BIO_free_all(chain); }
    };

    void prepare();
    Task<bool> canRetry();

    tcp::socket socket;
    asio::steady_timer timer;
    Clock::time_point end = Clock::time_point::max();
    bool late = false;
    std::unique_ptr<BIO, Free> bio;                       ///< What encrypts, if anything does, and the socket.
    std::shared_ptr<void> life = std::make_shared<int>(); ///< For the timer, which may be heard of later.
};

} // namespace tidlo::proxy
