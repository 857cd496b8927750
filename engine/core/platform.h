// The few operating-system services the engine needs, behind names of its own:
// a monotonic microsecond source, a millisecond sleep, the system timer period
// and the signals that ask the program to stop.
#pragma once

#include <cstdint>

namespace mv {
namespace platform {

// What a timer-period request answers when the system cannot give that period.
constexpr int TIMER_NO_CAN_DO = 97;

// Microseconds from a fixed point, wrapping modulo 2^32. Only differences of
// two readings mean anything; they are exact as long as they fit 32 bits.
std::uint32_t nowMicroseconds();

// Suspends the calling thread for about `milliseconds`; 0 or less only yields.
void sleepMilliseconds(int milliseconds);

// A random whole number from 0 to 32767 from the standard generator. Effects
// scale random numbers by that range, which is where rand() ends on some
// systems and not on others.
int random15();

// Asks for a system timer period of `milliseconds`: 0 when granted, else TIMER_NO_CAN_DO.
int beginTimerPeriod(int milliseconds);
int endTimerPeriod(int milliseconds);

// From now on SIGINT, SIGTERM and SIGHUP ask the program to stop instead of
// ending it: the first one to come is kept for caughtStopSignal to tell.
// The same signal again ends the program at once.
void catchStopSignals();

// The stop signal caught since catchStopSignals, or 0.
int caughtStopSignal();

// The three signals end the program at once again; a signal caught before is still told.
void releaseStopSignals();

}  // namespace platform
}  // namespace mv
