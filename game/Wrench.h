// A wrench robot's throw: it comes back off walls, and hurts the hero like a bullet.
#pragma once

#include "Shot.h"

class Wrench : public Shot {
 public:
  // Built beside the robot at `position`; `bounces` is how many walls it outlives.
  Wrench(mv::Vector position, int speed, int bounces);
};
