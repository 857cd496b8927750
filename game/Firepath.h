// A furnace's flame. To the hero it is one more enemy bullet.
#pragma once

#include "Shot.h"

class Firepath : public Shot {
 public:
  // Built on the furnace at `position` itself; `bounces` is how many walls it outlives.
  Firepath(mv::Vector position, int speed, int bounces);
};
