#include "Config.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <new>
#include <utility>
#include <vector>

#include "LogManager.h"
#include "utility.h"

namespace mv {

namespace {

struct Entry {
  std::string key;
  std::string value;
};

// The table of the last parsed text, kept between calls of match().
std::vector<Entry> parsed_entries;

LogManager& log() { return LogManager::getInstance(); }

// The non-empty pieces of `text` between separators: runs of separators count
// as one, and leading or trailing ones give no piece.
std::vector<std::string> nonEmptyPieces(const std::string& text, char separator) {
  std::vector<std::string> pieces;
  std::string::size_type start = 0;
  while (start < text.size()) {
    const std::string::size_type end = std::min(text.find(separator, start), text.size());
    if (end > start) {
      pieces.push_back(text.substr(start, end - start));
    }
    start = end + 1;
  }
  return pieces;
}

std::string withoutWhiteSpace(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(),
                            [](unsigned char c) { return std::isspace(c) != 0; }),
             text.end());
  return text;
}

std::vector<Entry> parseEntries(const std::string& text) {
  log().writeLog(25, "match(): number of elements allocated is %d",
                 static_cast<int>(std::count(text.begin(), text.end(), ',')) + 1);
  std::vector<Entry> entries;
  for (const std::string& element : nonEmptyPieces(text, ',')) {
    log().writeLog(25, "\titem number %d", static_cast<int>(entries.size()));
    log().writeLog(28, "\tp_element is '%s' (%p)", element.c_str(),
                   static_cast<const void*>(element.c_str()));
    const std::vector<std::string> pieces = nonEmptyPieces(element, ':');
    if (pieces.empty()) {
      break;  // an element of colons alone ends the parse, keeping what came before
    }
    Entry entry{pieces[0], pieces.size() > 1 ? pieces[1] : std::string()};
    log().writeLog(28, "\ttoken is '%s' (%p)", entry.key.c_str(),
                   static_cast<const void*>(entry.key.c_str()));
    log().writeLog(25, "\tkey %s", entry.key.c_str());
    log().writeLog(25, "\tval %s", entry.value.c_str());
    entries.push_back(std::move(entry));
  }
  log().writeLog(25, "match(): parsed.");
  for (std::size_t i = 0; i < entries.size(); i++) {
    log().writeLog(28, "\t%d  %s : %s", static_cast<int>(i), entries[i].key.c_str(),
                   entries[i].value.c_str());
  }
  return entries;
}

}  // namespace

std::string match(std::string config, std::string key) {
  log().writeLog(25, "match(\"%s\", \"%s\")", config.c_str(), key.c_str());
  if (!config.empty()) {
    parsed_entries.clear();
    try {
      parsed_entries = parseEntries(withoutWhiteSpace(config));
    } catch (const std::bad_alloc&) {
      log().writeLog("match(): unable to allocate key array!");
      parsed_entries.clear();
      return "";
    }
  }
  log().writeLog(25, "match(): Looking for match '%s' among %d items.", key.c_str(),
                 static_cast<int>(parsed_entries.size()));
  for (std::size_t i = 0; i < parsed_entries.size(); i++) {
    log().writeLog(28, "match(): %d: %s == %s?", static_cast<int>(i), parsed_entries[i].key.c_str(),
                   key.c_str());
    if (parsed_entries[i].key == key) {
      return parsed_entries[i].value;
    }
  }
  return "";
}

Config::Config() = default;

Config& Config::getInstance() {
  static Config instance;
  return instance;
}

std::string Config::readConfig() {
  const char* from_environment = std::getenv("MORVANE_CONFIG");
  const std::string path = from_environment != nullptr ? from_environment : "mv-config.txt";
  std::ifstream file(path);
  if (!file.is_open()) {
    log().writeLog(1, "Config::readConfig(): Cannot open Morvane configuration file '%s'.",
                   path.c_str());
    return "";
  }
  std::string joined;
  std::string line;
  while (std::getline(file, line)) {
    if (!line.empty() && line.back() == '\r') {
      line.pop_back();
    }
    if (!line.empty() && line.front() != '#') {
      joined += line;
    }
  }
  return joined;
}

std::string Config::match(std::string key) const { return mv::match(config, std::move(key)); }

void Config::loadConfig(std::string text) {
  config = overrides + (text.empty() ? readConfig() : std::move(text));
  mv::match(config, "");

  // Each key keeps its field when its value is absent or empty.
  const auto readInt = [this](const char* key, int& field) {
    const std::string value = match(key);
    if (!value.empty()) {
      field = toInt(value);
    }
  };
  const auto readBool = [this](const char* key, bool& field) {
    const std::string value = match(key);
    if (!value.empty()) {
      field = value == "true";
    }
  };
  const auto readString = [this](const char* key, std::string& field) {
    const std::string value = match(key);
    if (!value.empty()) {
      field = value;
    }
  };

  readInt("frame_time", frame_time);
  if (const std::string value = match("font_scale"); !value.empty()) {
    font_scale = static_cast<float>(std::atof(value.c_str()));
  }
  readInt("window_horizontal_pixels", window_horizontal_pixels);
  readInt("window_vertical_pixels", window_vertical_pixels);
  readInt("window_horizontal_chars", window_horizontal_chars);
  readInt("window_vertical_chars", window_vertical_chars);
  readWindowBackgroundColor();
  readWindowStyle();
  readWindowState();
  readString("window_title", window_title);
  readBool("show_mouse", show_mouse);
  readBool("headless", headless);
  readString("font_file", font_file);
  readString("logfile", logfile);
  readInt("random_seed", random_seed);
  readBool("networking", networking);
  readInt("watch_port", watch_port);
  readString("watch_address", watch_address);
  readInt("grid_width", grid_width);
  readInt("grid_height", grid_height);
  readInt("quadtree_depth", quadtree_depth);
  readInt("quadtree_threshold", quadtree_threshold);
  readBool("signals", signals);
}

void Config::readWindowBackgroundColor() {
  const std::string value = match("window_background_color");
  if (value.empty()) {
    return;
  }
  if (const int color = colorFromName(value); color != -1) {
    window_background_color = static_cast<Color>(color);
    return;
  }
  log().writeLog("loadConfig(): Unsupported window color '%s'", value.c_str());
}

void Config::readWindowStyle() {
  const std::string value = match("window_style");
  if (value.empty()) {
    return;
  }
  if (value == "none") {
    window_style = 0;
  } else if (const int style = toInt(value); style != 0) {
    window_style = style;
  } else {
    log().writeLog("loadConfig(): Unsupported window style '%s'", value.c_str());
  }
}

void Config::readWindowState() {
  const std::string value = match("window_state");
  if (value.empty()) {
    return;
  }
  if (value == "fullscreen") {
    window_state = 1;
  } else if (value == "default") {
    window_state = 0;
  } else {
    log().writeLog("loadConfig(): Unsupported window state '%s'", value.c_str());
  }
}

void Config::logConfig() const {
  const std::string dashes(35, '-');
  LogManager& lm = log();
  lm.writeLog(1, "%s", dashes.c_str());
  lm.writeLog(1, "Morvane configuration:");
  lm.writeLog(1, "  Window horizontal pixels: %d", window_horizontal_pixels);
  lm.writeLog(1, "  Window vertical pixels: %d", window_vertical_pixels);
  lm.writeLog(1, "  Window horizontal characters: %d", window_horizontal_chars);
  lm.writeLog(1, "  Window vertical characters: %d", window_vertical_chars);
  lm.writeLog(1, "  Window background color: %d", static_cast<int>(window_background_color));
  lm.writeLog(1, "  Frame time: %d", frame_time);
  lm.writeLog(1, "  Window style: %d", window_style);
  lm.writeLog(1, "  Window state: %s", window_state == 1 ? "fullscreen" : "default");
  lm.writeLog(1, "  Window title: %s", window_title.c_str());
  lm.writeLog(1, "  Show mouse: %s", boolToString(show_mouse));
  lm.writeLog(1, "  Headless: %s", boolToString(headless));
  lm.writeLog(1, "  Font file: %s", font_file.c_str());
  lm.writeLog(1, "  Log file: %s", logfile.c_str());
  lm.writeLog(1, "  Random seed: %d", random_seed);
  lm.writeLog(1, "  Networking: %s", boolToString(networking));
  lm.writeLog(1, "  Watch port: %d at %s", watch_port, watch_address.c_str());
  lm.writeLog(1, "  Scene graph: grid");
  lm.writeLog(1, "  Grid width: %d", grid_width);
  lm.writeLog(1, "  Grid height: %d", grid_height);
  lm.writeLog(1, "%s", dashes.c_str());
}

void Config::setOverrides(std::string entries) { overrides = std::move(entries); }

int Config::getWatchPort() const { return watch_port; }
std::string Config::getWatchAddress() const { return watch_address; }
int Config::getWindowHorizontalPixels() const { return window_horizontal_pixels; }
int Config::getWindowVerticalPixels() const { return window_vertical_pixels; }
int Config::getWindowHorizontalChars() const { return window_horizontal_chars; }
int Config::getWindowVerticalChars() const { return window_vertical_chars; }
int Config::getWindowStyle() const { return window_style; }
int Config::getWindowState() const { return window_state; }
Color Config::getWindowBackgroundColor() const { return window_background_color; }
int Config::getFrameTime() const { return frame_time; }
float Config::getFontScale() const { return font_scale; }
std::string Config::getWindowTitle() const { return window_title; }
bool Config::getShowMouse() const { return show_mouse; }
bool Config::getHeadless() const { return headless; }
std::string Config::getFontFile() const { return font_file; }
std::string Config::getLogFile() const { return logfile; }
int Config::getRandomSeed() const { return random_seed; }
bool Config::getNetworking() const { return networking; }
int Config::getGridWidth() const { return grid_width; }
int Config::getGridHeight() const { return grid_height; }

}  // namespace mv
