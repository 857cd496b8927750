#include "Box.h"

#include <sstream>

#include "ByteReader.h"
#include "ByteWriter.h"
#include "utility.h"

namespace mv {

Box::Box() : horizontal(0.0f), vertical(0.0f) {}

Box::Box(Vector new_corner, float new_horizontal, float new_vertical)
    : corner(new_corner), horizontal(new_horizontal), vertical(new_vertical) {}

Vector Box::getCorner() const { return corner; }
float Box::getHorizontal() const { return horizontal; }
float Box::getVertical() const { return vertical; }
void Box::setCorner(Vector new_corner) { corner = new_corner; }
void Box::setHorizontal(float new_horizontal) { horizontal = new_horizontal; }
void Box::setVertical(float new_vertical) { vertical = new_vertical; }

bool Box::operator==(const Box& other) const {
  return corner == other.corner && horizontal == other.horizontal && vertical == other.vertical;
}

std::string Box::toString() const {
  return corner.toString() + " h: " + mv::toString(horizontal) + " v: " + mv::toString(vertical);
}

int Box::serialize(std::stringstream& stream) const {
  corner.serialize(stream);
  ByteWriter out(stream);
  out.writeFloat(horizontal);
  out.writeFloat(vertical);
  return checkStream("Box::serialize()", stream);
}

int Box::deserialize(std::stringstream& stream) {
  Vector new_corner;
  new_corner.deserialize(stream);
  ByteReader in(stream, "Box::deserialize()");
  float new_horizontal, new_vertical;
  if (in.readInRange(new_horizontal, 0.0f, MAX_WORLD_MAGNITUDE) &&
      in.readInRange(new_vertical, 0.0f, MAX_WORLD_MAGNITUDE)) {
    *this = Box(new_corner, new_horizontal, new_vertical);
  }
  return checkStream("Box::deserialize()", stream);
}

}  // namespace mv
