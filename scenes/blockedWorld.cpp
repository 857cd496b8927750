#include "blockedWorld.h"

#include <algorithm>
#include <random>

#include "Object.h"
#include "WorldManager.h"

namespace mv_scenes {

void buildBlockedWorld(int width, int height, double share, unsigned seed,
                       const std::vector<mv::Cell>& kept_free) {
  mv::WorldManager& world = mv::WorldManager::getInstance();
  const mv::Box all(mv::Vector(0, 0), static_cast<float>(width), static_cast<float>(height));
  world.setBoundary(all);
  world.setView(all);
  std::mt19937 random(seed);
  std::bernoulli_distribution blocked(share);
  for (int y = 0; y < height; y++) {
    for (int x = 0; x < width; x++) {
      const bool free =
          std::find(kept_free.begin(), kept_free.end(), mv::Cell{x, y}) != kept_free.end();
      if (blocked(random) && !free) {
        auto* block = new mv::Object;
        block->setPosition(mv::Vector(static_cast<float>(x), static_cast<float>(y)));
      }
    }
  }
}

}  // namespace mv_scenes
