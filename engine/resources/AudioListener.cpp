#include "AudioListener.h"

namespace mv {

namespace {

AudioListener* listener = nullptr;

}  // namespace

AudioListener::~AudioListener() = default;

void setAudioListener(AudioListener* new_listener) { listener = new_listener; }

void tellAudioListener(bool music, AudioAction action, const std::string& label) {
  if (listener != nullptr) {
    listener->audioChanged(music, action, label);
  }
}

}  // namespace mv
