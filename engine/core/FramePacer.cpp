#include "FramePacer.h"

#include <cstdint>

namespace mv {

namespace {

// Signed 32-bit arithmetic that wraps as the loop's integers do, without the
// undefined behaviour of overflowing an int.
int wrap32(std::int64_t value) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

}  // namespace

FramePacer::FramePacer(int frame_time_ms) : frame_time(frame_time_ms), adjust(0) {}

int FramePacer::timeLeft(int split) const {
  return wrap32(static_cast<std::int64_t>(frame_time) * 1000 - split - adjust);
}

int FramePacer::pathBudget(int split) const {
  return static_cast<int>(static_cast<float>(timeLeft(split)) * 0.95f / 1000.0f);
}

void FramePacer::sleptFor(int left, int slept) {
  const int overshoot = wrap32(static_cast<std::int64_t>(slept) - left);
  adjust = overshoot > 0 ? overshoot : 0;
}

bool FramePacer::overran(int step_count) {
  const bool report = adjust == 0 && frame_time > 0 && step_count > 0;
  adjust = 0;
  return report;
}

int FramePacer::getAdjust() const { return adjust; }

}  // namespace mv
