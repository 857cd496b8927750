// Runs the real frame loop for 300 frames at a frame time of 33 ms, headless,
// with a light world of a hundred moving objects, and prints the mean frame
// period and how far single frames stray from 33 ms.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "EventStep.h"
#include "GameManager.h"
#include "Object.h"
#include "WorldManager.h"

namespace {

constexpr int FRAMES = 300;
constexpr double FRAME_MS = 33.0;

// Notes the time at the start of every frame and ends the run after the last.
class FrameTimer : public mv::Object {
 public:
  FrameTimer() {
    setSolidness(mv::SPECTRAL);
    registerInterest(mv::STEP_EVENT);
  }
  int eventHandler(const mv::Event* event) override {
    if (event->getType() != mv::STEP_EVENT) {
      return 0;
    }
    starts.push_back(std::chrono::steady_clock::now());
    if (static_cast<int>(starts.size()) == FRAMES + 1) {
      mv::GameManager::getInstance().setGameOver();
    }
    return 1;
  }
  std::vector<std::chrono::steady_clock::time_point> starts;
};

void addLightWorld() {
  for (int i = 0; i < 100; i++) {
    auto* o = new mv::Object;
    o->setSolidness(mv::SOFT);
    o->setPosition(mv::Vector(static_cast<float>(i % 20) * 4, static_cast<float>(i / 20) * 4));
    o->setVelocity(mv::Vector(0.1f, 0.05f));
  }
}

double percentile(std::vector<double> values, double fraction) {
  std::sort(values.begin(), values.end());
  const std::size_t at =
      static_cast<std::size_t>(fraction * static_cast<double>(values.size() - 1));
  return values[at];
}

}  // namespace

int main() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "morvane-pacing";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "mv-config.txt") << "headless:true,frame_time:33,networking:false,";
  setenv("MORVANE_CONFIG", (folder / "mv-config.txt").c_str(), 1);
  setenv("MORVANE_LOG", (folder / "morvane.log").c_str(), 1);

  mv::GameManager& game = mv::GameManager::getInstance();
  if (game.startUp() != 0) {
    std::fprintf(stderr, "the engine did not start; see %s\n", (folder / "morvane.log").c_str());
    game.shutDown();
    return 1;
  }
  addLightWorld();
  auto* timer = new FrameTimer;
  game.run();

  std::vector<double> periods;
  std::vector<double> deviations;
  for (std::size_t i = 1; i < timer->starts.size(); i++) {
    const std::chrono::duration<double, std::milli> period =
        timer->starts[i] - timer->starts[i - 1];
    periods.push_back(period.count());
    deviations.push_back(std::fabs(period.count() - FRAME_MS));
  }
  game.shutDown();

  double total = 0;
  for (double period : periods) {
    total += period;
  }
  std::printf("frames: %zu at a frame time of %.0f ms\n", periods.size(), FRAME_MS);
  std::printf("mean frame period: %.3f ms\n", total / static_cast<double>(periods.size()));
  std::printf("deviation from %.0f ms: 50th percentile %.3f ms, 99th percentile %.3f ms\n",
              FRAME_MS, percentile(deviations, 0.50), percentile(deviations, 0.99));
  return 0;
}
