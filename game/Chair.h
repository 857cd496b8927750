// Furniture come alive: it runs at the hero when he is near and hurts by touch alone.
#pragma once

#include "Enemy.h"

class Chair : public Enemy {
 public:
  // 3 health for each point of `scale`.
  Chair(mv::Vector position, int scale);

 private:
  void think() override;
};
