// Reads the numbers and strings of an object's byte record, which may come from
// another process or over a network and so may be short, corrupt or hostile.
// A read that cannot be trusted fails the stream, with a line in the log that
// names the reader; every later read then fails too, so a record stops at its
// first fault. No length from the stream is believed beyond the bytes left in
// it, so nothing is ever allocated by a length the stream cannot back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>

namespace mv {

class ByteReader {
 public:
  // The longest string a record may hold.
  static constexpr std::size_t MAX_STRING = 1 << 16;

  // `where` names the reader in the log, as "Object::deserialize()".
  ByteReader(std::istream& stream, const char* where);

  // Each answers whether the stream is still good; on false the value is untouched.
  bool readInt(int& value);
  bool readUnsigned(std::uint32_t& value);
  // Refuses a number that is not finite: no position or speed is ever meant to be one.
  bool readFloat(float& value);
  // Refuse also a number outside [low, high], naming it and the range in the log.
  bool readInRange(int& value, int low, int high);
  bool readInRange(float& value, float low, float high);
  // Any byte but 0 reads as true.
  bool readBool(bool& value);
  bool readByte(unsigned char& value);
  bool readString(std::string& text);
  // A length of eight bytes, or a count of four, of items of at least
  // `item_size` bytes each: held to what the stream has left and to `max_count`.
  bool readLength(std::size_t& length, std::size_t item_size, std::size_t max_count);
  bool readCount(int& count, std::size_t item_size, std::size_t max_count);

  bool good() const;

 private:
  bool readLittleEndian(std::uint64_t& value, int byte_count);
  std::size_t bytesLeft() const;
  bool checkCount(unsigned long long count, std::size_t item_size, std::size_t max_count);
  // Stores `read` if it lies in [low, high]; otherwise logs and fails the stream.
  template <typename Number>
  bool keepInRange(Number read, Number& value, Number low, Number high);
  bool fail();

  std::istream& stream;
  const char* where;
};

}  // namespace mv
