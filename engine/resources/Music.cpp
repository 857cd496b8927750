#include "Music.h"

#include <SFML/Audio/Music.hpp>
#include <utility>

#include "AudioListener.h"
#include "LogManager.h"
#include "audioDevice.h"

namespace mv {

Music::Music() : music(std::make_unique<sf::Music>()), label("[Undefined]") {}

Music::~Music() = default;

int Music::loadMusic(std::string filename) { return music->openFromFile(filename) ? 0 : -1; }

void Music::setLabel(std::string new_label) { label = std::move(new_label); }

std::string Music::getLabel() const { return label; }

void Music::play(bool loop) {
  LogManager::getInstance().writeLog(5, "Music::play(): Playing music.");
  tellAudioListener(true, loop ? AUDIO_LOOPED : AUDIO_PLAYED, label);
  if (!audioDeviceOpened()) {
    return;
  }
  music->play();
  music->setLoop(loop);
}

void Music::stop() {
  LogManager::getInstance().writeLog(5, "Music::stop(): Stopping music.");
  tellAudioListener(true, AUDIO_STOPPED, label);
  music->stop();
}

bool Music::isPlaying() const { return music->getStatus() == sf::SoundSource::Playing; }

}  // namespace mv
