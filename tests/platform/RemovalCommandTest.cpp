#include "platform/RemovalCommand.h"

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace tidlo {

namespace {

class RemovalCommandTest : public testing::Test
{
protected:
    QString with(const QByteArray &content) const
    {
        QFile file(QFile::decodeName(home.file("usr/share/tidlo/uninstall-command", 0)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        file.close();
        return removalCommandBeside(program);
    }

    TemporaryHome home;
    FilePath program = home.file("usr/bin/tidlo");
};

} // namespace

TEST_F(RemovalCommandTest, IsTheLineOfTheFileInTheDataFolderBesideTheProgram)
{
    EXPECT_EQ(with("sudo apt remove tidlo\n"), QStringLiteral("sudo apt remove tidlo"));
    EXPECT_EQ(with("sudo apt remove tidlo"), QStringLiteral("sudo apt remove tidlo"));
}

TEST_F(RemovalCommandTest, IsEmptyWithoutThatFile)
{
    EXPECT_EQ(removalCommandBeside(program), QString());
    EXPECT_EQ(removalCommandBeside({}), QString());
}

TEST_F(RemovalCommandTest, IsEmptyWhereTheFileHoldsMoreThanOneLineOrAReasonableLength)
{
    EXPECT_EQ(with("one\ntwo\n"), QString());
    EXPECT_EQ(with(QByteArray(200, 'a') + '\n').size(), 200);
    EXPECT_EQ(with(QByteArray(201, 'a')), QString());
    EXPECT_EQ(with(QByteArray(200, 'a') + "\nb"), QString());
    EXPECT_EQ(with(""), QString());
}

TEST_F(RemovalCommandTest, IsEmptyAndWaitsForNobodyWhereThatIsNoFile)
{
    home.folder("usr/share/tidlo");
    ASSERT_EQ(mkfifo((home / "usr/share/tidlo/uninstall-command").constData(), 0600), 0);

    EXPECT_EQ(removalCommandBeside(program), QString());
}

} // namespace tidlo
