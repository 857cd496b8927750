#include "ByteReader.h"

#include <cmath>
#include <cstring>
#include <utility>

#include "LogManager.h"
#include "utility.h"

namespace mv {

ByteReader::ByteReader(std::istream& stream, const char* where) : stream(stream), where(where) {}

bool ByteReader::good() const { return stream.good(); }

bool ByteReader::readLittleEndian(std::uint64_t& value, int byte_count) {
  unsigned char bytes[8];
  if (!stream.read(reinterpret_cast<char*>(bytes), byte_count)) {
    return false;
  }
  value = 0;
  for (int i = byte_count - 1; i >= 0; i--) {
    value = (value << 8) | bytes[i];
  }
  return true;
}

bool ByteReader::readInt(int& value) {
  std::uint32_t bits;
  if (!readUnsigned(bits)) {
    return false;
  }
  value = static_cast<int>(bits);
  return true;
}

bool ByteReader::readUnsigned(std::uint32_t& value) {
  std::uint64_t bits;
  if (!readLittleEndian(bits, 4)) {
    return false;
  }
  value = static_cast<std::uint32_t>(bits);
  return true;
}

bool ByteReader::readFloat(float& value) {
  std::uint32_t bits;
  if (!readUnsigned(bits)) {
    return false;
  }
  float read;
  std::memcpy(&read, &bits, sizeof read);
  if (!std::isfinite(read)) {
    LogManager::getInstance().writeLog("%s: Error! Number 0x%08x is not finite.", where,
                                       static_cast<unsigned>(bits));
    return fail();
  }
  value = read;
  return true;
}

bool ByteReader::readInRange(int& value, int low, int high) {
  int read;
  return readInt(read) && keepInRange(read, value, low, high);
}

bool ByteReader::readInRange(float& value, float low, float high) {
  float read;
  return readFloat(read) && keepInRange(read, value, low, high);
}

template <typename Number>
bool ByteReader::keepInRange(Number read, Number& value, Number low, Number high) {
  if (read < low || read > high) {
    LogManager::getInstance().writeLog("%s: Error! Number %s is not in [%s,%s].", where,
                                       toString(read).c_str(), toString(low).c_str(),
                                       toString(high).c_str());
    return fail();
  }
  value = read;
  return true;
}

bool ByteReader::readBool(bool& value) {
  unsigned char byte;
  if (!readByte(byte)) {
    return false;
  }
  value = byte != 0;
  return true;
}

bool ByteReader::readByte(unsigned char& value) {
  std::uint64_t bits;
  if (!readLittleEndian(bits, 1)) {
    return false;
  }
  value = static_cast<unsigned char>(bits);
  return true;
}

bool ByteReader::readString(std::string& text) {
  std::size_t length;
  if (!readLength(length, 1, MAX_STRING)) {
    return false;
  }
  std::string read(length, '\0');
  if (!stream.read(read.data(), static_cast<std::streamsize>(length))) {
    return false;
  }
  text = std::move(read);
  return true;
}

bool ByteReader::readLength(std::size_t& length, std::size_t item_size, std::size_t max_count) {
  std::uint64_t read;
  if (!readLittleEndian(read, 8) || !checkCount(read, item_size, max_count)) {
    return false;
  }
  length = static_cast<std::size_t>(read);
  return true;
}

bool ByteReader::readCount(int& count, std::size_t item_size, std::size_t max_count) {
  int read;
  if (!readInt(read)) {
    return false;
  }
  if (read < 0) {
    LogManager::getInstance().writeLog("%s: Error! Count %d is negative.", where, read);
    return fail();
  }
  if (!checkCount(static_cast<unsigned long long>(read), item_size, max_count)) {
    return false;
  }
  count = read;
  return true;
}

bool ByteReader::checkCount(unsigned long long count, std::size_t item_size,
                            std::size_t max_count) {
  if (count > max_count) {
    LogManager::getInstance().writeLog("%s: Error! Length %llu is more than the limit of %zu.",
                                       where, count, max_count);
    return fail();
  }
  const std::size_t left = bytesLeft();
  if (count * item_size > left) {
    LogManager::getInstance().writeLog("%s: Error! Length %llu is more than the %zu bytes left.",
                                       where, count, left);
    return fail();
  }
  return true;
}

std::size_t ByteReader::bytesLeft() const {
  // A string stream written to since its last read may not yet show the new
  // bytes as readable; seeking to its end makes it look at all it holds.
  std::streambuf& buffer = *stream.rdbuf();
  const std::streampos here = buffer.pubseekoff(0, std::ios::cur, std::ios::in);
  const std::streampos end = buffer.pubseekoff(0, std::ios::end, std::ios::in);
  if (here == std::streampos(-1) || end == std::streampos(-1)) {
    return 0;
  }
  buffer.pubseekpos(here, std::ios::in);
  return static_cast<std::size_t>(end - here);
}

bool ByteReader::fail() {
  stream.setstate(std::ios::failbit);
  return false;
}

}  // namespace mv
