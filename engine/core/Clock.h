// Microsecond stopwatch for the frame loop and the path search.
#pragma once

#include <cstdint>

#include "platform.h"

namespace mv {

class Clock {
 public:
  // Where readings come from: microseconds, wrapping modulo 2^32.
  using TimeSource = std::uint32_t (*)();

  // Starts the stopwatch now. Tests hand in a source of their own, so that
  // they measure time without waiting for it.
  explicit Clock(TimeSource source = platform::nowMicroseconds);

  // Microseconds since the previous reading, and restarts the stopwatch.
  int delta();

  // Microseconds since the previous reading; the stopwatch runs on.
  int split() const;

 private:
  std::int32_t now() const;

  TimeSource source;
  std::int32_t previous;
};

}  // namespace mv
