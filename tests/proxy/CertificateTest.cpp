#include "proxy/Certificate.h"

#include "platform/AtomicFile.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSslCertificate>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <openssl/x509v3.h>
#include <sys/stat.h>

using testing::HasSubstr;

namespace tidlo::proxy {
namespace {

const QDateTime now = QDateTime::currentDateTimeUtc();

class LocalhostCertificate : public testing::Test
{
protected:
    CertificateFiles make(const QDateTime &time = now) const
    {
        const auto files = localhostCertificate(folder, time);
        EXPECT_EQ(files.reason, QString());
        return files.value;
    }

    QSslCertificate certificate(const QDateTime &time = now) const
    {
        return QSslCertificate::fromPath(make(time).certificate).value(0);
    }

    TemporaryHome home;
    QString folder = QString::fromUtf8(home / "state/tidlo-proxy");
};

mode_t modeOf(const QString &file)
{
    struct stat status
    {};
    EXPECT_EQ(stat(QFile::encodeName(file).constData(), &status), 0);
    return status.st_mode & 07777;
}

} // namespace

TEST_F(LocalhostCertificate, NamesThisMachineAlone)
{
    const QSslCertificate made = certificate();

    EXPECT_THAT(made.subjectAlternativeNames().values(QSsl::DnsEntry),
                testing::ElementsAre(QStringLiteral("localhost")));
    EXPECT_EQ(made.subjectAlternativeNames().values(QSsl::IpAddressEntry).size(), 2);
    EXPECT_TRUE(made.isSelfSigned());
    EXPECT_LT(made.effectiveDate(), now);
    EXPECT_EQ(made.expiryDate().date(), now.addDays(365).date());
}

TEST_F(LocalhostCertificate, VouchesForNobodyElse)
{
    const auto tls = tlsFrom(make()).value;
    ASSERT_TRUE(tls);

    X509 *made = SSL_CTX_get0_certificate(tls.get());
    EXPECT_EQ(X509_get_extension_flags(made) & (EXFLAG_BCONS | EXFLAG_CA), static_cast<uint32_t>(EXFLAG_BCONS));
    EXPECT_EQ(X509_check_ca(made), 0);
}

TEST_F(LocalhostCertificate, IsShownByTlsThatIsNotOld)
{
    const auto tls = tlsFrom(make()).value;
    ASSERT_TRUE(tls);

    EXPECT_EQ(SSL_CTX_get_min_proto_version(tls.get()), TLS1_2_VERSION);
    EXPECT_TRUE(SSL_CTX_get_options(tls.get()) & SSL_OP_NO_RENEGOTIATION);
    EXPECT_EQ(SSL_CTX_get_min_proto_version(tlsOfAClient().get()), TLS1_2_VERSION);
}

TEST_F(LocalhostCertificate, IsNeitherReadNorWrittenThroughALink)
{
    const QString target = QString::fromUtf8(home.file("target", 100));
    QDir().mkpath(folder);
    for (const char *name : {"key.pem", "certificate.pem"}) {
        const QString link = folder + u'/' + QString::fromLatin1(name);
        ASSERT_TRUE(QFile::link(target, link));
        EXPECT_EQ(localhostCertificate(folder, now).reason,
                  QStringLiteral("%1 cannot be used: it is a link.").arg(link));
        QFile::remove(link);
    }
    const QString link = folder + QStringLiteral("/link");
    ASSERT_TRUE(QFile::link(target, link));
    EXPECT_EQ(writeAtomically(QFile::encodeName(link), "new"), 0);

    EXPECT_FALSE(QFileInfo(link).isSymLink());
    EXPECT_EQ(QFileInfo(target).size(), 100);
}

TEST_F(LocalhostCertificate, MustBeARegularFile)
{
    QDir().mkpath(folder);
    const QString key = folder + QStringLiteral("/key.pem");
    ASSERT_EQ(mkfifo(QFile::encodeName(key).constData(), 0600), 0);
    const QString refused = QStringLiteral("%1 cannot be used: it is not a regular file.").arg(key);

    EXPECT_EQ(localhostCertificate(folder, now).reason, refused);
    QFile::remove(key);
    QDir().mkpath(key);
    EXPECT_EQ(localhostCertificate(folder, now).reason, refused);
}

TEST_F(LocalhostCertificate, HasAKeyForItsOwnerAlone)
{
    const CertificateFiles files = make();

    EXPECT_EQ(modeOf(files.key), 0600);
    EXPECT_TRUE(tlsFrom(files).value) << tlsFrom(files).reason.toStdString();
}

TEST_F(LocalhostCertificate, LiesInAFolderThatNobodyElseCanUseWhateverTheMask)
{
    const mode_t mask = ::umask(0);
    make();
    ::umask(mask);

    EXPECT_EQ(modeOf(folder), 0700);
}

TEST_F(LocalhostCertificate, IsKeptUntilThirtyDaysBeforeItsEnd)
{
    const QSslCertificate first = certificate();

    EXPECT_EQ(certificate(now.addDays(334)), first);
    EXPECT_NE(certificate(now.addDays(336)), first);
}

TEST_F(LocalhostCertificate, GetsItsRightsBack)
{
    const CertificateFiles files = make();
    QFile::setPermissions(files.key, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);

    make();

    EXPECT_EQ(modeOf(files.key), 0600);
}

TEST_F(LocalhostCertificate, IsMadeAnewWhenItIsDamaged)
{
    const CertificateFiles files = make();
    const auto first = certificate();
    for (const QString &name : {files.key, files.certificate}) {
        QFile file(name);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write("nonsense") == 8);
        file.close();
        EXPECT_NE(certificate(), first);
        EXPECT_TRUE(tlsFrom(make()).value);
    }
}

TEST_F(LocalhostCertificate, IsMadeAnewWhenTheKeyIsAnother)
{
    const CertificateFiles files = make();
    const QString other = QString::fromUtf8(home / "other");
    const CertificateFiles others = localhostCertificate(other, now).value;
    ASSERT_TRUE(QFile::remove(files.key) && QFile::copy(others.key, files.key));

    EXPECT_TRUE(tlsFrom(make()).value);
}

TEST_F(LocalhostCertificate, ThatCannotBeMadeSaysWhereAndWhy)
{
    const QString below = QString::fromUtf8(home.file("file")) + QStringLiteral("/folder");

    EXPECT_EQ(localhostCertificate(below, now).reason,
              QStringLiteral("A certificate cannot be made in %1: Not a directory.").arg(below));
}

TEST_F(LocalhostCertificate, IsRefusedWithAKeyThatIsNotItsOwn)
{
    const CertificateFiles files = make();
    const CertificateFiles others = localhostCertificate(QString::fromUtf8(home / "other"), now).value;

    const auto tls = tlsFrom({.certificate = files.certificate, .key = others.key});

    EXPECT_FALSE(tls.value);
    EXPECT_THAT(tls.reason.toStdString(), HasSubstr(others.key.toStdString() + " cannot be used: "));
}

TEST_F(LocalhostCertificate, MayBeGivenByLinksAndWithItsChain)
{
    const CertificateFiles files = make();
    QFile certificateFile(files.certificate);
    ASSERT_TRUE(certificateFile.open(QFile::ReadOnly));
    const QByteArray text = certificateFile.readAll();
    const CertificateFiles given{.certificate = QString::fromUtf8(home / "chain"),
                                 .key = QString::fromUtf8(home / "key")};
    const QString chain = QString::fromUtf8(home / "chain.pem");
    const auto replace = [&](const QByteArray &content) {
        return writeAtomically(QFile::encodeName(chain), content) == 0;
    };
    ASSERT_TRUE(replace(text + text + text));
    ASSERT_TRUE(QFile::link(chain, given.certificate) && QFile::link(files.key, given.key));

    const auto tls = tlsFrom(given);
    ASSERT_TRUE(tls.value) << tls.reason.toStdString();
    STACK_OF(X509) *issuers = nullptr;
    SSL_CTX_get0_chain_certs(tls.value.get(), &issuers);
    EXPECT_EQ(sk_X509_num(issuers), 2);

    ASSERT_TRUE(replace(text + QByteArray(64 * 1024 - text.size(), '\n')));
    EXPECT_TRUE(tlsFrom(given).value);
    ASSERT_TRUE(replace(text + QByteArray(64 * 1024 + 1 - text.size(), '\n')));
    EXPECT_EQ(tlsFrom(given).reason,
              QStringLiteral("%1 cannot be used: it is larger than 64 KB.").arg(given.certificate));
}

TEST(TlsFiles, ThatAreMissingOrNonsenseSayWhichAndWhy)
{
    const TemporaryHome home;
    const QString none = QString::fromUtf8(home / "none");
    const QString nonsense = QString::fromUtf8(home.file("nonsense", 100));

    EXPECT_THAT(tlsFrom({.certificate = none, .key = none}).reason.toStdString(),
                HasSubstr(none.toStdString() + " cannot be used: "));
    EXPECT_THAT(tlsFrom({.certificate = nonsense, .key = nonsense}).reason.toStdString(),
                HasSubstr(nonsense.toStdString() + " cannot be used: "));
}

} // namespace tidlo::proxy
