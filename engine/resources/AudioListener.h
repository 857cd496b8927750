// Hears of every sound and piece of music that starts or stops, by label, so
// that those who watch a game hear what its player hears.
#pragma once

#include <string>

namespace mv {

enum AudioAction { AUDIO_STOPPED = 0, AUDIO_PLAYED = 1, AUDIO_LOOPED = 2 };

class AudioListener {
 public:
  virtual ~AudioListener();
  virtual void audioChanged(bool music, AudioAction action, const std::string& label) = 0;
};

// The one listener, not owned; null for none.
void setAudioListener(AudioListener* listener);
// Tells the listener, if there is one.
void tellAudioListener(bool music, AudioAction action, const std::string& label);

}  // namespace mv
