// An axis-aligned rectangle in world units: a top-left corner and two extents.
// It covers its edges, so a box of zero size still covers its corner.
#pragma once

#include <iosfwd>
#include <string>

#include "Vector.h"

namespace mv {

class Box {
 public:
  Box();
  Box(Vector corner, float horizontal, float vertical);

  Vector getCorner() const;
  float getHorizontal() const;
  float getVertical() const;
  void setCorner(Vector corner);
  void setHorizontal(float horizontal);
  void setVertical(float vertical);

  bool operator==(const Box& other) const;

  // "(x,y) h: 3 v: 2".
  std::string toString() const;

  // Sixteen bytes: the corner, then the two extents. Reading refuses an
  // extent below 0, which the grid and the collision test would judge apart,
  // or beyond MAX_WORLD_MAGNITUDE.
  int serialize(std::stringstream& stream) const;
  int deserialize(std::stringstream& stream);

 private:
  Vector corner;
  float horizontal;
  float vertical;
};

}  // namespace mv
