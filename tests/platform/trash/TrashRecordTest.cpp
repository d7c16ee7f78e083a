#include "platform/linux/TrashRecord.h"

#include "platform/Descriptor.h"
#include "platform/linux/TrashFolder.h"
#include "support/TemporaryHome.h"

#include <QList>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

namespace {

constexpr std::time_t moved = 1'700'000'000; // 2023-11-14 22:13:20 UTC
constexpr qsizetype longest = 255;

/// Sets the time zone while this object exists.
class TimeZone final
{
public:
    explicit TimeZone(const char *name)
        : former(qgetenv("TZ"))
    {
        qputenv("TZ", name);
        tzset();
    }
    ~TimeZone()
    {
        former.isNull() ? qunsetenv("TZ") : qputenv("TZ", former);
        tzset();
    }
    TimeZone(const TimeZone &) = delete;
    TimeZone &operator=(const TimeZone &) = delete;

private:
    QByteArray former;
};

QByteArray pathLine(const FilePath &path)
{
    return trashRecord(path, moved).split('\n').value(1);
}

} // namespace

TEST(TrashRecord, HoldsThePathAndTheLocalTimeAndNothingElse)
{
    const TimeZone india("IST-5:30");

    EXPECT_EQ(trashRecord("/home/u/a.txt", moved),
              "[Trash Info]\nPath=/home/u/a.txt\nDeletionDate=2023-11-15T03:43:20\n");
}

TEST(TrashRecord, TellsSummerTimeAsTheClockOnTheWallShowsIt)
{
    const TimeZone berlin("CET-1CEST,M3.5.0,M10.5.0/3");

    EXPECT_TRUE(trashRecord("/a", 1'689'336'000).contains("DeletionDate=2023-07-14T14:00:00\n"));
    EXPECT_TRUE(trashRecord("/a", moved).contains("DeletionDate=2023-11-14T23:13:20\n"));
}

TEST(TrashRecord, EscapesEveryByteThatIsNotPlain)
{
    EXPECT_EQ(pathLine("/AZaz09-._~/b"), "Path=/AZaz09-._~/b");
    EXPECT_EQ(pathLine("/100% new\nline"), "Path=/100%25%20new%0Aline");
    EXPECT_EQ(pathLine("/=;#[]?&+,'\"\\"), "Path=/%3D%3B%23%5B%5D%3F%26%2B%2C%27%22%5C");
    EXPECT_EQ(pathLine("/\xc3\xa4\xff\x01\x7f"), "Path=/%C3%A4%FF%01%7F");
}

TEST(TrashRecord, KeepsARelativePathRelative)
{
    EXPECT_EQ(pathLine("films/a b"), "Path=films/a%20b");
}

TEST(TrashRecordRead, TellsTheFirstPathAndDateInWhateverOrder)
{
    const auto record = parsedTrashRecord(
        "[Trash Info]\nX=1\nDeletionDate=2026-01-02T03:04:05\nPath=a%20b\nPath=c\nDeletionDate=x\n[More]\nY=");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->path, "a b");
    EXPECT_EQ(record->date, "2026-01-02T03:04:05");
    EXPECT_EQ(parsedTrashRecord("[Trash Info]\nPath=/a")->date, "");
}

TEST(TrashRecordRead, IsWhatWasWritten)
{
    for (const FilePath path : {"/home/u/a.txt", "/100% new\nline", "/=;#[]?&+,'\"\\", "/\xc3\xa4\xff\x01\x7f", "a b"})
        EXPECT_EQ(parsedTrashRecord(trashRecord(path, moved))->path, path);
}

TEST(TrashRecordRead, IsNothingWhereItIsNoRecordOrLeadsElsewhere)
{
    for (const QByteArray text : {"", "\n", "[Trash Info]", "[Trash Info]\nDeletionDate=2026-01-02T03:04:05\n",
                                  "Path=/a\n", "[Trash info]\nPath=/a\n", " [Trash Info]\nPath=/a\n"})
        EXPECT_FALSE(parsedTrashRecord(text)) << text.constData();
    for (const QByteArray path :
         {"",  "/",   "//a",         "/a/",         "/a//b",  "/a/./b", "/a/../b", "..",    "../a", "a/..",
          ".", "/..", "/a/%2e%2e/b", "/a%2F..%2Fb", "/a%00b", "/a%0",   "/a%",     "/a%zz", "/a%2", "%"})
        EXPECT_FALSE(parsedTrashRecord("[Trash Info]\nPath=" + path + "\n")) << path.constData();
}

TEST(TrashRecordRead, IsBoundInLengthAndInKind)
{
    const TemporaryHome home;
    const Descriptor info(open(home.path().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const auto errorOf = [&](const FilePath &name) { return readTrashRecord({}, info.get(), name).error(); };
    for (const qsizetype size : {longestTrashRecord, longestTrashRecord + 1}) {
        const QByteArray start = "[Trash Info]\nPath=/a\n#";
        const Descriptor file(open(home.file("long", 0).constData(), O_WRONLY | O_CLOEXEC));
        const QByteArray text = start + QByteArray(size - start.size(), 'x');
        ASSERT_EQ(write(file.get(), text.constData(), text.size()), size);
        EXPECT_EQ(errorOf("long"), size == longestTrashRecord ? 0 : EFBIG);
    }
    home.folder("folder");
    home.link("link", "long");
    ASSERT_EQ(mkfifo((home / "fifo").constData(), 0600), 0);
    EXPECT_EQ(errorOf("folder"), EBADMSG);
    EXPECT_EQ(errorOf("fifo"), EBADMSG) << "and nobody waits for its other end";
    EXPECT_EQ(errorOf("link"), ELOOP);
    EXPECT_EQ(errorOf("nothing"), ENOENT);
}

TEST(TrashName, IsTheNameItself)
{
    for (const FilePath name : {"a.txt", ".hidden", "-rf", "new\nline", "\xff\xfe", "x.trashinfo"})
        EXPECT_EQ(trashName(name, 1, longest), name);
}

TEST(TrashName, PutsANumberBeforeTheExtension)
{
    EXPECT_EQ(trashName("a.txt", 2, longest), "a 2.txt");
    EXPECT_EQ(trashName("a", 17, longest), "a 17");
    EXPECT_EQ(trashName(".hidden", 2, longest), ".hidden 2");
    EXPECT_EQ(trashName("a.tar.gz", 2, longest), "a.tar 2.gz");
    EXPECT_EQ(trashName("v1." + FilePath(40, 'x'), 2, longest), "v1." + FilePath(40, 'x') + " 2") << "no extension";
}

TEST(TrashName, IsCutSoThatItsRecordFits)
{
    for (qsizetype size = 1; size <= 255; ++size) {
        for (const quint32 number : {1U, 2U, 999'999'999U}) {
            const FilePath name = trashName(FilePath(size, 'n'), number, longest);
            EXPECT_LE(trashRecordName(name).size(), 255) << size;
            EXPECT_EQ(name.endsWith("n"), number == 1) << size;
        }
    }
    EXPECT_EQ(trashName(FilePath(245, 'n'), 1, longest), FilePath(245, 'n'));
    EXPECT_EQ(trashName(FilePath(246, 'n'), 1, longest), FilePath(245, 'n'));
    EXPECT_EQ(trashName(FilePath(251, 'n') + ".iso", 1, longest), FilePath(241, 'n') + ".iso");
    EXPECT_EQ(trashName(FilePath(251, 'n') + ".iso", 12, longest), FilePath(238, 'n') + " 12.iso");
}

TEST(TrashName, FitsAFileSystemOfShorterNames)
{
    EXPECT_EQ(trashRecordName(trashName(FilePath(140, 'n'), 1, 143)), FilePath(133, 'n') + ".trashinfo");
}

TEST(TrashName, IsNotCutWithinACharacter)
{
    const FilePath euro = "\xe2\x82\xac";

    EXPECT_EQ(trashName(euro.repeated(84), 1, longest), euro.repeated(81)) << "243 bytes, 2 to spare";
    EXPECT_EQ(trashName('a' + euro.repeated(84), 1, longest), 'a' + euro.repeated(81));
    EXPECT_EQ(trashName(FilePath(255, '\x80'), 1, longest), FilePath(245, '\x80')) << "no UTF-8 at all";
}

} // namespace tidlo
