#include "platform/Places.h"

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <climits>

#include <unistd.h>

namespace tidlo {

TEST(PlaceFinder, ResolvesLinksInFrontOfTheLastNameAlone)
{
    const TemporaryHome home;
    home.file("real/folder/file");
    home.link("link", "real");
    home.link("real/other", "folder");
    home.link("folder", home / "link/other");
    PlaceFinder finder;
    EXPECT_EQ(finder.placeOf("name"), "name");
    EXPECT_EQ(finder.placeOf(home / "link"), home / "link");
    EXPECT_EQ(finder.placeOf(home / "link/other"), home / "real/other");
    EXPECT_EQ(finder.placeOf(home / "link/other/file"), home / "real/folder/file");
    EXPECT_EQ(finder.placeOf(home / "folder/file"), home / "real/folder/file");
    EXPECT_EQ(finder.placeOf("/"), "/");
    EXPECT_EQ(finder.placeOf("/name"), "/name");
}

TEST(PlaceFinder, LeavesAsItIsWhatCannotBeResolved)
{
    const TemporaryHome home;
    home.link("nowhere", "gone");
    home.link("circle", "circle");
    PlaceFinder finder;
    EXPECT_EQ(finder.placeOf(home / "missing/file"), home / "missing/file");
    EXPECT_EQ(finder.placeOf(home / "nowhere/file"), home / "nowhere/file");
    EXPECT_EQ(finder.placeOf(home / "circle/file"), home / "circle/file");
}

TEST(PlaceFinder, ResolvesTheBeginningOfAPathOfAnyLength)
{
    const TemporaryHome home;
    home.folder("real");
    home.link("link", "real");
    const FilePath deep = FilePath("/d").repeated(100'000);
    EXPECT_EQ(PlaceFinder().placeOf(home / "link" + deep), home / "real" + deep);
    const FilePath long_ = '/' + FilePath(2 * PATH_MAX, 'x');
    EXPECT_EQ(PlaceFinder().placeOf(home / "link" + long_), home / "real" + long_);
}

TEST(PlaceOfGiven, IsThePlaceOfAnExistingItem)
{
    const TemporaryHome home;
    home.file("real/file");
    home.link("link", "real");
    home.link("nowhere", "gone");
    EXPECT_EQ(placeOfGiven(home / "link/file"), home / "real/file");
    EXPECT_EQ(placeOfGiven(home / "link"), home / "link");
    EXPECT_EQ(placeOfGiven(home / "nowhere"), home / "nowhere");
    EXPECT_EQ(placeOfGiven(home / "link/"), home / "real");
    EXPECT_EQ(placeOfGiven(home / "link/."), home / "real");
    EXPECT_EQ(placeOfGiven(home / "link/.."), home.path());
    EXPECT_EQ(placeOfGiven(home / "real//"), home / "real");
    EXPECT_EQ(placeOfGiven("/"), "/");
    EXPECT_EQ(placeOfGiven("/.."), "/");
    for (const FilePath &missing : {FilePath(), home / "missing", home / "real/file/x", home / "nowhere/"})
        EXPECT_EQ(placeOfGiven(missing), std::nullopt) << missing.constData();
}

TEST(PlaceOfGiven, MayBeRelativeToTheFolderThatOneIsIn)
{
    const TemporaryHome home;
    home.file("real/file");
    const std::unique_ptr<char, decltype(&std::free)> former(getcwd(nullptr, 0), &std::free);
    ASSERT_EQ(chdir((home / "real").constData()), 0);
    EXPECT_EQ(placeOfGiven("file"), home / "real/file");
    EXPECT_EQ(placeOfGiven("."), home / "real");
    EXPECT_EQ(placeOfGiven(".."), home.path());
    EXPECT_EQ(placeOfGiven("../real/file"), home / "real/file");
    ASSERT_EQ(chdir(former.get()), 0);
}

TEST(PlaceSet, KnowsWhatLiesInWhat)
{
    PlaceSet set;
    EXPECT_TRUE(set.isEmpty());
    EXPECT_FALSE(set.hasOneAround("/a"));
    EXPECT_FALSE(set.hasOneWithin("/"));
    set.insert("/a/b");
    EXPECT_FALSE(set.isEmpty());
    EXPECT_TRUE(set.hasOneAround("/a/b"));
    EXPECT_TRUE(set.hasOneAround("/a/b/c/d"));
    EXPECT_FALSE(set.hasOneAround("/a"));
    EXPECT_FALSE(set.hasOneAround("/a/bc"));
    EXPECT_TRUE(set.hasOneWithin("/a/b"));
    EXPECT_TRUE(set.hasOneWithin("/a"));
    EXPECT_TRUE(set.hasOneWithin("/"));
    EXPECT_FALSE(set.hasOneWithin("/a/b/c"));
    EXPECT_FALSE(set.hasOneWithin("/a/bc"));
    EXPECT_FALSE(set.hasOneWithin("/b"));
}

TEST(PlaceSet, MeetsWhatIsLiesInOrHoldsAPlace)
{
    PlaceSet places;
    EXPECT_FALSE(places.meets("/a"));
    places.insert("/a/b");
    for (const char *met : {"/", "/a", "/a/b", "/a/b/c/d"})
        EXPECT_TRUE(places.meets(met)) << met;
    for (const char *other : {"/a/bc", "/a/c", "/b"})
        EXPECT_FALSE(places.meets(other)) << other;
}

TEST(PlaceSet, IsMadeOfThePlacesOfPaths)
{
    const TemporaryHome home;
    home.folder("true");
    home.link("link", home / "true");
    const PlaceSet places = placesOf({home / "link/a", "/gone/b"});
    EXPECT_TRUE(places.hasOneAround(home / "true/a/c"));
    EXPECT_TRUE(places.hasOneWithin("/gone/b"));
    EXPECT_FALSE(places.hasOneWithin(home / "link"));
}

TEST(PlaceSet, HoldsEverythingOnceTheRootIsInIt)
{
    PlaceSet set;
    set.insert("/");
    EXPECT_TRUE(set.hasOneAround("/a/b"));
    EXPECT_TRUE(set.hasOneWithin("/"));
    EXPECT_FALSE(set.hasOneWithin("/a"));
}

TEST(PlaceSet, LosesAPlaceWithAllThatLiesInIt)
{
    PlaceSet set;
    for (const char *place : {"/a", "/a/b", "/a/b/c", "/a/b-c", "/b"})
        set.insert(place);
    set.removeWithin("/a/b");
    EXPECT_FALSE(set.hasOneWithin("/a/b"));
    EXPECT_TRUE(set.hasOneWithin("/a/b-c"));
    EXPECT_TRUE(set.hasOneWithin("/b"));
    set.removeWithin("/");
    EXPECT_TRUE(set.isEmpty());
}

} // namespace tidlo
