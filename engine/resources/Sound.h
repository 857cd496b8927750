// A short sound effect held in memory, with the label it is found by.
#pragma once

#include <memory>
#include <string>

namespace sf {
class Sound;
class SoundBuffer;
}  // namespace sf

namespace mv {

class Sound {
 public:
  Sound();
  ~Sound();

  Sound(const Sound&) = delete;
  Sound& operator=(const Sound&) = delete;

  // Reads the samples of an audio file: 0, or -1 with the previous samples kept.
  // The caller logs a failure, since it knows what the file was for.
  int loadSound(std::string filename);

  void setLabel(std::string new_label);
  std::string getLabel() const;

  // Starts from the beginning; plays nothing until a load has succeeded.
  void play(bool loop);
  void stop();
  bool isPlaying() const;

 private:
  // Made at the first successful load and kept for later ones.
  std::unique_ptr<sf::Sound> sound;
  std::unique_ptr<sf::SoundBuffer> sound_buffer;
  std::string label;
};

}  // namespace mv
