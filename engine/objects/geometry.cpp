#include "geometry.h"

#include <cmath>

#include "LogManager.h"
#include "Object.h"
// The view that positions are turned to and from is the world's.
#include "WorldManager.h"

namespace mv {

namespace {

// Two closed ranges overlap when the start of either lies within the other.
bool rangesOverlap(float a_start, float a_extent, float b_start, float b_extent) {
  return valueInRange(a_start, b_start, b_start + b_extent) ||
         valueInRange(b_start, a_start, a_start + a_extent);
}

}  // namespace

bool valueInRange(float v, float low, float high) { return low <= v && v <= high; }

bool boxContainsPosition(Box b, Vector p) {
  const Vector corner = b.getCorner();
  return valueInRange(p.getX(), corner.getX(), corner.getX() + b.getHorizontal()) &&
         valueInRange(p.getY(), corner.getY(), corner.getY() + b.getVertical());
}

bool boxIntersectsBox(Box a, Box b) {
  const Vector a_corner = a.getCorner();
  const Vector b_corner = b.getCorner();
  return rangesOverlap(a_corner.getX(), a.getHorizontal(), b_corner.getX(), b.getHorizontal()) &&
         rangesOverlap(a_corner.getY(), a.getVertical(), b_corner.getY(), b.getVertical());
}

float distance(Vector a, Vector b) {
  const float dx = std::fabs(a.getX() - b.getX());
  const float dy = std::fabs(a.getY() - b.getY());
  return std::sqrt(dy * dy + dx * dx);
}

Box getWorldBox(const Object* o) { return getWorldBox(o, o->getPosition()); }

Box getWorldBox(const Object* o, Vector where) {
  Box box = o->getBox();
  box.setCorner(box.getCorner() + where);
  return box;
}

namespace {

// The last place along the mover's step where it does not yet overlap `hit`,
// found by halving the step back and forth seven times.
Vector lastSafePosition(const Object* moving, const Box& hit_box) {
  Vector step = moving->getVelocity();
  float t = 0.5f;
  Vector safe = moving->getPosition();
  for (int i = 1; i <= 7; i++) {
    step.scale(t);
    const Vector test = moving->getPosition() + step;
    const float d = static_cast<float>(std::pow(0.5, i));
    if (boxIntersectsBox(getWorldBox(moving, test), hit_box)) {
      t -= d;
    } else {
      t += d;
      safe = test;
    }
  }
  return safe;
}

}  // namespace

Vector getNormal(const Object* moving, const Object* hit) {
  const Box hit_box = getWorldBox(hit);
  const Box resting = getWorldBox(moving, lastSafePosition(moving, hit_box));
  const float x = hit_box.getCorner().getX();
  const float y = hit_box.getCorner().getY();
  const float h = hit_box.getHorizontal();
  const float v = hit_box.getVertical();

  struct Side {
    Vector corner;
    Vector normal;
  };
  // Above and below first, then left and right, then the corners.
  const Side sides[] = {
      {Vector(x, y - v), Vector(0, -1)},      {Vector(x, y + v), Vector(0, 1)},
      {Vector(x - h, y), Vector(-1, 0)},      {Vector(x + h, y), Vector(1, 0)},
      {Vector(x - h, y - v), Vector(-1, -1)}, {Vector(x + h, y - v), Vector(1, -1)},
      {Vector(x - h, y + v), Vector(-1, 1)},  {Vector(x + h, y + v), Vector(1, 1)},
  };
  for (const Side& side : sides) {
    if (boxIntersectsBox(resting, Box(side.corner, h, v))) {
      return side.normal;
    }
  }
  LogManager::getInstance().writeLog(1, "getNormal(): No collision detected. Returning (0,0).");
  return Vector();
}

Vector worldToView(Vector world) {
  return world - WorldManager::getInstance().getView().getCorner();
}

Vector viewToWorld(Vector view) { return view + WorldManager::getInstance().getView().getCorner(); }

}  // namespace mv
