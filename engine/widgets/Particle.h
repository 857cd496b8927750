// A short-lived coloured dot for smoke, sparks and bursts: a spectral object
// drawn as a small circle that counts down its age, one step at a time, and
// is gone when the age runs out or it leaves the world.
#pragma once

#include <iosfwd>

#include "Object.h"

namespace mv {

class Particle : public Object {
 public:
  // Particles all have id 0 and use up no ids.
  Particle(float size, int age, unsigned char opacity, unsigned char r, unsigned char g,
           unsigned char b);

  int eventHandler(const Event* event) override;
  // A particle's record is a plain object's: its age does not travel.
  int serialize(std::stringstream& stream, unsigned attr = 0) override;
  int deserialize(std::stringstream& stream, unsigned* attr = nullptr) override;

  int getAge() const;

 private:
  int age;
};

}  // namespace mv
