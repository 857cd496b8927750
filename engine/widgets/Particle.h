// A short-lived coloured dot for smoke, sparks and bursts: a spectral object
// drawn as a small circle that counts down its age, one step at a time, and
// is gone when the age runs out or it leaves the world.
#pragma once

#include "Object.h"

namespace mv {

class Particle : public Object {
 public:
  // Particles all have id 0 and use up no ids.
  Particle(float size, int age, unsigned char opacity, unsigned char r, unsigned char g,
           unsigned char b);

  int eventHandler(const Event* event) override;

  int getAge() const;

 private:
  int age;
};

}  // namespace mv
