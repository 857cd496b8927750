// The engine's emblem, which flies up from below the view to its place beside
// the name, settles into its resting drawing and ends the splash run.
#pragma once

#include <memory>

#include "Object.h"
#include "Sprite.h"

namespace mv {

class SplashMorvane : public Object {
 public:
  // Climbs from six rows below the view to `end_position` in 30 steps.
  explicit SplashMorvane(Vector end_position);

  int eventHandler(const Event* event) override;

 private:
  Vector end_position;
  int step_counter;
  // Drawn by hand here; owned by the object, and replaced once it comes to rest.
  std::unique_ptr<Sprite> splash_sprite;
};

}  // namespace mv
