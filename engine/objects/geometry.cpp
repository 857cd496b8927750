#include "geometry.h"

#include <cmath>

namespace mv {

namespace {

// Two closed ranges overlap when the start of either lies within the other.
bool rangesOverlap(float a_start, float a_extent, float b_start, float b_extent) {
  return valueInRange(a_start, b_start, b_start + b_extent) ||
         valueInRange(b_start, a_start, a_start + a_extent);
}

}  // namespace

bool valueInRange(float v, float low, float high) {
  return low <= v && v <= high;
}

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

}  // namespace mv
