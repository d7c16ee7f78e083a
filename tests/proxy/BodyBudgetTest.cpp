#include "proxy/BodyBudget.h"

#include <gtest/gtest.h>

#include <optional>

namespace tidlo::proxy {
namespace {

using namespace std::chrono_literals;

const Clock::time_point never = Clock::time_point::max();

/// A budget of 100 KB for bodies.
class BodyBudgetTest : public testing::Test
{
protected:
    /// Set, once it is known, to whether \a share may hold \a bytes.
    std::shared_ptr<std::optional<bool>> hold(BodyBudget::Share &share, size_t bytes,
                                              Clock::time_point deadline = never)
    {
        auto outcome = std::make_shared<std::optional<bool>>();
        asio::co_spawn(loop, share.hold(bytes, deadline),
                       [outcome](const std::exception_ptr &, bool holds) { *outcome = holds; });
        run();
        return outcome;
    }
    void run()
    {
        loop.restart();
        loop.poll();
    }

    asio::io_context loop;
    BodyBudget budget{100'000};
};

} // namespace

TEST_F(BodyBudgetTest, LetsABodyWaitUntilOthersHaveGone)
{
    BodyBudget::Share first(&budget);
    BodyBudget::Share second(&budget);
    BodyBudget::Share third(&budget);
    EXPECT_EQ(*hold(first, 100'000), true);

    const auto secondHolds = hold(second, 60'000);
    const auto thirdHolds = hold(third, 40'000);
    EXPECT_EQ(*secondHolds, std::nullopt);
    first.release();
    run();

    EXPECT_EQ(*secondHolds, true);
    EXPECT_EQ(*thirdHolds, true) << "there is room for both";
}

TEST_F(BodyBudgetTest, GivesNoRoomAfterTheDeadline)
{
    BodyBudget::Share first(&budget);
    BodyBudget::Share second(&budget);
    hold(first, 100'000);

    EXPECT_EQ(*hold(second, 8'193, Clock::now()), false);
    first.release();
    EXPECT_EQ(*hold(second, 100'000, Clock::now()), true) << "nothing was counted";
}

TEST_F(BodyBudgetTest, AlwaysHasRoomForASmallBody)
{
    BodyBudget::Share first(&budget);
    BodyBudget::Share second(&budget);
    hold(first, 100'000);

    EXPECT_EQ(*hold(second, 8'192), true);
}

TEST_F(BodyBudgetTest, CountsWhatGrowsOnce)
{
    BodyBudget::Share share(&budget);
    EXPECT_EQ(*hold(share, 60'000), true);
    EXPECT_EQ(*hold(share, 100'000), true);
    EXPECT_EQ(*hold(share, 100'001, Clock::now()), false);
}

} // namespace tidlo::proxy
