// Small audio files that tests make for themselves.
#pragma once

#include <string>

namespace mv_test {

// Writes a mono, 16-bit, 44100 Hz WAV file of `sample_count` samples of a
// quiet tone, which SFML's audio reads as a sound or streams as music.
void writeWav(const std::string& path, int sample_count);

}  // namespace mv_test
