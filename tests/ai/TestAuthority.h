#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QSslCertificate>
#include <QSslKey>

#include <memory>

namespace tidlo {

/// The certificate and key with which a server proves its name.
struct TestIdentity
{
    QSslCertificate certificate;
    QSslKey key;
};

/// A fresh certificate authority, trusted only by those who have its certificate.
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
