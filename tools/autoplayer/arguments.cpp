#include "arguments.h"

#include <charconv>

bool readWholeNumber(const std::string& text, int least, int& number) {
  const char* end = text.data() + text.size();
  int value = 0;
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end || value < least) {
    return false;
  }
  number = value;
  return true;
}
