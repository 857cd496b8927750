#include "ResourceTest.h"

#include <SFML/Audio/OutputSoundFile.hpp>

#include <cmath>

#include "LogManager.h"
#include "ResourceManager.h"
#include "logLines.h"

namespace mv_test {

namespace {

constexpr unsigned SAMPLE_RATE = 44100;

}  // namespace

void ResourceTest::SetUp() {
  mv::LogManager& log = mv::LogManager::getInstance();
  log.setFlush(true);
  ASSERT_EQ(log.startUp(), 0);
  ASSERT_EQ(mv::ResourceManager::getInstance().startUp(), 0);
}

void ResourceTest::TearDown() {
  mv::ResourceManager::getInstance().shutDown();
  mv::LogManager::getInstance().shutDown();
}

int ResourceTest::loadSprite(const std::string& contents, const std::string& label) {
  scratch.write("sprite.txt", contents);
  newMessages();
  const int result = mv::ResourceManager::getInstance().loadSprite("sprite.txt", label);
  logged = newMessages();
  return result;
}

std::vector<std::string> ResourceTest::newMessages() {
  const std::vector<std::string> all = logFileMessages();
  const std::vector<std::string> fresh(all.begin() + static_cast<long>(messages_seen), all.end());
  messages_seen = all.size();
  return fresh;
}

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
