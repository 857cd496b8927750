// Plays the same seeded game of Rustline with our own player, in a real
// window of 157 by 48 cells as the game's settings make it, with no sleep
// between frames, and prints how long the work of a frame takes: the 50th and
// 99th percentile, the longest, and how many frames overran the 33 ms of the
// game's frame time. The window's own input is read each frame as the game
// reads a person's, and thrown away. Run it under an X server:
//   xvfb-run -a -s "-screen 0 1920x1080x24" build-player/benchmarks/game/game_benchmark [frames]
#include <SFML/Graphics/RenderWindow.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "AutoPlayer.h"
#include "Config.h"
#include "DisplayManager.h"
#include "GameManager.h"
#include "InputManager.h"
#include "WindowInputSource.h"
#include "arguments.h"
#include "game.h"
#include "session.h"

namespace {

const char* const SETTINGS = "frame_time:0,random_seed:4242,";
constexpr std::time_t GAME_SECONDS = 1700000000;
constexpr unsigned PLAYER_SEED = 3;
constexpr int DEFAULT_FRAMES = 3000;
// The first frames load glyphs and fill caches; they are played but not counted.
constexpr int WARM_UP_FRAMES = 30;
constexpr double FRAME_TIME_MS = 33;

using Clock = std::chrono::steady_clock;

// The player's input, while the window's own is read as the game reads it and
// thrown away: every frame pays what reading a person's input costs.
class PlayerAtTheWindow : public mv::InputSource {
 public:
  PlayerAtTheWindow(AutoPlayer& player, sf::Window& window) : player(player), window(window) {}

  bool pollEvent(sf::Event& event) override {
    sf::Event ignored;
    while (window.pollEvent(ignored)) {
    }
    return player.pollEvent(event);
  }
  bool isKeyPressed(sf::Keyboard::Key key) const override {
    window.isKeyPressed(key);
    return player.isKeyPressed(key);
  }
  bool isButtonPressed(sf::Mouse::Button button) const override {
    window.isButtonPressed(button);
    return player.isButtonPressed(button);
  }
  sf::Vector2i getMousePosition() const override {
    window.getMousePosition();
    return player.getMousePosition();
  }

 private:
  AutoPlayer& player;
  mv::WindowInputSource window;
};

int framesToPlay(int argc, char** argv) {
  int frames = DEFAULT_FRAMES;
  if (argc > 1 && !readWholeNumber(argv[1], 1, frames)) {
    std::fprintf(stderr, "game_benchmark: frames must be a whole number from 1, not '%s'\n",
                 argv[1]);
    return -1;
  }
  return frames;
}

double percentile(std::vector<double> values, double fraction) {
  std::sort(values.begin(), values.end());
  return values[static_cast<std::size_t>(fraction * static_cast<double>(values.size() - 1))];
}

struct Measured {
  // Milliseconds, one figure a frame.
  std::vector<double> work;
  std::vector<GameRecord> games;
};

// Plays from the start screen on, with the engine started afresh, and times
// the frames from one input pass to the next: with no sleep, that is all of
// a frame's work. Empty if the window did not open.
Measured playAndTime(int frames) {
  fixGameSeconds(GAME_SECONDS);
  Measured measured;
  if (startRustline() != 0 || mv::DisplayManager::getInstance().getWindow() == nullptr) {
    stopRustline();
    return measured;
  }
  AutoPlayer player(PLAYER_SEED);
  std::vector<Clock::time_point> frame_starts;
  player.setFrameListener([&](int frame) {
    if (frame >= WARM_UP_FRAMES) {
      frame_starts.push_back(Clock::now());
    }
    if (frame == WARM_UP_FRAMES + frames) {
      mv::GameManager::getInstance().setGameOver();
    }
  });
  PlayerAtTheWindow player_at_the_window(player, *mv::DisplayManager::getInstance().getWindow());
  mv::InputManager::getInstance().setInputSource(&player_at_the_window);
  mv::GameManager::getInstance().run();
  stopRustline();
  for (std::size_t i = 1; i < frame_starts.size(); i++) {
    measured.work.push_back(
        std::chrono::duration<double, std::milli>(frame_starts[i] - frame_starts[i - 1]).count());
  }
  measured.games = player.getGames();
  return measured;
}

void printFigures(const Measured& measured) {
  const std::vector<double>& work = measured.work;
  std::printf(
      "  work of a frame: 50th percentile %.2f ms, 99th percentile %.2f ms, longest %.2f ms\n",
      percentile(work, 0.50), percentile(work, 0.99), *std::max_element(work.begin(), work.end()));
  std::printf("  frames over %.0f ms: %ld\n", FRAME_TIME_MS,
              static_cast<long>(std::count_if(work.begin(), work.end(),
                                              [](double ms) { return ms > FRAME_TIME_MS; })));
  int furthest = 0;
  int upgrades = 0;
  for (const GameRecord& game : measured.games) {
    furthest = std::max(furthest, game.rooms_reached);
    upgrades += game.upgrades_taken;
  }
  std::printf("  played: %zu games, up to room %d, %d upgrades taken\n", measured.games.size(),
              furthest, upgrades);
}

}  // namespace

int main(int argc, char** argv) {
  const int frames = framesToPlay(argc, argv);
  if (frames < 0) {
    std::fprintf(stderr, "usage: game_benchmark [frames]\n");
    return 2;
  }
  // Sounds play, but into no device: the figures are the picture's and the world's.
  setenv("ALSOFT_DRIVERS", "null", 0);
  const std::filesystem::path root = std::filesystem::temp_directory_path() / "rustline-benchmark";
  std::error_code ignored;
  std::filesystem::remove_all(root, ignored);
  const std::filesystem::path play =
      makePlayFolder(root, RUSTLINE_SOURCE_DIR, SETTINGS, MORVANE_FONT);
  if (play.empty()) {
    std::fprintf(stderr, "game_benchmark: can't make the game's folder in %s\n", root.c_str());
    return 1;
  }
  std::filesystem::current_path(play);
  const Measured measured = playAndTime(frames);
  if (measured.work.empty()) {
    std::fprintf(stderr, "game_benchmark: no window: is there an X server (xvfb-run -a)? See %s\n",
                 (play / "morvane.log").c_str());
    return 1;
  }
  const mv::Config& config = mv::Config::getInstance();
  std::printf(
      "Rustline in a window of %d by %d cells (%d by %d pixels), %d frames after %d of "
      "warm-up, no sleep.\n",
      config.getWindowHorizontalChars(), config.getWindowVerticalChars(),
      config.getWindowHorizontalPixels(), config.getWindowVerticalPixels(), frames, WARM_UP_FRAMES);
  printFigures(measured);
  return 0;
}
