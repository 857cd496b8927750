#include "soundFile.h"

#include <SFML/Audio/OutputSoundFile.hpp>

#include <cmath>
#include <vector>

namespace mv_test {

namespace {

constexpr unsigned SAMPLE_RATE = 44100;

}  // namespace

void writeWav(const std::string& path, int sample_count) {
  std::vector<sf::Int16> samples(static_cast<std::size_t>(sample_count));
  for (std::size_t i = 0; i < samples.size(); i++) {
    samples[i] = static_cast<sf::Int16>(1000 * std::sin(i * 2 * M_PI * 440.0 / SAMPLE_RATE));
  }
  // Written without the audio device, which a test may have made unreachable.
  sf::OutputSoundFile file;
  file.openFromFile(path, SAMPLE_RATE, 1);
  file.write(samples.data(), samples.size());
}

}  // namespace mv_test
