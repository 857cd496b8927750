// Times the world's update and draw per frame for growing numbers of moving
// objects, headless: a 1000 by 1000 world of SOFT objects heading in random
// directions, with boxes of 1 to 3 cells. Prints milliseconds per frame and
// how the time grows with the number of objects.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#include "Config.h"
#include "EventOut.h"
#include "Object.h"
#include "WorldManager.h"

namespace {

constexpr float WORLD_SIZE = 1000.0f;
constexpr int FRAMES = 50;

struct Timing {
  int objects;
  double update_ms;
  double draw_ms;
};

// Turns back when it leaves the world, as a game's objects would, so that the
// world stays full for the whole run.
class Wanderer : public mv::Object {
 public:
  int eventHandler(const mv::Event* event) override {
    if (event->getType() != mv::OUT_EVENT) {
      return 0;
    }
    mv::Vector back = getVelocity();
    back.scale(-1.0f);
    setVelocity(back);
    return 1;
  }
};

void fillWorld(int count, std::mt19937& random) {
  std::uniform_real_distribution<float> place(0.0f, WORLD_SIZE);
  std::uniform_real_distribution<float> angle(0.0f, 6.2831853f);
  std::uniform_int_distribution<int> size(1, 3);
  for (int i = 0; i < count; i++) {
    auto* o = new Wanderer;
    o->setSolidness(mv::SOFT);
    const float side = static_cast<float>(size(random));
    o->setBox(mv::Box(mv::Vector(-side / 2, -side / 2), side, side));
    o->setPosition(mv::Vector(place(random), place(random)));
    const float heading = angle(random);
    o->setVelocity(mv::Vector(std::cos(heading) * 0.5f, std::sin(heading) * 0.5f));
  }
}

double millisecondsPerFrame(void (mv::WorldManager::*step)()) {
  mv::WorldManager& world = mv::WorldManager::getInstance();
  const auto start = std::chrono::steady_clock::now();
  for (int frame = 0; frame < FRAMES; frame++) {
    (world.*step)();
  }
  const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
  return spent.count() / FRAMES;
}

Timing measure(int count) {
  mv::WorldManager& world = mv::WorldManager::getInstance();
  world.startUp();
  world.setBoundary(mv::Box(mv::Vector(0, 0), WORLD_SIZE, WORLD_SIZE));
  world.setView(mv::Box(mv::Vector(0, 0), 157, 48));
  std::mt19937 random(42);
  fillWorld(count, random);
  const Timing timing{count, millisecondsPerFrame(&mv::WorldManager::update),
                      millisecondsPerFrame(&mv::WorldManager::draw)};
  world.shutDown();
  return timing;
}

}  // namespace

int main() {
  mv::Config::getInstance().loadConfig("headless:true,");
  std::printf("%8s %14s %14s %16s\n", "objects", "update ms", "draw ms", "update growth");
  std::vector<Timing> timings;
  for (int count : {1000, 5000, 20000}) {
    timings.push_back(measure(count));
    const Timing& t = timings.back();
    if (timings.size() == 1) {
      std::printf("%8d %14.3f %14.3f %16s\n", t.objects, t.update_ms, t.draw_ms, "-");
    } else {
      const Timing& previous = timings[timings.size() - 2];
      const double objects_ratio = static_cast<double>(t.objects) / previous.objects;
      const double time_ratio = t.update_ms / previous.update_ms;
      std::printf("%8d %14.3f %14.3f %7.2fx for %.0fx\n", t.objects, t.update_ms, t.draw_ms,
                  time_ratio, objects_ratio);
    }
  }
  return 0;
}
