#include "proxy/Places.h"

#include <gtest/gtest.h>

namespace tidlo::proxy {
namespace {

boost::asio::ip::address at(const char *address)
{
    return boost::asio::ip::make_address(address);
}

} // namespace

TEST(Places, AreCountedByAddress)
{
    int left = 0;
    Places places(10, 1, [&] { ++left; });
    Places::Place place = places.take(at("192.0.2.1"));
    EXPECT_TRUE(place);

    EXPECT_FALSE(places.take(at("192.0.2.1")));
    EXPECT_FALSE(places.take(at("::ffff:192.0.2.1"))) << "it is the same";
    EXPECT_TRUE(places.take(at("192.0.2.2")));
    place.reset();
    EXPECT_TRUE(places.take(at("192.0.2.1")));
    EXPECT_EQ(left, 3);
    EXPECT_TRUE(places.isEmpty());
}

TEST(Places, AreCountedByTheNetworkOfAnAddressOfVersion6)
{
    Places places(10, 1, [] {});
    const Places::Place place = places.take(at("2001:db8:1:2::1"));

    EXPECT_FALSE(places.take(at("2001:db8:1:2:ffff::2")));
    EXPECT_TRUE(places.take(at("2001:db8:1:3::1")));
}

TEST(Places, AreForEverybodyWithoutALimitForAddresses)
{
    Places places(2, 0, [] {});
    const Places::Place first = places.take(at("::1"));
    EXPECT_FALSE(places.isFull());
    const Places::Place second = places.take(at("::1"));

    EXPECT_TRUE(second);
    EXPECT_TRUE(places.isFull());
}

} // namespace tidlo::proxy
