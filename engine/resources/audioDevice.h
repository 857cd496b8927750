// Whether this machine can make a sound at all.
#pragma once

namespace mv {

// Whether the system's audio device opened. Without one, the audio library
// reports every call it makes, and a track streamed to nowhere spins doing
// so without end: sounds and music then stay silent. Found out at the first
// question and kept for the program's life.
bool audioDeviceOpened();

}  // namespace mv
