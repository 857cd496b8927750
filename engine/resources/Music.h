// A music track streamed from its file while it plays, with the label it is found by.
#pragma once

#include <memory>
#include <string>

namespace sf {
class Music;
}  // namespace sf

namespace mv {

class Music {
 public:
  Music();
  ~Music();

  Music(const Music&) = delete;
  Music& operator=(const Music&) = delete;

  // Opens an audio file for streaming: 0, or -1. The caller logs a failure.
  int loadMusic(std::string filename);

  void setLabel(std::string new_label);
  std::string getLabel() const;

  void play(bool loop);
  void stop();
  bool isPlaying() const;

 private:
  std::unique_ptr<sf::Music> music;
  std::string label;
};

}  // namespace mv
