#include "Clock.h"

#include <gtest/gtest.h>

#include "platform.h"

namespace {

TEST(Clock, SplitLeavesTheStopwatchRunningAndDeltaRestartsIt) {
  mv::Clock clock;
  mv::platform::sleepMilliseconds(5);
  const int first_split = clock.split();
  EXPECT_GE(first_split, 5000);
  EXPECT_GE(clock.split(), first_split) << "split does not restart the stopwatch";

  EXPECT_GE(clock.delta(), first_split);
  EXPECT_LT(clock.split(), first_split) << "delta restarted it";
}

}  // namespace
