#include "Firepath.h"

Firepath::Firepath(mv::Vector position, int speed, int bounces)
    : Shot("EnemyBullet", "Hero", "", bounces) {
  setSprite("firepath");
  launch(position, speed);
}
