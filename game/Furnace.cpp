#include "Furnace.h"

#include <cmath>

#include "Firepath.h"
#include "Hero.h"

namespace {

// A hero this near its row or column wakes the furnace.
constexpr float WAKING_BAND = 10;
// A hero this near is lined up and draws the flame.
constexpr float FIRING_BAND = 5;
// A flame is aimed at a point this far off, straight along the row or column.
constexpr float AIM_REACH = 10;

}  // namespace

Furnace::Furnace(mv::Vector position, int scale)
    : Enemy("furnace", 5 * scale, position),
      reload{0, 20},
      bullet_speed(2.0f),
      bullet_bounces(0),
      home_x(getPosition().getX()),
      active_countdown(0),
      active_time(4) {}

// Sprite and countdowns go on through the end screen; only the aim needs the hero.
void Furnace::think() {
  reload.tick();
  glow();
  const Hero* hero = livingHero();
  if (hero != nullptr) {
    aim(hero->getPosition().getX(), hero->getPosition().getY());
  }
}

// Awake it glows; it stays so for a few thinks after the hero leaves, then
// cools again. Each think at rest sets the cold sprite anew.
void Furnace::glow() {
  if (active_countdown > 0 && getAnimation().getName() != "furnace-active") {
    setSprite("furnace-active");
  } else if (active_countdown > 0) {
    active_countdown--;
  } else {
    setSprite("furnace");
  }
}

// The column goes first: a hero lined up both ways is fired at up or down.
void Furnace::aim(float x, float y) {
  const mv::Vector p = getPosition();
  const float off_column = std::fabs(x - home_x);
  const float off_row = std::fabs(y - p.getY());
  if (off_column <= WAKING_BAND || off_row <= WAKING_BAND) {
    active_countdown = active_time;
  }
  if (off_column <= FIRING_BAND) {
    fire(mv::Vector(p.getX(), p.getY() >= y ? p.getY() - AIM_REACH : p.getY() + AIM_REACH));
  } else if (off_row <= FIRING_BAND) {
    fire(mv::Vector(p.getX() >= x ? p.getX() - AIM_REACH : p.getX() + AIM_REACH, p.getY()));
  }
}

void Furnace::fire(mv::Vector target) {
  if (!reload.fire()) {
    return;
  }
  mv::Vector direction = target - getPosition();
  direction.normalize();
  direction.scale(bullet_speed);
  auto* flame = new Firepath(getPosition(), static_cast<int>(bullet_speed), bullet_bounces);
  flame->setVelocity(flattened(direction));
}

int Furnace::getActiveCountdown() const { return active_countdown; }
