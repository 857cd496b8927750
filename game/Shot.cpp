#include "Shot.h"

#include <utility>

#include "EventOut.h"
#include "LogManager.h"
#include "WorldManager.h"

namespace {

// Shots are born this many columns right of the shooter, clear of him.
constexpr float MUZZLE_OFFSET = 3;

}  // namespace

Shot::Shot(std::string type, std::string target_type, std::string target_line, int max_bounces)
    : target_type(std::move(target_type)),
      target_line(std::move(target_line)),
      max_bounces(max_bounces),
      bounces(0) {
  setSolidness(mv::SOFT);
  setType(std::move(type));
}

void Shot::launch(mv::Vector position, int speed) {
  setPosition(position);
  setSpeed(static_cast<float>(speed));
}

mv::Vector Shot::muzzle(mv::Vector shooter) { return shooter + mv::Vector(MUZZLE_OFFSET, 0); }

int Shot::eventHandler(const mv::Event* event) {
  if (event->getType() == mv::COLLISION_EVENT) {
    hit(static_cast<const mv::EventCollision*>(event));
    return 1;
  }
  if (event->getType() == mv::OUT_EVENT) {
    leaveTheWorld();
    mv::WorldManager::getInstance().markForDelete(this);
    return 1;
  }
  return 0;
}

void Shot::leaveTheWorld() {}

bool Shot::touches(const mv::EventCollision* collision, const char* type, const char* other) const {
  for (const mv::Object* o : {collision->getObject1(), collision->getObject2()}) {
    const std::string met = o->getType();
    if (met == type || met == other) {
      return true;
    }
  }
  return false;
}

// The target ends the shot; a wall turns it back, by its type alone, until the
// bounces are spent. In a corner both walls count, one event each.
void Shot::hit(const mv::EventCollision* collision) {
  mv::WorldManager& world = mv::WorldManager::getInstance();
  if (touches(collision, target_type.c_str(), target_type.c_str())) {
    if (!target_line.empty()) {
      mv::LogManager::getInstance().writeLog("%s", target_line.c_str());
    }
    world.markForDelete(this);
  }
  if (bounces <= max_bounces) {
    if (touches(collision, "left wall", "right wall")) {
      const mv::Vector v = getVelocity();
      setVelocity(mv::Vector(-v.getX(), v.getY()));
      bounces++;
    }
    if (touches(collision, "top wall", "bottom wall")) {
      const mv::Vector v = getVelocity();
      setVelocity(mv::Vector(v.getX(), -v.getY()));
      bounces++;
    }
  }
  if (bounces > max_bounces) {
    world.markForDelete(this);
  }
}

int Shot::getBounces() const { return bounces; }

int Shot::getMaxBounces() const { return max_bounces; }

std::string spriteOfSize(const std::string& family, int size) {
  switch (size) {
    case 1:
      return family + "-small";
    case 2:
      return family + "-med";
    case 3:
      return family + "-large";
    default:
      return "";
  }
}
