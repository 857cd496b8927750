// A furnace that stands still, wakes when the hero comes into the bands around
// its row and column, and breathes flame straight at his side every 200 steps.
#pragma once

#include "Enemy.h"

class Furnace : public Enemy {
 public:
  // 5 health for each point of `scale`.
  Furnace(mv::Vector position, int scale);

  // Wakes on a hero at (x, y) near its row or column, and fires along the one he is in.
  void aim(float x, float y);
  // One flame towards `target`, if the furnace is ready.
  void fire(mv::Vector target);

  int getActiveCountdown() const;

 private:
  void think() override;
  void glow();

  Reload reload;
  float bullet_speed;
  int bullet_bounces;
  // The column the aim is taken from, fixed on the spawn point.
  float home_x;
  // Thinks left awake.
  int active_countdown;
  int active_time;
};
