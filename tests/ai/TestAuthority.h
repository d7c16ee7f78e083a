#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QSslCertificate>
#include <QSslKey>

#include <memory>

namespace tidlo {

/// What a server shows to prove its name.
struct TestIdentity
{
    QSslCertificate certificate;
    QSslKey key;
};

/// A certificate authority made on the spot, which nobody trusts but who is given its certificate.
class TestAuthority final
{
public:
    TestAuthority();
    ~TestAuthority();
    TestAuthority(const TestAuthority &) = delete;
    TestAuthority &operator=(const TestAuthority &) = delete;

    /// Its own certificate as PEM.
    QByteArray certificate() const;

    /// A server's certificate for \a name, valid for a day until \a end.
    TestIdentity issue(const QByteArray &name,
                       const QDateTime &end = QDateTime::currentDateTimeUtc().addSecs(12 * 60 * 60)) const;

private:
    struct Pair;
    std::unique_ptr<Pair> own;
};

} // namespace tidlo
