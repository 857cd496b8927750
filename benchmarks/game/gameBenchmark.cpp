// Plays the same seeded game of Rustline with our own player, in a real
// window of 157 by 48 cells as the game's settings make it, with no sleep
// between frames, and prints how long the work of a frame takes: the 50th and
// 99th percentile, the longest, and how many frames overran the 33 ms of the
// game's frame time. The window's own input is read each frame as the game
// reads a person's, and thrown away. It plays twice: alone, and watched by
// three watchers over loopback, whose bytes a frame it prints too. Run it
// under an X server:
//   xvfb-run -a -s "-screen 0 1920x1080x24" build/benchmarks/game/game_benchmark [frames]
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <SFML/Graphics/RenderWindow.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "AutoPlayer.h"
#include "Config.h"
#include "DisplayManager.h"
#include "GameManager.h"
#include "InputManager.h"
#include "NetworkManager.h"
#include "ScreenMirror.h"
#include "WindowInputSource.h"
#include "arguments.h"
#include "game.h"
#include "messages.h"
#include "session.h"
#include "watchMessages.h"

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
  // What the first watcher was sent, one figure a frame.
  std::vector<double> bytes_watched;
};

// A watcher that only counts what it is sent: it takes no time of the host's.
class CountingWatcher {
 public:
  explicit CountingWatcher(int port) : socket(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in where{};
    where.sin_family = AF_INET;
    where.sin_port = htons(static_cast<std::uint16_t>(port));
    where.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::connect(socket, reinterpret_cast<sockaddr*>(&where), sizeof where);
    const std::string hello =
        mv::frameMessage(mv::WATCH_HELLO, mv::helloFromWatcher(), mv::WATCH_LABELS);
    ::send(socket, hello.data(), hello.size(), 0);
    fcntl(socket, F_SETFL, O_NONBLOCK);
  }
  ~CountingWatcher() { ::close(socket); }

  // The bytes that came since the last call.
  long takeArrived() {
    long arrived = 0;
    long got;
    while ((got = ::recv(socket, buffer.data(), buffer.size(), 0)) > 0) {
      arrived += got;
    }
    return arrived;
  }

 private:
  int socket;
  std::vector<char> buffer = std::vector<char>(1 << 16);
};

// Plays from the start screen on, with the engine started afresh and
// `watchers` watching (with none, nobody may watch), and times the frames from one input pass to the next,
// leaving out what the watchers do: with no sleep, that is all of a frame's
// work. Empty if the window did not open.
Measured playAndTime(int frames, int watchers) {
  fixGameSeconds(GAME_SECONDS);
  Measured measured;
  if (startRustline() != 0 || mv::DisplayManager::getInstance().getWindow() == nullptr ||
      (watchers > 0 && mv::ScreenMirror::getInstance().start(0, mv::LOOPBACK_ADDRESS) != 0)) {
    stopRustline();
    return measured;
  }
  std::vector<std::unique_ptr<CountingWatcher>> watching;
  for (int i = 0; i < watchers; i++) {
    watching.push_back(
        std::make_unique<CountingWatcher>(mv::ScreenMirror::getInstance().getPort()));
  }
  AutoPlayer player(PLAYER_SEED);
  std::vector<Clock::time_point> frame_starts;
  std::vector<Clock::time_point> frame_ends;
  player.setFrameListener([&](int frame) {
    const bool counted = frame >= WARM_UP_FRAMES;
    if (counted) {
      frame_ends.push_back(Clock::now());
    }
    for (std::size_t i = 0; i < watching.size(); i++) {
      const long arrived = watching[i]->takeArrived();
      if (i == 0 && counted) {
        measured.bytes_watched.push_back(static_cast<double>(arrived));
      }
    }
    if (frame == WARM_UP_FRAMES + frames) {
      mv::GameManager::getInstance().setGameOver();
    }
    if (counted) {
      frame_starts.push_back(Clock::now());
    }
  });
  PlayerAtTheWindow player_at_the_window(player, *mv::DisplayManager::getInstance().getWindow());
  mv::InputManager::getInstance().setInputSource(&player_at_the_window);
  mv::GameManager::getInstance().run();
  stopRustline();
  for (std::size_t i = 1; i < frame_starts.size(); i++) {
    measured.work.push_back(
        std::chrono::duration<double, std::milli>(frame_ends[i] - frame_starts[i - 1]).count());
  }
  measured.games = player.getGames();
  return measured;
}

void printFigures(const Measured& measured) {
  const std::vector<double>& work = measured.work;
  const std::vector<double>& bytes = measured.bytes_watched;
  if (!bytes.empty()) {
    double total = 0;
    for (double b : bytes) {
      total += b;
    }
    std::printf("  bytes a frame to one watcher: mean %.0f, 99th percentile %.0f, largest %.0f\n",
                total / static_cast<double>(bytes.size()), percentile(bytes, 0.99),
                *std::max_element(bytes.begin(), bytes.end()));
  }
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
  for (int watchers : {0, 3}) {
    const Measured measured = playAndTime(frames, watchers);
    if (measured.work.empty()) {
      std::fprintf(stderr,
                   "game_benchmark: no window: is there an X server (xvfb-run -a)? See %s\n",
                   (play / "morvane.log").c_str());
      return 1;
    }
    const mv::Config& config = mv::Config::getInstance();
    std::printf(
        "Rustline in a window of %d by %d cells (%d by %d pixels), %d frames after %d of "
        "warm-up, no sleep, %d watching.\n",
        config.getWindowHorizontalChars(), config.getWindowVerticalChars(),
        config.getWindowHorizontalPixels(), config.getWindowVerticalPixels(), frames,
        WARM_UP_FRAMES, watchers);
    printFigures(measured);
  }
  return 0;
}
