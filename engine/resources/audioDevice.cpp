#include "audioDevice.h"

#include <SFML/Audio/SoundBuffer.hpp>
#include <SFML/System/Err.hpp>
#include <sstream>

namespace mv {

namespace {

// With a device, making a sample buffer says nothing; without one, the audio
// library says that the device failed or that its call did.
bool probeAudioDevice() {
  std::ostringstream said;
  std::streambuf* const before = sf::err().rdbuf(said.rdbuf());
  { const sf::SoundBuffer probe; }
  sf::err().rdbuf(before);
  return said.str().empty();
}

}  // namespace

bool audioDeviceOpened() {
  static const bool opened = probeAudioDevice();
  return opened;
}

}  // namespace mv
