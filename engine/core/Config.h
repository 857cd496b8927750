// The engine's settings, with their defaults, filled once at start-up from a
// small file of comma-separated key:value entries.
#pragma once

#include <string>

#include "Color.h"

namespace mv {

// The parser of configuration text. A non-empty `config` is parsed and kept;
// an empty one asks the table kept from the last parse. Answers the value of
// the first entry named `key`, or empty when there is none.
std::string match(std::string config, std::string key);

class Config {
 public:
  static Config& getInstance();

  Config(const Config&) = delete;
  Config& operator=(const Config&) = delete;

  // Fills the settings from `config`, or from the configuration file when it is empty.
  void loadConfig(std::string config = "");

  // Entries that go before the loaded text at every later load, and so win
  // over its own for the keys they name: what a program's command line asks.
  void setOverrides(std::string entries);

  // The lines of the file named by MORVANE_CONFIG, else "mv-config.txt", joined,
  // without comments and empty lines; empty if it can't be opened.
  std::string readConfig();

  // The value for `key` in the loaded text, or empty.
  std::string match(std::string key) const;

  void logConfig() const;

  int getWindowHorizontalPixels() const;
  int getWindowVerticalPixels() const;
  int getWindowHorizontalChars() const;
  int getWindowVerticalChars() const;
  int getWindowStyle() const;
  int getWindowState() const;
  Color getWindowBackgroundColor() const;
  int getFrameTime() const;
  float getFontScale() const;
  std::string getWindowTitle() const;
  bool getShowMouse() const;
  bool getHeadless() const;
  std::string getFontFile() const;
  std::string getLogFile() const;
  int getRandomSeed() const;
  bool getNetworking() const;
  int getGridWidth() const;
  int getGridHeight() const;
  // The port that watchers of the game connect to; 0 when nobody may watch.
  int getWatchPort() const;
  // Where watchers are listened for: "127.0.0.1" (this machine alone) or "0.0.0.0" (everywhere).
  std::string getWatchAddress() const;

 private:
  Config();
  void readWindowBackgroundColor();
  void readWindowStyle();
  void readWindowState();

  std::string overrides;
  std::string config;
  int window_horizontal_pixels = 1024;
  int window_vertical_pixels = 768;
  int window_horizontal_chars = 80;
  int window_vertical_chars = 24;
  int window_style = 5;
  int window_state = 0;
  Color window_background_color = BLACK;
  int frame_time = 33;
  float font_scale = 2.0f;
  std::string window_title = "Morvane";
  bool show_mouse = false;
  bool headless = false;
  std::string font_file = "mv-font.ttf";
  std::string logfile = "morvane.log";
  int random_seed = 0;
  bool networking = true;
  int watch_port = 0;
  std::string watch_address = "127.0.0.1";
  // Parsed and kept, though nothing in the engine reads them.
  int quadtree_threshold = 1;
  int quadtree_depth = 10;
  int grid_width = 20;
  int grid_height = 8;
  bool signals = true;
};

}  // namespace mv
