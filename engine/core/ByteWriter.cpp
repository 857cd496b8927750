#include "ByteWriter.h"

#include <cstring>

namespace mv {

ByteWriter::ByteWriter(std::ostream& stream) : stream(stream) {}

void ByteWriter::writeLittleEndian(std::uint64_t value, int byte_count) {
  char bytes[8];
  for (int i = 0; i < byte_count; i++) {
    bytes[i] = static_cast<char>((value >> (8 * i)) & 0xff);
  }
  stream.write(bytes, byte_count);
}

void ByteWriter::writeInt(int value) { writeUnsigned(static_cast<std::uint32_t>(value)); }

void ByteWriter::writeUnsigned(std::uint32_t value) { writeLittleEndian(value, 4); }

void ByteWriter::writeFloat(float value) {
  static_assert(sizeof(float) == 4, "a record's floats are four bytes of IEEE 754");
  std::uint32_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  writeUnsigned(bits);
}

void ByteWriter::writeBool(bool value) { writeByte(value ? 1 : 0); }

void ByteWriter::writeByte(unsigned char value) { writeLittleEndian(value, 1); }

void ByteWriter::writeLength(std::uint64_t length) { writeLittleEndian(length, 8); }

void ByteWriter::writeString(const std::string& text) {
  writeLength(text.size());
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace mv
