#include "Particle.h"

#include "EventOut.h"
#include "EventStep.h"
#include "LogManager.h"
#include "Shape.h"
#include "WorldManager.h"

namespace mv {

Particle::Particle(float size, int new_age, unsigned char opacity, unsigned char r, unsigned char g,
                   unsigned char b)
    : age(new_age) {
  setSolidness(SPECTRAL);
  setType("Particle");
  setAltitude(4);
  setId(0);
  returnLastId();
  // One shape serves every particle, so that building one looks nothing up anew.
  static Shape shape;
  shape.setColorRGB(r, g, b);
  shape.setType(Shape::CIRCLE);
  shape.setSize(size);
  shape.setOpacity(opacity);
  setShape(shape);
  registerInterest(STEP_EVENT);
}

int Particle::eventHandler(const Event* event) {
  const std::string type = event->getType();
  if (type == STEP_EVENT) {
    age--;
    if (age <= 0) {
      WorldManager::getInstance().markForDelete(this);
    }
    return 1;
  }
  if (type == OUT_EVENT) {
    WorldManager::getInstance().markForDelete(this);
    return 1;
  }
  return 0;
}

int Particle::getAge() const { return age; }

int Particle::serialize(std::stringstream& stream, unsigned attr) {
  LogManager::getInstance().writeLog(
      1, "Particle::serialize(): Warning!  Particles attributes are not serialized.");
  return Object::serialize(stream, attr);
}

int Particle::deserialize(std::stringstream& stream, unsigned* attr) {
  LogManager::getInstance().writeLog(
      1, "Particle::deserialize(): Warning!  Cannot deserialize particles.");
  return Object::deserialize(stream, attr);
}

}  // namespace mv
