#include "Vector.h"

#include <cmath>
#include <sstream>

#include "ByteReader.h"
#include "ByteWriter.h"
#include "utility.h"

namespace mv {

Vector::Vector() : x(0.0f), y(0.0f) {}

Vector::Vector(float new_x, float new_y) : x(new_x), y(new_y) {}

float Vector::getX() const { return x; }
float Vector::getY() const { return y; }
void Vector::setX(float new_x) { x = new_x; }
void Vector::setY(float new_y) { y = new_y; }

void Vector::setXY(float new_x, float new_y) {
  x = new_x;
  y = new_y;
}

float Vector::getMagnitude() const { return std::sqrt(x * x + y * y); }

void Vector::normalize() {
  const float magnitude = getMagnitude();
  if (magnitude > 0.0f) {
    x /= magnitude;
    y /= magnitude;
  }
}

void Vector::scale(float s) {
  x *= s;
  y *= s;
}

bool Vector::isZero() const { return x == 0.0f && y == 0.0f; }

bool Vector::operator==(const Vector& other) const { return x == other.x && y == other.y; }

bool Vector::operator!=(const Vector& other) const { return !(*this == other); }

Vector Vector::operator+(const Vector& other) const { return Vector(x + other.x, y + other.y); }

Vector Vector::operator-(const Vector& other) const { return Vector(x - other.x, y - other.y); }

Vector& Vector::operator+=(const Vector& other) {
  x += other.x;
  y += other.y;
  return *this;
}

std::string Vector::toString() const { return "(" + mv::toString(x) + "," + mv::toString(y) + ")"; }

int Vector::serialize(std::stringstream& stream) const {
  ByteWriter out(stream);
  out.writeFloat(x);
  out.writeFloat(y);
  return checkStream("Vector::serialize()", stream);
}

int Vector::deserialize(std::stringstream& stream) {
  ByteReader in(stream, "Vector::deserialize()");
  float new_x, new_y;
  if (in.readInRange(new_x, -MAX_WORLD_MAGNITUDE, MAX_WORLD_MAGNITUDE) &&
      in.readInRange(new_y, -MAX_WORLD_MAGNITUDE, MAX_WORLD_MAGNITUDE)) {
    setXY(new_x, new_y);
  }
  return checkStream("Vector::deserialize()", stream);
}

}  // namespace mv
