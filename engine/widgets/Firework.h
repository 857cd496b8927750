// A particle that falls under a small acceleration and leaves a trail of
// plain particles of its colour, one each step.
#pragma once

#include "Particle.h"

namespace mv {

class Firework : public Particle {
 public:
  Firework(float size, int age, unsigned char opacity, unsigned char r, unsigned char g,
           unsigned char b);

  int eventHandler(const Event* event) override;

 private:
  unsigned char r;
  unsigned char g;
  unsigned char b;
  unsigned char opacity;
  // The age and size the firework was made with: the trail keeps them.
  int trail_age;
  float trail_size;
};

}  // namespace mv
