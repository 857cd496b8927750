#include "Firework.h"

#include "EventStep.h"

namespace mv {

Firework::Firework(float size, int age, unsigned char new_opacity, unsigned char new_r,
                   unsigned char new_g, unsigned char new_b)
    : Particle(size, age, new_opacity, new_r, new_g, new_b),
      r(new_r),
      g(new_g),
      b(new_b),
      opacity(new_opacity),
      trail_age(age),
      trail_size(size) {
  setType("Firework");
  // Y grows downward: a firework sent up slows, stops and falls.
  setAcceleration(Vector(0, 0.01f));
}

int Firework::eventHandler(const Event* event) {
  const int handled = Particle::eventHandler(event);
  if (event->getType() != STEP_EVENT) {
    return handled;
  }
  // Trails are always opaque, whatever the firework's own opacity.
  auto* trail = new Particle(trail_size * 0.5f, trail_age / 4, 255, r, g, b);
  trail->setPosition(getPosition());
  return 1;
}

}  // namespace mv
