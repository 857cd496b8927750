// Helpers for tests of loading resources. The fixture: a scratch working directory, a
// started log that is written through line by line, and a started resource
// manager. Tests read back what each load wrote to the log.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ScratchDirectory.h"

namespace mv_test {

class ResourceTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Writes `contents` to a file and loads it as the sprite `label`; the
  // messages that the load wrote are then in `logged`.
  int loadSprite(const std::string& contents, const std::string& label = "ship");

  // The messages written since the last call, or since the test began.
  std::vector<std::string> newMessages();

  ScratchDirectory scratch;
  std::vector<std::string> logged;

 private:
  std::size_t messages_seen = 0;
};

// Writes a mono, 16-bit, 44100 Hz WAV file of `sample_count` samples of a
// quiet tone, which SFML's audio reads as a sound or streams as music.
void writeWav(const std::string& path, int sample_count);

}  // namespace mv_test
