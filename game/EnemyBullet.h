// A gun robot's shot: the hero loses 1 health to it.
#pragma once

#include "Shot.h"

class EnemyBullet : public Shot {
 public:
  // Built beside the robot at `position`; `bounces` is how many walls it outlives.
  EnemyBullet(mv::Vector position, int size, int speed, int bounces);
};
