#include "platform/SmallFile.h"

#include "support/TemporaryHome.h"

#include <QFile>

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/stat.h>

namespace tidlo {

namespace {

FilePath fileWith(const TemporaryHome &home, const QByteArray &content)
{
    const FilePath path = home / "file";
    QFile file(QFile::decodeName(path));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    return path;
}

} // namespace

TEST(SmallFile, IsReadWholeUpToItsLimit)
{
    const TemporaryHome home;
    for (const qint64 size : {qint64(0), qint64(5'000), smallFileLimit}) {
        const QByteArray content(size, 'x');
        EXPECT_EQ(*readSmallFile(fileWith(home, content), LinkAtEnd::refused), content);
    }
    const FilePath larger = fileWith(home, QByteArray(smallFileLimit + 1, 'x'));
    EXPECT_EQ(readSmallFile(larger, LinkAtEnd::refused).error(), EFBIG);
}

TEST(SmallFile, MayBeRefusedThroughALink)
{
    const TemporaryHome home;
    home.link("link", fileWith(home, "text"));

    EXPECT_EQ(*readSmallFile(home / "link", LinkAtEnd::followed), "text");
    EXPECT_EQ(readSmallFile(home / "link", LinkAtEnd::refused).error(), ELOOP);
}

TEST(SmallFile, IsARegularOneAndNobodyIsWaitedFor)
{
    const TemporaryHome home;
    ASSERT_EQ(mkfifo((home / "pipe").constData(), 0600), 0);

    EXPECT_EQ(readSmallFile(home / "pipe", LinkAtEnd::followed).error(), EBADMSG);
    EXPECT_EQ(readSmallFile(home.path(), LinkAtEnd::followed).error(), EBADMSG);
    EXPECT_EQ(readSmallFile(home / "missing", LinkAtEnd::followed).error(), ENOENT);
}

} // namespace tidlo
