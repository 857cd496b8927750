// Feeds any bytes to the sprite loader as a sprite file, so both formats and
// the test that tells them apart are searched. Whatever loads must be whole:
// every frame the size the sprite claims.
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "ResourceManager.h"
#include "quietEngine.h"

namespace {

std::string sprite_file;

void removeSpriteFile() { unlink(sprite_file.c_str()); }

// The file is rewritten for every input, so it lives in memory where the system allows.
void makeSpriteFile() {
  const std::filesystem::path directory = std::filesystem::is_directory("/dev/shm")
                                              ? std::filesystem::path("/dev/shm")
                                              : std::filesystem::temp_directory_path();
  sprite_file = (directory / "morvane-sprite-fuzz-XXXXXX").string();
  const int descriptor = mkstemp(sprite_file.data());
  if (descriptor == -1) {
    std::abort();
  }
  close(descriptor);
  std::atexit(removeSpriteFile);
}

void writeSpriteFile(const std::uint8_t* data, std::size_t size) {
  std::ofstream file(sprite_file, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

void requireWhole(const mv::Sprite& sprite) {
  const std::size_t area = static_cast<std::size_t>(sprite.getWidth()) * sprite.getHeight();
  for (int f = 0; f < sprite.getFrameCount(); f++) {
    const mv::Frame frame = sprite.getFrame(f);
    if (frame.getString().size() != area || frame.getWidth() != sprite.getWidth() ||
        frame.getHeight() != sprite.getHeight()) {
      std::abort();
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  mv_fuzz::startQuietLog();
  // The manager's sound slots open the audio device once, here rather than inside an input.
  mv::ResourceManager::getInstance();
  makeSpriteFile();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  writeSpriteFile(data, size);
  mv::ResourceManager& resources = mv::ResourceManager::getInstance();
  resources.startUp();
  if (resources.loadSprite(sprite_file, "fuzz") == 0) {
    requireWhole(*resources.getSprite("fuzz"));
  }
  resources.shutDown();
  return 0;
}
