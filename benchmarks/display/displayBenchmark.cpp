// Draws full screens of 157 by 48 varied cells, first cell by cell and then
// in batches, and prints the milliseconds per frame of each and their ratio.
// Run it under an X server: xvfb-run -a build/benchmarks/display/display_benchmark
#include <chrono>
#include <cstdio>
#include <filesystem>

#include "Config.h"
#include "DisplayManager.h"
#include "variedScreen.h"

namespace {

const char* const SCREEN =
    "window_horizontal_chars:157,window_vertical_chars:48,"
    "window_horizontal_pixels:1256,window_vertical_pixels:768,";
constexpr int WARM_UP_FRAMES = 3;

// Milliseconds per frame over `frames` full screens, each drawn and shown.
double millisecondsPerFrame(bool batched, int frames) {
  mv::DisplayManager& display = mv::DisplayManager::getInstance();
  display.setBatching(batched);
  for (int frame = 0; frame < WARM_UP_FRAMES; ++frame) {
    mv_scenes::drawVariedScreen(frame);
    display.swapBuffers();
  }
  const auto start = std::chrono::steady_clock::now();
  for (int frame = 0; frame < frames; ++frame) {
    mv_scenes::drawVariedScreen(frame);
    display.swapBuffers();
  }
  const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
  return spent.count() / frames;
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
  std::printf("Full screens of %d by %d cells in a window of %d by %d pixels:\n",
              display.getHorizontalChars(), display.getVerticalChars(),
              display.getHorizontalPixels(), display.getVerticalPixels());
  const double alone = millisecondsPerFrame(false, 20);
  std::printf("  cell by cell: %7.2f ms per frame\n", alone);
  const double batched = millisecondsPerFrame(true, 100);
  std::printf("  batched:      %7.2f ms per frame\n", batched);
  std::printf("  batched is %.1f times faster\n", alone / batched);
  display.shutDown();
  return 0;
}
