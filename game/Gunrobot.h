// A robot with a gun: it closes in on the hero and shoots at him every 50 steps.
#pragma once

#include "Enemy.h"

class Gunrobot : public Enemy {
 public:
  // 3 health for each point of `scale`.
  Gunrobot(mv::Vector position, int scale);

  // One shot at `target`, if the gun is ready.
  void fire(mv::Vector target);

 private:
  void think() override;

  Reload reload;
  int bullet_size;
  float bullet_speed;
  int bullet_bounces;
};
