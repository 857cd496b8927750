// Writes the numbers and strings of an object's byte record: every number as
// the little-endian bytes of its value, a length as eight bytes, a string as
// its length and then its characters, with no terminator.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace mv {

class ByteWriter {
 public:
  explicit ByteWriter(std::ostream& stream);

  void writeInt(int value);
  void writeUnsigned(std::uint32_t value);
  void writeFloat(float value);
  // One byte, 0 or 1.
  void writeBool(bool value);
  void writeByte(unsigned char value);
  void writeLength(std::uint64_t length);
  void writeString(const std::string& text);

 private:
  void writeLittleEndian(std::uint64_t value, int byte_count);

  std::ostream& stream;
};

}  // namespace mv
