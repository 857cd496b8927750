// Scenery that drifts to the right along the rows above and below the room,
// touches nothing, and comes back from the left whenever it leaves the world.
#pragma once

#include "Object.h"

class Cactus : public mv::Object {
 public:
  // Type 1 is a stick of dynamite on the row above the room; any other type a
  // cactus on the row below. Each starts at a column drawn at random.
  explicit Cactus(int type);

  // On leaving the world it starts again from the left, on one of the two rows;
  // 1 for that, else 0.
  int eventHandler(const mv::Event* event) override;

 private:
  mv::Vector start;
};
