// The mouse cursor in the world: it shows where the hero aims and touches nothing.
#pragma once

#include "Object.h"

class Reticle : public mv::Object {
 public:
  Reticle();

  // Follows the mouse as it moves; 1 for that, else 0.
  int eventHandler(const mv::Event* event) override;
};
