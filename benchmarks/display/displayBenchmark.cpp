// Draws full screens of 157 by 48 varied cells in each way the display has and
// prints the milliseconds per frame of each: cell by cell, in a batch of quads,
// and composed into one picture with every cell changed, with 2 % of the cells
// changed, and with none changed, each against the batch of quads. The ways
// take turns over several rounds and each figure is the median of its rounds,
// so that a busy machine slows all of them alike.
// Run it under an X server:
//   xvfb-run -a -s "-screen 0 1920x1080x24" build/benchmarks/display/display_benchmark
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "Config.h"
#include "DisplayManager.h"
#include "variedScreen.h"

namespace {

const char* const SCREEN =
    "window_horizontal_chars:157,window_vertical_chars:48,"
    "window_horizontal_pixels:1256,window_vertical_pixels:768,";
constexpr int WARM_UP_FRAMES = 3;
constexpr int ROUNDS = 7;

struct Way {
  const char* name;
  bool batched;
  bool composed;
  // Each cell changes once in this many frames; 0: the screen never changes.
  int period;
  int frames_per_round;
  // The most this way may take, as a share of the batch of quads; 0: no target.
  double target;
  std::vector<double> rounds;
  int next_frame;
};

void drawFrame(const Way& way, int frame) {
  if (way.period == 0) {
    mv_scenes::drawVariedScreen(0);
  } else {
    mv_scenes::drawSlowlyChangingScreen(frame, way.period);
  }
  mv::DisplayManager::getInstance().swapBuffers();
}

// Milliseconds per frame over one round of the way's frames, each drawn and shown.
void timeRound(Way& way) {
  mv::DisplayManager& display = mv::DisplayManager::getInstance();
  display.setBatching(way.batched);
  display.setComposing(way.composed);
  for (int frame = 0; frame < WARM_UP_FRAMES; ++frame) {
    drawFrame(way, way.next_frame++);
  }
  const auto start = std::chrono::steady_clock::now();
  for (int frame = 0; frame < way.frames_per_round; ++frame) {
    drawFrame(way, way.next_frame++);
  }
  const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
  way.rounds.push_back(spent.count() / way.frames_per_round);
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main() {
  // The font lies in the build directory, under the name the engine looks for.
  std::filesystem::current_path(MORVANE_FONT_DIRECTORY);
  mv::Config::getInstance().loadConfig(SCREEN);
  mv::DisplayManager& display = mv::DisplayManager::getInstance();
  if (display.startUp() != 0) {
    std::fprintf(stderr, "The display did not start: is there an X server (xvfb-run -a)?\n");
    return 1;
  }
  std::vector<Way> ways = {
      {"cell by cell", false, false, 1, 4, 0.0, {}, 0},
      {"batch of quads", true, false, 1, 20, 0.0, {}, 0},
      {"composed, every cell changed", true, true, 1, 20, 0.5, {}, 0},
      {"composed, 2 % changed", true, true, 50, 50, 0.25, {}, 0},
      {"composed, unchanged", true, true, 0, 50, 0.1, {}, 0},
  };
  for (int round = 0; round < ROUNDS; ++round) {
    for (Way& way : ways) {
      timeRound(way);
    }
  }
  std::printf(
      "Full screens of %d by %d cells in a window of %d by %d pixels, median of %d rounds:\n",
      display.getHorizontalChars(), display.getVerticalChars(), display.getHorizontalPixels(),
      display.getVerticalPixels(), ROUNDS);
  const double quads = median(ways[1].rounds);
  for (const Way& way : ways) {
    const double ms = median(way.rounds);
    std::printf("  %-30s %7.2f ms per frame  %5.3f of the batch of quads", way.name, ms,
                ms / quads);
    if (way.target > 0.0) {
      std::printf("  (at most %.2f: %s)", way.target, ms / quads <= way.target ? "met" : "MISSED");
    }
    std::printf("\n");
  }
  display.shutDown();
  return 0;
}
