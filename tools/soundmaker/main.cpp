// soundmaker: makes the game's sounds from nothing but oscillators, noise and envelopes.
//
// It writes five mono 16-bit WAV files at 22050 Hz into the directory it is given:
//
//   damage.wav     the hero is hit: a short punchy crunch
//   game_over.wav  the hero is destroyed: an explosion that sinks into a falling, sad phrase
//   shoot.wav      each volley of the hero: a short, soft laser shot
//   upgrade.wav    an upgrade is chosen: a bright rising chime
//   theme.wav      the theme music: a calm chiptune in D minor that loops without a seam
//
// The noise has fixed seeds, so remaking the sounds gives the same bytes. To remake them after a
// change, build the target `soundmaker` and run, from the repository root:
//
//   build/tools/soundmaker/soundmaker Sounds

#include <sndfile.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "effects.h"
#include "synth.h"
#include "theme.h"

namespace {

namespace fs = std::filesystem;

struct SoundFile {
  const char* name;
  soundmaker::Samples (*make)();
};

// Returns an error message, empty on success.
std::string writeSamples(const fs::path& path, const soundmaker::Samples& samples) {
  SF_INFO info{};
  info.samplerate = soundmaker::kSampleRate;
  info.channels = 1;
  info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  if (file == nullptr) {
    return sf_strerror(nullptr);
  }
  const auto count = static_cast<sf_count_t>(samples.size());
  std::string error = sf_write_float(file, samples.data(), count) == count ? "" : sf_strerror(file);
  if (sf_close(file) != 0 && error.empty()) {
    error = "the file could not be closed";
  }
  return error;
}

// Writes beside the target first and renames on success, so that a failed run never leaves a
// half-written sound where the game would load it. Returns an error message, empty on success.
std::string writeWav(const fs::path& path, const soundmaker::Samples& samples) {
  const fs::path partial = fs::path(path).concat(".part");
  std::string error = writeSamples(partial, samples);
  if (error.empty()) {
    std::error_code renamed;
    fs::rename(partial, path, renamed);
    if (!renamed) {
      return "";
    }
    error = renamed.message();
  }
  std::error_code ignored;
  fs::remove(partial, ignored);
  return error;
}

int makeAll(const fs::path& directory) {
  const std::vector<SoundFile> files = {
      {"damage.wav", soundmaker::makeDamage}, {"game_over.wav", soundmaker::makeGameOver},
      {"shoot.wav", soundmaker::makeShoot},   {"upgrade.wav", soundmaker::makeUpgrade},
      {"theme.wav", soundmaker::makeTheme},
  };
  for (const SoundFile& file : files) {
    const soundmaker::Samples samples = file.make();
    const fs::path path = directory / file.name;
    const std::string error = writeWav(path, samples);
    if (!error.empty()) {
      std::fprintf(stderr, "soundmaker: cannot write %s: %s\n", path.c_str(), error.c_str());
      return 1;
    }
    std::printf("wrote %s (%.2f s)\n", path.c_str(),
                static_cast<double>(samples.size()) / soundmaker::kSampleRate);
  }
  return 0;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: soundmaker OUTPUT_DIRECTORY\n");
    return 1;
  }
  const fs::path directory = argv[1];
  std::error_code error;
  if (!fs::is_directory(directory, error)) {
    std::fprintf(stderr, "soundmaker: %s is not a directory\n", argv[1]);
    return 1;
  }
  try {
    return makeAll(directory);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "soundmaker: %s\n", failure.what());
    return 1;
  }
}
