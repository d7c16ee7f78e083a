#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <optional>

#include <httplib.h>
#include <openssl/bio.h>

/// What one connection may take.
struct ConnectionLimits
{
    std::chrono::milliseconds toRead = std::chrono::seconds(20);  ///< From its start to the last byte of the request.
    std::chrono::milliseconds toWrite = std::chrono::seconds(10); ///< From the first byte of the answer to its last.
    std::chrono::milliseconds toClose = std::chrono::seconds(2);  ///< For the client to take the answer and leave.
    size_t headBytes = 16 * 1024;                                 ///< Of the lines in front of the body.
    size_t requestBytes = 512 * 1024;                             ///< Of the whole request, those lines included.
};

/// A connection with bounds for all that a client can do slowly or without end. Used by one thread.
class BoundedStream final : public httplib::Stream
{
public:
    /// Takes the \a socket, which it closes. \a tls may be null: then nothing is encrypted. As long as no byte of a
    /// request has come, a descriptor \a stopping that becomes readable ends the waiting.
    BoundedStream(socket_t socket, SSL_CTX *tls, const ConnectionLimits &limits, int stopping);
    ~BoundedStream() override;
    BoundedStream(const BoundedStream &) = delete;
    BoundedStream &operator=(const BoundedStream &) = delete;

    /// Whether a request has begun to arrive. Waits for that.
    bool hasRequest();
    /// The lines in front of the body have all been read: from now on the limit is that of the whole request.
    void headIsRead() { mostBytes = limits.requestBytes; }
    /// How many bytes of the request were read.
    size_t consumed() const { return received - (filled - taken); }
    /// Gives the client time to send the \a rest of its request, which is thrown away, says good-bye, and gives it time
    /// to take what was written: clients read nothing as long as they send, and closing too early loses the answer.
    void finish(size_t rest);

    bool is_readable() const override;
    bool is_writable() const override;
    ssize_t read(char *bytes, size_t size) override;
    ssize_t write(const char *bytes, size_t size) override;
    void get_remote_ip_and_port(std::string &ip, int &port) const override;
    void get_local_ip_and_port(std::string &ip, int &port) const override;
    socket_t socket() const override { return descriptor; }

private:
    using Clock = std::chrono::steady_clock;
    struct FreeBio
    {
        void operator()(BIO *bio) const { BIO_free_all(bio); }
    };

    bool fill();
    bool refill(Clock::time_point deadline);
    bool waitFor(short events, Clock::time_point deadline) const;

    const socket_t descriptor;
    const ConnectionLimits limits;
    const int stopping;
    const Clock::time_point readDeadline;
    std::optional<Clock::time_point> writeDeadline; ///< Once something is written, until more is read.
    std::unique_ptr<BIO, FreeBio> bio;              ///< What encrypts, if anything does, and the socket.
    bool isEncrypted;
    std::array<char, 4096> buffer{};
    size_t taken = 0;    ///< Of the buffer's bytes.
    size_t filled = 0;   ///< Bytes in the buffer.
    size_t received = 0; ///< Bytes of the request.
    size_t mostBytes;    ///< Of the request, until more is allowed.
};
