#include "Sound.h"

#include <SFML/Audio/Sound.hpp>
#include <SFML/Audio/SoundBuffer.hpp>
#include <utility>

#include "AudioListener.h"
#include "LogManager.h"
#include "audioDevice.h"

namespace mv {

Sound::Sound() : sound_buffer(std::make_unique<sf::SoundBuffer>()), label("[Undefined]") {}

// The player goes before the samples it plays.
Sound::~Sound() { sound.reset(); }

int Sound::loadSound(std::string filename) {
  if (!sound_buffer->loadFromFile(filename)) {
    return -1;
  }
  if (sound == nullptr) {
    sound = std::make_unique<sf::Sound>(*sound_buffer);
  } else {
    sound->setBuffer(*sound_buffer);
  }
  return 0;
}

void Sound::setLabel(std::string new_label) { label = std::move(new_label); }

std::string Sound::getLabel() const { return label; }

void Sound::play(bool loop) {
  LogManager::getInstance().writeLog(5, "Sound::play(): Playing sound.");
  if (sound != nullptr) {
    tellAudioListener(false, loop ? AUDIO_LOOPED : AUDIO_PLAYED, label);
  }
  if (sound != nullptr && audioDeviceOpened()) {
    sound->play();
    sound->setLoop(loop);
  }
}

void Sound::stop() {
  if (sound != nullptr) {
    tellAudioListener(false, AUDIO_STOPPED, label);
    sound->stop();
  }
}

bool Sound::isPlaying() const {
  return sound != nullptr && sound->getStatus() == sf::SoundSource::Playing;
}

}  // namespace mv
