#include "utility.h"

#include <algorithm>
#include <bitset>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <sstream>

#include "LogManager.h"

namespace mv {

namespace {

struct ColorEntry {
  const char* name;
  unsigned char r, g, b;
};

// In the order of the colours' numbers, BLACK to WHITE.
const ColorEntry COLORS[] = {
    {"Black", 0, 0, 0},  {"Red", 255, 0, 0},       {"Green", 0, 255, 0},  {"Yellow", 255, 255, 0},
    {"Blue", 0, 0, 255}, {"Magenta", 255, 0, 255}, {"Cyan", 0, 255, 255}, {"White", 255, 255, 255},
};

bool isNamedColor(Color c) { return c >= BLACK && c <= WHITE; }

}  // namespace

void colorToRGB(Color c, unsigned char& r, unsigned char& g, unsigned char& b) {
  if (c == CUSTOM) {
    return;
  }
  if (!isNamedColor(c)) {
    LogManager::getInstance().writeLog(5, "colorToRGB(): Color %d not supported.",
                                       static_cast<int>(c));
    return;
  }
  r = COLORS[c].r;
  g = COLORS[c].g;
  b = COLORS[c].b;
}

std::string colorToString(Color c) { return isNamedColor(c) ? COLORS[c].name : "Unknown color"; }

int colorFromName(const std::string& name) {
  for (int c = BLACK; c <= WHITE; c++) {
    std::string lower_case = COLORS[c].name;
    lower_case[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(lower_case[0])));
    if (name == lower_case) {
      return c;
    }
  }
  return -1;
}

std::string solidnessToString(Solidness s) {
  switch (s) {
    case HARD:
      return "hard";
    case SOFT:
      return "soft";
    case SPECTRAL:
      return "spectral";
  }
  return "undefined";
}

std::string locationToString(ViewObjectLocation l) {
  static const char* const names[] = {"top-left",    "top-center",    "top-right",
                                      "center-left", "center-center", "center-right",
                                      "bot-left",    "bot-center",    "bot-right"};
  return l >= TOP_LEFT && l <= BOTTOM_RIGHT ? names[l] : "unknown";
}

std::string toString(int i) { return std::to_string(i); }

std::string toString(float f) {
  std::ostringstream stream;
  stream << f;
  return stream.str();
}

int toInt(const std::string& text) {
  const long value = std::strtol(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long>(value, INT_MIN, INT_MAX));
}

const char* boolToString(bool value) { return value ? "true" : "false"; }

std::string toBinaryString(unsigned u) { return std::bitset<32>(u).to_string(); }

int checkStream(const char* where, const std::ios& stream) {
  if (stream.good()) {
    return 0;
  }
  const char* what = stream.eof() ? "eof" : stream.fail() ? "fail" : stream.bad() ? "bad" : "error";
  LogManager::getInstance().writeLog("%s: Error! Stream %s.", where, what);
  return -1;
}

}  // namespace mv
