// Times path searches across a 200 by 48 world with a quarter of its cells
// blocked by HARD objects, from the left edge to the right, headless: the
// engine's search against the plain one it was made from. Prints the
// milliseconds per search, expansions per millisecond and how many times
// faster the engine's search is. The collision grid has its default cells of
// 20 by 8, or with --fine-grid cells of 2 by 1, which suit obstacles one cell
// wide: there each collision question looks at a few objects, not dozens.
//   build/benchmarks/paths/paths_benchmark [--fine-grid]
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "Config.h"
#include "LogManager.h"
#include "Object.h"
#include "PathFind.h"
#include "ReferencePathFind.h"
#include "WorldManager.h"
#include "blockedWorld.h"

namespace {

constexpr int WIDTH = 200;
constexpr int HEIGHT = 48;
constexpr double BLOCKED_SHARE = 0.25;
constexpr int WORLDS = 5;

struct Timing {
  double milliseconds = 0;
  long expansions = 0;
  int searches = 0;
};

template <typename Search>
void timeSearch(mv::Object* walker, mv::Vector goal, Timing& timing) {
  const auto start = std::chrono::steady_clock::now();
  Search search(walker, goal);
  while (search.cycleOnce() == 1) {
  }
  timing.milliseconds +=
      std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
  timing.expansions += search.getExpansions();
  timing.searches++;
}

void print(const char* name, const Timing& timing) {
  std::printf("  %-10s %8.2f ms a search, %7.1f expansions a millisecond (%ld expansions)\n", name,
              timing.milliseconds / timing.searches, timing.expansions / timing.milliseconds,
              timing.expansions / timing.searches);
}

// Both searches in the same worlds, with the collision grid's cells set by `grid`.
void compare(const char* grid) {
  mv::Config::getInstance().loadConfig(std::string("headless:true,") + grid);
  mv::WorldManager& world = mv::WorldManager::getInstance();
  Timing fast;
  Timing reference;
  for (int i = 0; i < WORLDS; i++) {
    world.startUp();
    const mv::Cell from{0, HEIGHT / 2};
    const mv::Cell to{WIDTH - 1, HEIGHT / 2};
    mv_scenes::buildBlockedWorld(WIDTH, HEIGHT, BLOCKED_SHARE, 1000 + i, {from, to});
    auto* walker = new mv::Object;
    walker->setSolidness(mv::SOFT);
    walker->setPosition(mv::Vector(static_cast<float>(from.x), static_cast<float>(from.y)));
    const mv::Vector goal(static_cast<float>(to.x), static_cast<float>(to.y));
    timeSearch<mv::PathFind>(walker, goal, fast);
    timeSearch<mv::ReferencePathFind>(walker, goal, reference);
    world.shutDown();
  }
  std::printf("Collision grid %s:\n", grid);
  print("engine", fast);
  print("plain", reference);
  std::printf("  the engine's search is %.1f times faster\n",
              reference.milliseconds / fast.milliseconds);
}

}  // namespace

int main(int argc, char** argv) {
  const bool fine = argc > 1 && std::string(argv[1]) == "--fine-grid";
  if (argc > 1 && !fine) {
    std::fprintf(stderr, "usage: paths_benchmark [--fine-grid]\n");
    return 2;
  }
  std::printf("Searches across a %d by %d world, %.0f %% of it blocked, edge to edge, %d worlds.\n",
              WIDTH, HEIGHT, BLOCKED_SHARE * 100, WORLDS);
  compare(fine ? "grid_width:2,grid_height:1," : "grid_width:20,grid_height:8,");
  return 0;
}
