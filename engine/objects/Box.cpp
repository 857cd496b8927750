#include "Box.h"

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

}  // namespace mv
