#pragma once

#include "proxy/Asio.h"

#include <memory>
#include <span>
#include <string_view>

#include <openssl/ssl.h>

namespace tidlo::proxy {

/// A connection, encrypted or not, with one deadline for all operations on it, however slowly bytes come. After the
/// deadline, the current operation fails, and so do all others until there is a new deadline. OpenSSL works directly on
/// the socket: Asio's own stream takes 70 KB for each connection, this one 20.
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

    /// Connects to \a endpoint, and closes an earlier connection. Returns whether that succeeded.
    Task<bool> connect(tcp::endpoint endpoint);
    /// Encrypts as a client that sends only to a server that proves to be \a host, a name or an address; plain without
    /// \a tls. Returns whether that succeeded.
    bool encryptTo(SSL_CTX *tls, const char *host);
    /// Encrypts as a server, once the client's first byte has come: a handshake takes 45 KB until it is done. Plain
    /// without \a tls. Returns whether a byte came.
    Task<bool> encryptWhenAsked(SSL_CTX *tls);

    /// Returns how many bytes were read; 0 at the end, whatever the cause.
    Task<size_t> read(std::span<char> to);
    /// Returns whether all of \a bytes were written; they must stay valid until then.
    Task<bool> write(std::string_view bytes);
    /// Ends TLS, and waits until the other end has closed: closing at once would lose what it has not read yet.
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
    std::unique_ptr<BIO, Free> bio;                       ///< The socket, with encryption if there is any.
    std::shared_ptr<void> life = std::make_shared<int>(); ///< The timer's handler may outlive this object.
};

} // namespace tidlo::proxy
