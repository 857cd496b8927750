// The engine's name sliding in from the right before a game begins. It calls
// up the emblem when it stops, and any key cuts the whole show short.
#pragma once

#include <memory>
#include <optional>

#include "Event.h"
#include "Object.h"
#include "Sprite.h"

namespace mv {

// Plays the splash run in a game loop of its own: about three seconds of the
// name and the emblem. 0 afterwards, -1 if the game manager is not started.
int splash();

// How each object of the splash run ends: once the game is over it leaves the
// world, and any key ends the whole run. The handler's result when the event
// ended `object`, nothing when the object goes on.
std::optional<int> endSplashObject(Object* object, const Event* event);

class Splash : public Object {
 public:
  // Starts just beyond the view's right edge, on its middle row.
  Splash();

  int eventHandler(const Event* event) override;

 private:
  int step_counter;
  // Drawn by hand here, so the splash needs no file; owned by the object.
  std::unique_ptr<Sprite> splash_sprite;
};

}  // namespace mv
