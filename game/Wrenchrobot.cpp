#include "Wrenchrobot.h"

#include "Hero.h"
#include "Wrench.h"

namespace {

// Inside this distance the robot stands and throws.
constexpr float STAND_OFF = 50;

}  // namespace

Wrenchrobot::Wrenchrobot(mv::Vector position, int scale)
    : Enemy("wrenchrobot", 3 * scale, position),
      reload{0, 20},
      bullet_speed(1.0f),
      bullet_bounces(2) {}

// It moves only up and down, towards the hero's row.
void Wrenchrobot::think() {
  reload.tick();
  const Hero* hero = huntedHero();
  if (hero == nullptr) {
    return;
  }
  if (distanceTo(hero->getPosition()) > STAND_OFF) {
    walkTowards(mv::Vector(0, hero->getPosition().getY() - getPosition().getY()));
  } else {
    setVelocity(mv::Vector());
  }
  fire(hero->getPosition());
}

void Wrenchrobot::fire(mv::Vector target) {
  if (!reload.fire()) {
    return;
  }
  const mv::Vector at = target - getPosition();
  throwWrench(at);
  throwWrench(mv::Vector(-at.getX(), -at.getY()));
}

void Wrenchrobot::throwWrench(mv::Vector direction) {
  direction.normalize();
  direction.scale(bullet_speed);
  auto* wrench = new Wrench(getPosition(), static_cast<int>(bullet_speed), bullet_bounces);
  wrench->setVelocity(flattened(direction));
}
