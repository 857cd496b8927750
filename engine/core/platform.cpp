#include "platform.h"

#include <chrono>
#include <cstdlib>
#include <thread>

namespace mv {
namespace platform {

std::uint32_t nowMicroseconds() {
  // A steady clock never jumps with the calendar, so a split across the end of
  // a month or a change of the system time is still right.
  const auto since_start = std::chrono::steady_clock::now().time_since_epoch();
  const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(since_start).count();
  return static_cast<std::uint32_t>(micros);
}

void sleepMilliseconds(int milliseconds) {
  if (milliseconds <= 0) {
    std::this_thread::yield();
    return;
  }
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

int random15() { return std::rand() & 0x7fff; }

// Linux sleeps already wake with sub-millisecond precision, so any period of
// one millisecond or more is granted without asking the kernel for anything.
int beginTimerPeriod(int milliseconds) { return milliseconds >= 1 ? 0 : TIMER_NO_CAN_DO; }

int endTimerPeriod(int milliseconds) { return milliseconds >= 1 ? 0 : TIMER_NO_CAN_DO; }

}  // namespace platform
}  // namespace mv
