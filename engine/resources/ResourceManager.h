// The engine's store of sprites, sounds and music: loads them from files once,
// at the game's start, keeps them to shutdown and hands them out by label.
// Objects borrow what they get from here; nothing is unloaded earlier.
#pragma once

#include <array>
#include <fstream>
#include <memory>
#include <string>

#include "Manager.h"
#include "Music.h"
#include "Sound.h"
#include "Sprite.h"

namespace mv {

constexpr int MAX_SPRITES = 1000;
constexpr int MAX_SOUNDS = 100;
constexpr int MAX_MUSICS = 50;

// Sizes a sprite file may ask for. Beyond them a file is taken as damaged, not
// as art, and refused before anything is allocated for it.
constexpr int MAX_SPRITE_FRAMES = 10000;
constexpr int MAX_SPRITE_SIDE = 1000;

class ResourceManager : public Manager {
 public:
  static ResourceManager& getInstance();

  // 0, or -1 on a second start.
  int startUp() override;

  // Deletes the sprites and stops every sound and track; the audio stays loaded.
  void shutDown() override;

  // Reads a sprite file of either format, told apart by its first line, and
  // keeps the sprite under `label`: 0, or -1 with the reason in the log.
  int loadSprite(std::string filename, std::string label);

  // The first resource loaded under `label`, or null with a warning.
  Sprite* getSprite(std::string label) const;
  Sound* getSound(std::string label);
  Music* getMusic(std::string label);

  int loadSound(std::string filename, std::string label);
  // Music needs a label; an empty one is refused.
  int loadMusic(std::string filename, std::string label);

 private:
  ResourceManager();

  // The two sprite file formats. Each reads from the start of the open file
  // and answers the sprite, or null after logging the line that is wrong.
  std::unique_ptr<Sprite> loadSimpleSprite(std::ifstream& file);
  std::unique_ptr<Sprite> loadRobustSprite(std::ifstream& file);

  bool refuseWhenStopped() const;

  std::array<std::unique_ptr<Sprite>, MAX_SPRITES> sprites;
  int sprite_count;
  std::array<Sound, MAX_SOUNDS> sounds;
  int sound_count;
  std::array<Music, MAX_MUSICS> music;
  int music_count;
};

}  // namespace mv
