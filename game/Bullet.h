// The hero's shot: it hurts the enemy it touches, and bursts into smoke and
// sparks when it leaves the world.
#pragma once

#include "Shot.h"

class Bullet : public Shot {
 public:
  // Built beside the hero at `position`; `bounces` is how many walls it outlives.
  Bullet(mv::Vector position, int size, int damage, int speed, int bounces);

  int getSize() const;
  // What the enemy it touches loses.
  int getDamage() const;

 private:
  void leaveTheWorld() override;

  int size;
  int damage;
};
