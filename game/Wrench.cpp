#include "Wrench.h"

Wrench::Wrench(mv::Vector position, int speed, int bounces)
    : Shot("Wrench", "Hero", "ouch", bounces) {
  setSprite("wrench");
  launch(muzzle(position), speed);
}
