#include "proxy/Stream.h"

#include "proxy/Limits.h"

#include <algorithm>
#include <array>

#include <arpa/inet.h>
#include <openssl/err.h>
#include <openssl/x509v3.h>

namespace tidlo::proxy {
namespace {

constexpr int asClient = 1;
constexpr int asServer = 0;

BIO *layers(int socket, SSL_CTX *tls, int role)
{
    BIO *plain = BIO_new_socket(socket, BIO_NOCLOSE);
    return tls == nullptr ? plain : BIO_push(BIO_new_ssl(tls, role), plain);
}

/// Makes \a ssl refuse every server but \a host.
bool expect(SSL *ssl, const char *host)
{
    SSL_set_verify(ssl, SSL_VERIFY_PEER, nullptr);
    if (X509_VERIFY_PARAM_set1_ip_asc(SSL_get0_param(ssl), host) == 1)
        return true;
    return SSL_set1_host(ssl, host) == 1 && SSL_set_tlsext_host_name(ssl, host) == 1;
}

} // namespace

Stream::Stream(tcp::socket taken)
    : socket(std::move(taken))
    , timer(socket.get_executor())
{
    if (socket.is_open())
        prepare();
}

void Stream::until(Clock::time_point deadline)
{
    late = false;
    end = deadline;
    timer.expires_at(end);
    timer.async_wait([this, alive = std::weak_ptr(life), meant = end](error_code) {
        if (alive.expired() || end != meant || Clock::now() < end)
            return;
        late = true;
        error_code ignored;
        socket.cancel(ignored); // A shutdown would end TLS: no answer could be sent.
    });
}

Task<bool> Stream::connect(tcp::endpoint endpoint)
{
    bio.reset();
    error_code error;
    socket.close(error);
    socket.open(endpoint.protocol(), error);
    if (error)
        co_return false;
    prepare();
    const auto [failure] = co_await socket.async_connect(endpoint, asTuple());
    co_return !failure && !late;
}

bool Stream::encryptTo(SSL_CTX *tls, const char *host)
{
    bio.reset(layers(socket.native_handle(), tls, asClient));
    SSL *ssl = nullptr;
    BIO_get_ssl(bio.get(), &ssl);
    return tls == nullptr || (ssl != nullptr && expect(ssl, host));
}

Task<bool> Stream::encryptWhenAsked(SSL_CTX *tls)
{
    const auto [error] = co_await socket.async_wait(tcp::socket::wait_read, asTuple());
    if (error || late)
        co_return false;
    bio.reset(layers(socket.native_handle(), tls, asServer));
    co_return true;
}

Task<size_t> Stream::read(std::span<char> to)
{
    for (;;) {
        ERR_clear_error();
        const int count = BIO_read(bio.get(), to.data(), static_cast<int>(to.size()));
        if (count > 0)
            co_return static_cast<size_t>(count);
        if (!co_await canRetry())
            co_return 0;
    }
}

Task<bool> Stream::write(std::string_view bytes)
{
    constexpr size_t most = 16 * kilobyte;
    while (!bytes.empty()) {
        ERR_clear_error();
        const int count = BIO_write(bio.get(), bytes.data(), static_cast<int>(std::min(bytes.size(), most)));
        if (count > 0)
            bytes.remove_prefix(static_cast<size_t>(count));
        else if (!co_await canRetry())
            co_return false;
    }
    co_return true;
}

Task<void> Stream::leave()
{
    ERR_clear_error();
    BIO_ssl_shutdown(bio.get());
    error_code ignored;
    socket.shutdown(tcp::socket::shutdown_send, ignored);
    std::array<char, 1024> unread{};
    while (!late) {
        const auto [error, count] = co_await socket.async_read_some(asio::buffer(unread), asTuple());
        if (error)
            break;
    }
}

void Stream::prepare()
{
    error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored); // Each write is a whole message and must not wait for more.
    socket.native_non_blocking(true, ignored);
}

Task<bool> Stream::canRetry()
{
    if (late || !BIO_should_retry(bio.get()))
        co_return false;
    const auto event = BIO_should_read(bio.get()) ? tcp::socket::wait_read : tcp::socket::wait_write;
    const auto [error] = co_await socket.async_wait(event, asTuple());
    co_return !error && !late;
}

} // namespace tidlo::proxy
