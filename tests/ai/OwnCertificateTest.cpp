#include "ai/TestAuthority.h"
#include "ai/TrustedCertificates.h"
#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tidlo {

namespace {

constexpr const char *ofTheFile = "tidlo-proxy/certificate.pem";

class OwnCertificate : public testing::Test
{
protected:
    OwnCertificate()
    {
        qputenv("XDG_STATE_HOME", states.path());
        keep(authority.certificate());
        chmod((states / "tidlo-proxy").constData(), 0700);
    }
    ~OwnCertificate() override { qunsetenv("XDG_STATE_HOME"); }

    void keep(const QByteArray &content) const
    {
        QFile file(QFile::decodeName(states.file(ofTheFile, 0)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        chmod((states / ofTheFile).constData(), 0600);
    }

    static QByteArray trusted() { return ownCertificateFor(QStringLiteral("localhost")); }

    TemporaryHome states;
    const TestAuthority authority;
};

} // namespace

TEST_F(OwnCertificate, IsTrustedForTheNamesOfThisMachineAlone)
{
    for (const char *host : {"localhost", "127.0.0.1", "::1"})
        EXPECT_EQ(ownCertificateFor(QString::fromLatin1(host)), authority.certificate()) << host;
    for (const char *host : {"", "localhost.example.org", "example.org", "127.0.0.2", "::2", "LOCALHOST."})
        EXPECT_EQ(ownCertificateFor(QString::fromLatin1(host)), "") << host;
}

TEST_F(OwnCertificate, IsReadAnewEachTime)
{
    const TestAuthority other;
    EXPECT_EQ(trusted(), authority.certificate());
    keep(other.certificate());
    EXPECT_EQ(trusted(), other.certificate());
    unlink((states / ofTheFile).constData());
    EXPECT_EQ(trusted(), "");
}

TEST_F(OwnCertificate, IsNotTrustedWhereAnotherMayWriteIt)
{
    for (const mode_t mode : {0620, 0602, 0666}) {
        chmod((states / ofTheFile).constData(), mode);
        EXPECT_EQ(trusted(), "") << mode;
    }
    chmod((states / ofTheFile).constData(), 0644);
    EXPECT_EQ(trusted(), authority.certificate());
    for (const mode_t mode : {0720, 0702, 01777}) {
        chmod((states / "tidlo-proxy").constData(), mode);
        EXPECT_EQ(trusted(), "") << mode;
    }
    chmod((states / "tidlo-proxy").constData(), 0755);
    EXPECT_EQ(trusted(), authority.certificate());
}

TEST_F(OwnCertificate, IsNotTrustedWhereItIsAnotherUsers)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "Only root can become another user.";
    chmod(states.path().constData(), 0755);
    chmod((states / "tidlo-proxy").constData(), 0755);
    chmod((states / ofTheFile).constData(), 0644);
    EXPECT_EQ(trusted(), authority.certificate());

    const ChildResult result = inChild([] { return becomeNobody() && trusted().isEmpty(); });

    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST_F(OwnCertificate, IsNotTrustedThroughLinks)
{
    const FilePath moved = states / "moved";
    ASSERT_EQ(rename((states / ofTheFile).constData(), moved.constData()), 0);
    states.link(ofTheFile, moved);
    EXPECT_EQ(trusted(), "");

    keep(authority.certificate()); // Writes through the link.
    unlink((states / ofTheFile).constData());
    ASSERT_EQ(rename(moved.constData(), (states / ofTheFile).constData()), 0);
    EXPECT_EQ(trusted(), authority.certificate());
    ASSERT_EQ(rename((states / "tidlo-proxy").constData(), moved.constData()), 0);
    states.link("tidlo-proxy", moved);
    EXPECT_EQ(trusted(), "");
}

TEST_F(OwnCertificate, IsNotTrustedWhereItIsNoRegularFile)
{
    unlink((states / ofTheFile).constData());
    ASSERT_EQ(mkfifo((states / ofTheFile).constData(), 0600), 0);
    EXPECT_EQ(trusted(), "") << "and nobody is waited for";

    QFile pipe(QFile::decodeName(states / ofTheFile));
    ASSERT_TRUE(pipe.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    ASSERT_EQ(pipe.write(authority.certificate()), authority.certificate().size());
    EXPECT_EQ(trusted(), "") << "whatever comes from it";
}

TEST_F(OwnCertificate, HasSixtyFourKilobytesAtMost)
{
    const QByteArray certificate = authority.certificate();
    keep(certificate.leftJustified(64 * 1024, '\n'));
    EXPECT_EQ(trusted(), certificate);
    keep(certificate.leftJustified(64 * 1024 + 1, '\n'));
    EXPECT_EQ(trusted(), "");
}

TEST_F(OwnCertificate, IsLookedForInTheHomeFolderUnlessTheEnvironmentNamesAnother)
{
    for (const char *none : {"", "relative"}) {
        qputenv("XDG_STATE_HOME", none);
        EXPECT_TRUE(ownServiceFolder().endsWith("/.local/state/tidlo-proxy")) << none;
    }
}

} // namespace tidlo
