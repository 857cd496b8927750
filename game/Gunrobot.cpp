#include "Gunrobot.h"

#include "EnemyBullet.h"
#include "Hero.h"

namespace {

// The robot stops closing in at this distance.
constexpr float CLOSE_ENOUGH = 75;

}  // namespace

Gunrobot::Gunrobot(mv::Vector position, int scale)
    : Enemy("gunrobot", 3 * scale, position),
      reload{0, 5},
      bullet_size(1),
      bullet_speed(1.0f),
      bullet_bounces(0) {}

void Gunrobot::think() {
  reload.tick();
  const Hero* hero = huntedHero();
  if (hero == nullptr) {
    return;
  }
  if (distanceTo(hero->getPosition()) < CLOSE_ENOUGH) {
    setVelocity(mv::Vector());
  } else {
    walkTowards(hero->getPosition() - getPosition());
  }
  fire(hero->getPosition());
}

void Gunrobot::fire(mv::Vector target) {
  if (!reload.fire()) {
    return;
  }
  mv::Vector direction = target - getPosition();
  direction.normalize();
  direction.scale(bullet_speed);
  auto* bullet =
      new EnemyBullet(getPosition(), bullet_size, static_cast<int>(bullet_speed), bullet_bounces);
  bullet->setVelocity(flattened(direction));
}
