#include "platform.h"

#include <signal.h>

#include <atomic>
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

namespace {

constexpr int STOP_SIGNALS[] = {SIGINT, SIGTERM, SIGHUP};

// Lock-free, so that a handler may set it on whichever thread the signal comes to.
std::atomic<int> caught_stop_signal;
static_assert(std::atomic<int>::is_always_lock_free);

// A handler may do little safely; the frame loop looks at the flag.
extern "C" void keepStopSignal(int signal_number) { caught_stop_signal = signal_number; }

void handleStopSignalsWith(void (*handler)(int), int flags) {
  // Zeroed, the action blocks no other signal while its handler runs.
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = flags;
  for (int signal_number : STOP_SIGNALS) {
    sigaction(signal_number, &action, nullptr);
  }
}

}  // namespace

void catchStopSignals() {
  caught_stop_signal = 0;
  // Once caught, a signal takes back its default action, so that a second one
  // ends a program whose shut-down hangs. Calls that it interrupts go on.
  handleStopSignalsWith(keepStopSignal, SA_RESETHAND | SA_RESTART);
}

int caughtStopSignal() { return caught_stop_signal; }

void releaseStopSignals() { handleStopSignalsWith(SIG_DFL, 0); }

}  // namespace platform
}  // namespace mv
