#include "platform/MachineIdentity.h"

#include "platform/linux/MachineIdFile.h"
#include "support/OwnMounts.h"
#include "support/TemporaryHome.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace tidlo {

namespace {

/// The output of systemd-id128 for the machine-id 0123456789abcdef0123456789abcdef and this application's identifier.
const QUuid derived(QStringLiteral("57bc3a52-16a0-43d1-a19b-17c315d3157e"));

class MachineIdentity : public testing::Test
{
protected:
    FilePath file(const FilePath &name, const QByteArray &content) const
    {
        const FilePath path = folder.file(name, 0);
        QFile target(QFile::decodeName(path));
        EXPECT_TRUE(target.open(QIODevice::WriteOnly) && target.write(content) == content.size());
        return path;
    }

    FilePath missing() const { return folder / "missing"; }

    TemporaryHome folder;
};

} // namespace

TEST_F(MachineIdentity, IsDerivedAsTheSystemDerivesIt)
{
    EXPECT_EQ(applicationMachineId({file("id", "0123456789abcdef0123456789abcdef\n")}), derived);
}

TEST_F(MachineIdentity, NeedsNoLineFeedAndNoLowerCase)
{
    EXPECT_EQ(applicationMachineId({file("bare", "0123456789abcdef0123456789abcdef")}), derived);
    EXPECT_EQ(applicationMachineId({file("upper", "0123456789ABCDEF0123456789ABCDEF\n")}), derived);
}

TEST_F(MachineIdentity, DiffersWithTheMachine)
{
    const auto other = applicationMachineId({file("id", "0123456789abcdef0123456789abcdee\n")});

    ASSERT_TRUE(other);
    EXPECT_NE(*other, derived);
}

TEST_F(MachineIdentity, DoesNotShowTheMachineIdItself)
{
    const QUuid raw(QStringLiteral("01234567-89ab-cdef-0123-456789abcdef"));

    EXPECT_NE(applicationMachineId({file("id", "0123456789abcdef0123456789abcdef\n")}), raw);
}

TEST_F(MachineIdentity, IsNothingWithoutAFile)
{
    EXPECT_EQ(applicationMachineId({}), std::nullopt);
    EXPECT_EQ(applicationMachineId({missing()}), std::nullopt);
    EXPECT_EQ(applicationMachineId({folder.folder("a folder")}), std::nullopt);
}

TEST_F(MachineIdentity, IsNothingWhenTheFileIsMalformed)
{
    const QList<QByteArray> malformed{
        "",
        "\n",
        "uninitialized\n",
        "00000000000000000000000000000000\n",
        "0123456789abcdef0123456789abcde\n",
        "0123456789abcdef0123456789abcdef0\n",
        "0123456789abcdef0123456789abcdef0",
        "0123456789abcdef0123456789abcdef\r\n",
        "0123456789abcdef0123456789abcdef\n\n",
        "0123456789abcdef0123456789abcdef\nmore\n",
        " 0123456789abcdef0123456789abcdef",
        "0123456789abcdef0123456789abcdeg\n",
        "01234567-89ab-cdef-0123-456789abcdef\n",
        QByteArray("0123456789abcdef\0"
                   "123456789abcdef\n",
                   33),
        QByteArray(32, '\0'),
        QByteArray(1 << 20, 'a'),
    };
    for (const QByteArray &content : malformed)
        EXPECT_EQ(applicationMachineId({file("id", content)}), std::nullopt) << content.left(40).constData();
}

TEST_F(MachineIdentity, ComesFromTheFirstFileThatIsWellFormed)
{
    const FilePath good = file("good", "0123456789abcdef0123456789abcdef\n");
    const FilePath bad = file("bad", "uninitialized\n");
    const FilePath late = file("late", "fedcba9876543210fedcba9876543210\n");

    EXPECT_EQ(applicationMachineId({missing(), bad, good, late}), derived);
}

TEST_F(MachineIdentity, IsReadAfreshByEveryCall)
{
    const FilePath path = file("id", "fedcba9876543210fedcba9876543210\n");
    ASSERT_NE(applicationMachineId({path}), derived);

    file("id", "0123456789abcdef0123456789abcdef\n");

    EXPECT_EQ(applicationMachineId({path}), derived);
}

TEST_F(MachineIdentity, OfThisMachineIsAnUpperCaseHyphenatedUuidThatStays)
{
    const std::optional<QString> identity = machineIdentity();
    if (!identity)
        GTEST_SKIP() << "This machine has no machine-id.";

    static const QRegularExpression form(
        QStringLiteral("^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$"));
    EXPECT_TRUE(form.match(*identity).hasMatch()) << identity->toStdString();
    EXPECT_EQ(machineIdentity(), identity);
}

TEST_F(MachineIdentity, OfThisMachineIsReadAfreshByEveryCallToo)
{
    inOwnMounts([&] {
        mountMemory("/etc"); // Nothing else in it is needed during the test.
        const auto setId = [](const QByteArray &id) {
            QFile target(QStringLiteral("/etc/machine-id"));
            EXPECT_TRUE(target.open(QIODevice::WriteOnly) && target.write(id) == id.size());
        };
        setId("fedcba9876543210fedcba9876543210\n");
        const std::optional<QString> before = machineIdentity();
        setId("0123456789abcdef0123456789abcdef\n");

        EXPECT_NE(machineIdentity(), before);
        EXPECT_EQ(machineIdentity(), derived.toString(QUuid::WithoutBraces).toUpper());
    });
}

} // namespace tidlo
