// Microsecond stopwatch for the frame loop and the path search.
#pragma once

#include <cstdint>

namespace mv {

class Clock {
 public:
  // Starts the stopwatch now.
  Clock();

  // Microseconds since the previous reading, and restarts the stopwatch.
  int delta();

  // Microseconds since the previous reading; the stopwatch runs on.
  int split() const;

 private:
  std::int32_t previous;
};

}  // namespace mv
