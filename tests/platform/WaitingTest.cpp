#include <atomic>
#include <chrono>
#include <thread>

#include <gtest/gtest.h>

#include "platform/Event.h"
#include "platform/ReadTimer.h"

namespace korvel { namespace {

using std::chrono::milliseconds;

TEST(Event, ManualStaysAutomaticIsTaken) {
    Event manual(Event::Reset::Manual);
    Event automatic(Event::Reset::Auto);
    EXPECT_EQ(Event::waitAny({&manual, &automatic}, milliseconds(1)), std::nullopt);
    manual.set();
    automatic.set();
    automatic.set();
    EXPECT_TRUE(automatic.isSet());
    EXPECT_EQ(Event::waitAny({&automatic, &manual}, Event::kInfinite), 0U);
    EXPECT_FALSE(automatic.isSet());
    EXPECT_EQ(Event::waitAny({&automatic, &manual}, Event::kInfinite), 1U);
    EXPECT_TRUE(manual.isSet());
    manual.reset();
    EXPECT_FALSE(manual.wait(milliseconds(0)));
}

TEST(Event, OneOfSeveralWaitersTakesAnAutomaticSignal) {
    Event signal(Event::Reset::Auto);
    Event end(Event::Reset::Manual);
    Event taken(Event::Reset::Auto);
    std::atomic<int> count = 0;
    const auto waiter = [&] {
        while (Event::waitAny({&end, &signal}, Event::kInfinite) == 1U) {
            ++count;
            taken.set();
        }
    };
    std::thread one(waiter);
    std::thread two(waiter);
    for (int i = 0; i < 100; ++i) {
        signal.set();
        ASSERT_TRUE(taken.wait(std::chrono::seconds(30)));
    }
    end.set();
    one.join();
    two.join();
    EXPECT_EQ(count, 100);
}

TEST(ReadTimer, EndsAtTheGapOrAtTheWhole) {
    const ReadTimer::Time start{};
    const auto at = [&](int ms) { return start + milliseconds(ms); };

    ReadTimer byte({4, 3, 5, 0, 0}, 1, start);
    EXPECT_EQ(byte.left(at(0)), milliseconds(8));
    EXPECT_EQ(byte.left(at(8)), milliseconds(0));
    EXPECT_EQ(byte.left(at(100)), milliseconds(0));

    ReadTimer block({4, 3, 5, 0, 0}, 10, start);
    EXPECT_EQ(block.left(at(20)), milliseconds(15));  // no gap before the first byte
    for (const auto& [noted, asked, left] : {std::tuple{20, 21, 3}, {23, 24, 3}, {34, 34, 1}}) {
        block.noteBytes(at(noted));
        EXPECT_EQ(block.left(at(asked)), milliseconds(left)) << noted;
    }
    EXPECT_EQ(block.left(start + std::chrono::microseconds(34'999)), milliseconds(1));

    ReadTimer endless({0, 0, 0, 0, 0}, 10, start);
    endless.noteBytes(at(5));
    EXPECT_EQ(endless.left(at(1'000'000)), std::nullopt);

    ReadTimer gapOnly({4, 0, 0, 0, 0}, 10, start);
    EXPECT_EQ(gapOnly.left(at(100)), std::nullopt);
    gapOnly.noteBytes(at(100));
    EXPECT_EQ(gapOnly.left(at(104)), milliseconds(0));
}

}}  // namespace korvel
