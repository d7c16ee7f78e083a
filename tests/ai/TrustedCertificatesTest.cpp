#include "ai/TrustedCertificates.h"

#include "ai/TestAuthority.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QSet>
#include <QSslConfiguration>

#include <gtest/gtest.h>

namespace tidlo {

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

QByteArray ofTheSystem()
{
    qunsetenv("SSL_CERT_FILE");
    return trustedCertificates();
}

QSet<QSslCertificate> asSet(const QList<QSslCertificate> &list)
{
    return {list.begin(), list.end()};
}

} // namespace

TEST_F(TrustedCertificates, AreThoseOfTheSystemWhenTheEnvironmentNamesNone)
{
    EXPECT_EQ(asSet(QSslCertificate::fromData(ofTheSystem())), asSet(QSslConfiguration::systemCaCertificates()));
}

TEST_F(TrustedCertificates, AreThoseOfTheSystemAndThoseOfTheFile)
{
    const QByteArray system = ofTheSystem();
    const TestAuthority one;
    const TestAuthority other;
    nameFile(one.certificate() + "and\n" + other.certificate());

    EXPECT_EQ(trustedCertificates(), system + one.certificate() + other.certificate());
}

TEST_F(TrustedCertificates, AreTheSystemsAloneWhenTheFileIsOfNoUse)
{
    const QByteArray system = ofTheSystem();

    nameFile("no certificate");
    EXPECT_EQ(trustedCertificates(), system);

    nameFile("-----BEGIN CERTIFICATE-----\nbroken\n-----END CERTIFICATE-----\n");
    EXPECT_EQ(trustedCertificates(), system);

    qputenv("SSL_CERT_FILE", folder / "missing");
    EXPECT_EQ(trustedCertificates(), system);

    qputenv("SSL_CERT_FILE", "");
    EXPECT_EQ(trustedCertificates(), system);
}

} // namespace tidlo
