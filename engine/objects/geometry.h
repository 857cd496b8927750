// Containment, overlap and distance in the world's plane. Every test includes
// all edges and has no tolerance: boxes that only touch do intersect.
#pragma once

#include "Box.h"
#include "Vector.h"

namespace mv {

// low <= v <= high.
bool valueInRange(float v, float low, float high);

bool boxContainsPosition(Box b, Vector p);

bool boxIntersectsBox(Box a, Box b);

float distance(Vector a, Vector b);

}  // namespace mv
