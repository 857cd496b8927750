#include "Clock.h"

#include <gtest/gtest.h>

namespace {

// A clock that a test sets by hand.
std::uint32_t fake_now = 0;
std::uint32_t fakeTime() { return fake_now; }

TEST(Clock, SplitLeavesTheStopwatchRunningAndDeltaRestartsItAcrossTheWrap) {
  fake_now = 0x7ffff000u;
  mv::Clock clock(fakeTime);
  fake_now += 5000;
  EXPECT_EQ(clock.split(), 5000) << "the reading wrapped past the largest int";
  fake_now += 1000;
  EXPECT_EQ(clock.split(), 6000) << "split does not restart the stopwatch";
  EXPECT_EQ(clock.delta(), 6000);
  fake_now += 250;
  EXPECT_EQ(clock.split(), 250) << "delta restarted it";
}

}  // namespace
