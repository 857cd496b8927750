#include "Chair.h"

#include "Hero.h"

namespace {

// Beyond this distance the chair loses interest and stops.
constexpr float SIGHT = 100;

}  // namespace

Chair::Chair(mv::Vector position, int scale) : Enemy("chair", 3 * scale, position) {}

void Chair::think() {
  const Hero* hero = livingHero();
  if (hero != nullptr && distanceTo(hero->getPosition()) < SIGHT) {
    walkTowards(hero->getPosition() - getPosition());
  } else {
    setVelocity(mv::Vector());
  }
}
