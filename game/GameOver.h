// The end screen: plays its sprite once over the room, then empties the world
// and brings back the start screen.
#pragma once

#include "ViewObject.h"

class GameOver : public mv::ViewObject {
 public:
  GameOver();
  // Marks everything in the world for deletion and builds a new start screen.
  ~GameOver() override;

  // Counts down on "mv-step"; 1 for it, else 0.
  int eventHandler(const mv::Event* event) override;
  // The sprite alone, without the text of a display.
  int draw() override;

 private:
  // Steps left until the end screen goes.
  int time_to_live;
};
