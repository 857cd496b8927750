// A position, direction or velocity in world units (character cells), x to the right, y downward.
#pragma once

#include <iosfwd>
#include <string>

namespace mv {

// The greatest magnitude that a record may give a coordinate, a box's extent,
// a speed or an acceleration, and the fastest that an acceleration drives an
// object. The world is measured in cells, so no real use comes near it, and a
// position that moves this fast for ever stays finite for some 10^31 steps.
constexpr float MAX_WORLD_MAGNITUDE = 1.0e7f;

class Vector {
 public:
  Vector();
  Vector(float x, float y);

  float getX() const;
  float getY() const;
  void setX(float x);
  void setY(float y);
  void setXY(float x, float y);

  float getMagnitude() const;

  // Makes the length 1; a zero vector stays zero.
  void normalize();

  void scale(float s);

  // Both components exactly 0.
  bool isZero() const;

  // Exact comparison, with no tolerance.
  bool operator==(const Vector& other) const;
  bool operator!=(const Vector& other) const;

  Vector operator+(const Vector& other) const;
  Vector operator-(const Vector& other) const;
  Vector& operator+=(const Vector& other);

  // "(x,y)", numbers as a stream writes floats.
  std::string toString() const;

  // Eight bytes: x, then y. 0, or -1 with a line in the log; reading refuses
  // a component beyond MAX_WORLD_MAGNITUDE.
  int serialize(std::stringstream& stream) const;
  int deserialize(std::stringstream& stream);

 private:
  float x;
  float y;
};

}  // namespace mv
