#include "FramePacer.h"

#include <gtest/gtest.h>

namespace {

using mv::FramePacer;

TEST(FramePacer, SleepsWhatIsLeftOwesOvershootsReportsOverrunsAndRunsFlatOutAtZeroOrBelow) {
  FramePacer pacer(33);
  EXPECT_EQ(pacer.timeLeft(20000), 13000) << "20 ms of work leaves 13 ms to sleep";
  EXPECT_EQ(pacer.pathBudget(20000), 12) << "95 % of 13 ms, truncated";

  pacer.sleptFor(13000, 13400);
  EXPECT_EQ(pacer.getAdjust(), 400);
  EXPECT_EQ(pacer.timeLeft(0), 32600) << "the next frame is reckoned from 32.6 ms";

  pacer.sleptFor(13000, 12000);
  EXPECT_EQ(pacer.getAdjust(), 0) << "a sleep that ended early owes nothing";
  EXPECT_EQ(pacer.timeLeft(32500), 500) << "under a millisecond left: the loop sleeps 0 ms";

  // An overrun is reported after the first frame, and only when nothing was owed.
  EXPECT_LE(pacer.timeLeft(500000), 0);
  EXPECT_FALSE(pacer.overran(0)) << "the first frame of a run never complains";
  EXPECT_TRUE(pacer.overran(1));
  pacer.sleptFor(1000, 3000);
  EXPECT_FALSE(pacer.overran(5)) << "an overrun while paying back an overshoot is not reported";
  EXPECT_EQ(pacer.getAdjust(), 0);
  EXPECT_TRUE(pacer.overran(6)) << "only the next overrun is";

  for (int frame_time : {0, -5}) {
    FramePacer flat_out(frame_time);
    EXPECT_LE(flat_out.timeLeft(0), 0);
    EXPECT_LE(flat_out.pathBudget(0), 0);
    EXPECT_FALSE(flat_out.overran(10)) << "no complaint";
  }
  // Huge frame times wrap instead of overflowing.
  EXPECT_EQ(FramePacer(2147483).timeLeft(0), 2147483000);
  EXPECT_LT(FramePacer(3000000).timeLeft(0), 0)
      << "3000 seconds do not fit 32 bits of microseconds";
}

}  // namespace
