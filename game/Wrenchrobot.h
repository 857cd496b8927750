// A heavier robot: it keeps its distance along the hero's row and throws a pair
// of wrenches every 200 steps, one at him and one away, both coming back off walls.
#pragma once

#include "Enemy.h"

class Wrenchrobot : public Enemy {
 public:
  // 3 health for each point of `scale`.
  Wrenchrobot(mv::Vector position, int scale);

  // A pair of wrenches, at `target` and straight away from it, if the robot is ready.
  void fire(mv::Vector target);

 private:
  void think() override;
  void throwWrench(mv::Vector direction);

  Reload reload;
  float bullet_speed;
  int bullet_bounces;
};
