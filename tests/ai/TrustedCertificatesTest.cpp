#include "ai/TrustedCertificates.h"

#include "ai/TestAuthority.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

namespace {

class TrustedCertificates : public testing::Test
{
protected:
    ~TrustedCertificates() override { qunsetenv("SSL_CERT_FILE"); }

    void nameFile(const QByteArray &content) const
    {
        const FilePath path = folder.file("authorities.pem", 0);
        QFile file(QFile::decodeName(path));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        qputenv("SSL_CERT_FILE", path);
    }

    TemporaryHome folder;
};

using Certificates = QSet<QSslCertificate>;

Certificates asSet(const QList<QSslCertificate> &list)
{
    return {list.begin(), list.end()};
}

} // namespace

TEST_F(TrustedCertificates, AreLookedUpInTheSystemWhenTheEnvironmentNamesNone)
{
    qunsetenv("SSL_CERT_FILE");

    EXPECT_EQ(trustedCertificates().caCertificates(), QSslConfiguration::defaultConfiguration().caCertificates());
}

TEST_F(TrustedCertificates, AreThoseOfTheSystemAndThoseOfTheFile)
{
    const TestAuthority one;
    const TestAuthority other;
    nameFile(one.certificate() + other.certificate());

    const Certificates added = asSet(QSslCertificate::fromData(one.certificate() + other.certificate()));
    ASSERT_EQ(added.size(), 2);
    EXPECT_EQ(asSet(trustedCertificates().caCertificates()), asSet(QSslConfiguration::systemCaCertificates()) + added);
}

TEST_F(TrustedCertificates, AreTheSystemsAloneWhenTheFileIsOfNoUse)
{
    const QList<QSslCertificate> system = QSslConfiguration::defaultConfiguration().caCertificates();

    nameFile("no certificate");
    EXPECT_EQ(trustedCertificates().caCertificates(), system);

    qputenv("SSL_CERT_FILE", folder / "missing");
    EXPECT_EQ(trustedCertificates().caCertificates(), system);

    qputenv("SSL_CERT_FILE", "");
    EXPECT_EQ(trustedCertificates().caCertificates(), system);
}

TEST_F(TrustedCertificates, AreAlwaysVerified)
{
    EXPECT_EQ(trustedCertificates().peerVerifyMode(), QSslSocket::VerifyPeer);
}
