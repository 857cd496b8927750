// Containment, overlap and distance in the world's plane. Every test includes
// all edges and has no tolerance: boxes that only touch do intersect.
#pragma once

#include "Box.h"
#include "Vector.h"

namespace mv {

class Object;

// low <= v <= high.
bool valueInRange(float v, float low, float high);

bool boxContainsPosition(Box b, Vector p);

bool boxIntersectsBox(Box a, Box b);

float distance(Vector a, Vector b);

// The object's box in world coordinates, at its position or at `where`.
Box getWorldBox(const Object* o);
Box getWorldBox(const Object* o, Vector where);

// The side of `hit` on which `moving` comes to rest, as a vector of -1, 0 and 1
// pointing from `hit` towards `moving`. Sides above and below win over left and
// right, and those over corners; (0,0) if the two do not meet at all.
Vector getNormal(const Object* moving, const Object* hit);

// Between world coordinates and coordinates relative to the view's corner.
Vector worldToView(Vector world);
Vector viewToWorld(Vector view);

}  // namespace mv
