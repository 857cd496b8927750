// Feeds any bytes to the configuration parser as the text of a configuration
// file. Every value it answers has lost its white space and is no longer than
// the text it came from.
#include <cctype>
#include <cstdint>
#include <string>

#include "Config.h"
#include "quietEngine.h"

namespace {

void requireClean(const std::string& value, const std::string& text) {
  for (unsigned char c : value) {
    if (std::isspace(c) != 0 || c == ',') {
      std::abort();
    }
  }
  if (value.size() > text.size()) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  mv_fuzz::startQuietLog();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  // Empty text would make the parser look for the configuration file instead.
  if (text.empty()) {
    return 0;
  }
  mv::Config::getInstance().loadConfig(text);
  // A key taken from the text itself, so that lookups find something too.
  const std::string key = text.substr(0, text.find(':'));
  requireClean(mv::match(text, key), text);
  requireClean(mv::match("", "frame_time"), text);
  return 0;
}
