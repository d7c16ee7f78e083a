#include "proxy/Certificate.h"

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QSslCertificate>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

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

TEST_F(LocalhostCertificate, HasAKeyForItsOwnerAlone)
{
    const CertificateFiles files = make();

    EXPECT_EQ(modeOf(files.key), 0600);
    EXPECT_TRUE(tlsFrom(files).value) << tlsFrom(files).reason.toStdString();
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

TEST_F(LocalhostCertificate, ThatCannotBeMadeSaysWhere)
{
    const QString below = QString::fromUtf8(home.file("file")) + QStringLiteral("/folder");

    EXPECT_EQ(localhostCertificate(below, now).reason,
              QStringLiteral("A certificate cannot be made in %1.").arg(below));
}

TEST_F(LocalhostCertificate, IsRefusedWithAKeyThatIsNotItsOwn)
{
    const CertificateFiles files = make();
    const CertificateFiles others = localhostCertificate(QString::fromUtf8(home / "other"), now).value;

    const auto tls = tlsFrom({.certificate = files.certificate, .key = others.key});

    EXPECT_FALSE(tls.value);
    EXPECT_THAT(tls.reason.toStdString(), HasSubstr(others.key.toStdString() + " cannot be used: "));
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
