#include "Clock.h"

namespace mv {

namespace {

// The difference of two wrapping readings, taken modulo 2^32 so that a reading
// that wrapped past the largest int still gives the right, small difference.
int elapsedSince(std::int32_t earlier, std::int32_t later) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(later) -
                                   static_cast<std::uint32_t>(earlier));
}

}  // namespace

Clock::Clock(TimeSource source) : source(source), previous(now()) {}

std::int32_t Clock::now() const { return static_cast<std::int32_t>(source()); }

int Clock::delta() {
  const std::int32_t reading = now();
  const int elapsed = elapsedSince(previous, reading);
  previous = reading;
  return elapsed;
}

int Clock::split() const { return elapsedSince(previous, now()); }

}  // namespace mv
