#include "soundFile.h"

#include <cmath>
#include <cstdint>
#include <fstream>

namespace mv_test {

namespace {

constexpr std::uint32_t SAMPLE_RATE = 44100;
constexpr std::uint16_t BYTES_PER_SAMPLE = 2;

// WAV numbers are little-endian whatever the machine.
void writeLittleEndian(std::ofstream& file, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; i++) {
    file.put(static_cast<char>((value >> (8 * i)) & 0xff));
  }
}

}  // namespace

void writeWav(const std::string& path, int sample_count) {
  std::ofstream file(path, std::ios::binary);
  const std::uint32_t data_size = static_cast<std::uint32_t>(sample_count) * BYTES_PER_SAMPLE;
  file << "RIFF";
  writeLittleEndian(file, 36 + data_size, 4);
  file << "WAVEfmt ";
  writeLittleEndian(file, 16, 4);  // the size of the format chunk
  writeLittleEndian(file, 1, 2);   // PCM
  writeLittleEndian(file, 1, 2);   // one channel
  writeLittleEndian(file, SAMPLE_RATE, 4);
  writeLittleEndian(file, SAMPLE_RATE * BYTES_PER_SAMPLE, 4);
  writeLittleEndian(file, BYTES_PER_SAMPLE, 2);
  writeLittleEndian(file, 8 * BYTES_PER_SAMPLE, 2);
  file << "data";
  writeLittleEndian(file, data_size, 4);
  for (int i = 0; i < sample_count; i++) {
    const double tone = std::sin(i * 2 * M_PI * 440.0 / SAMPLE_RATE);
    writeLittleEndian(file, static_cast<std::uint16_t>(static_cast<std::int16_t>(1000 * tone)), 2);
  }
}

int samplesFor(double seconds) {
  return static_cast<int>(seconds * SAMPLE_RATE);
}

}  // namespace mv_test
