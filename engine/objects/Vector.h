// A position, direction or velocity in world units (character cells), x to the right, y downward.
#pragma once

#include <iosfwd>
#include <string>

namespace mv {

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

  // Eight bytes: x, then y. 0, or -1 with a line in the log.
  int serialize(std::stringstream& stream) const;
  int deserialize(std::stringstream& stream);

 private:
  float x;
  float y;
};

}  // namespace mv
