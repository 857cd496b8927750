// The arithmetic that paces the frame loop, kept apart from the clock and the
// sleep. All times are microseconds in signed 32-bit arithmetic, as the loop reckons.
#pragma once

namespace mv {

class FramePacer {
 public:
  explicit FramePacer(int frame_time_ms);

  // What is left of the frame after `split` microseconds of work, less the
  // overshoot of the previous frame's sleep.
  int timeLeft(int split) const;

  // Whole milliseconds the path search may spend: 95 % of what is left.
  int pathBudget(int split) const;

  // The sleep of a frame with `left` microseconds to spare took `slept`: what it
  // overshot is taken off the next frame.
  void sleptFor(int left, int slept);

  // The frame used up its time. Answers whether to report that it can't keep
  // up: not in the first frame, not with frame_time 0 or less, and not while
  // an overshoot was being paid back.
  bool overran(int step_count);

  int getAdjust() const;

 private:
  int frame_time;
  int adjust;
};

}  // namespace mv
