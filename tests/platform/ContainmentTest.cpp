#include "platform/Paths.h"
#include "support/InChild.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace tidlo {

TEST(Containment, IsDecidedByNamesAloneWhereTheyAreSimple)
{
    EXPECT_TRUE(isAtOrBelow("/a/b", "/a/b"));
    EXPECT_TRUE(isAtOrBelow("/a/b/c", "/a"));
    EXPECT_TRUE(isAtOrBelow("/a", "/"));
    EXPECT_TRUE(isAtOrBelow("/", "/"));
    EXPECT_FALSE(isAtOrBelow("/a/bc", "/a/b"));
    EXPECT_FALSE(isAtOrBelow("/a", "/a/b"));
}

TEST(Containment, IsDecidedByRealPlaces)
{
    const TemporaryHome home;
    home.file("a/b/c");
    home.folder("a/bc");
    home.link("link", home / "a/b");

    EXPECT_TRUE(isSameOrWithin(home / "a/b", home / "a/b"));
    EXPECT_TRUE(isSameOrWithin(home / "a/b/c", home / "a"));
    EXPECT_TRUE(isSameOrWithin(home / "link/c", home / "a/b"));
    EXPECT_TRUE(isSameOrWithin(home / "link", home / "a"));
    EXPECT_TRUE(isSameOrWithin(home / "a/b/c", home / "link/."));
    EXPECT_TRUE(isSameOrWithin(home.path(), "/"));
    EXPECT_FALSE(isSameOrWithin(home / "a/bc", home / "a/b"));
    EXPECT_FALSE(isSameOrWithin(home / "a", home / "a/b"));
}

TEST(Containment, HasNothingInWhatDoesNotExist)
{
    const TemporaryHome home;

    EXPECT_FALSE(isSameOrWithin(home.path(), home / "missing"));
    EXPECT_FALSE(isSameOrWithin(home.path(), home.file("file") + "/missing"));
    EXPECT_FALSE(isSameOrWithin(home / "missing", home / "missing"));
}

TEST(Containment, IsTakenForGrantedWhereNobodyCanTell)
{
    const TemporaryHome home;
    home.folder("a/b");
    home.folder("closed/inner");
    home.link("circle", home / "circle");
    EXPECT_TRUE(isSameOrWithin(home / "missing", home / "a"));
    EXPECT_TRUE(isSameOrWithin(home / "circle", home / "a"));
    EXPECT_TRUE(isSameOrWithin("", home / "a"));
    EXPECT_TRUE(isSameOrWithin(home / "a", home / "circle"));

    chmod(home.path().constData(), 0755);
    chmod((home / "closed").constData(), 0);
    const ChildResult result = inChild([&] {
        EXPECT_TRUE(becomeNobody());
        EXPECT_TRUE(isSameOrWithin(home / "closed/inner", home / "a"));
        EXPECT_TRUE(isSameOrWithin(home / "a", home / "closed/inner"));
        return !testing::Test::HasFailure();
    });
    EXPECT_TRUE(result.succeeded) << result.output;
}

} // namespace tidlo
