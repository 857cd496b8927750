#include "geometry.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using mv::Box;
using mv::Vector;

TEST(Geometry, BoxesThatShareAnEdgeOrCornerIntersectAndNothingPastIt) {
  const Box a(Vector(0, 0), 2, 2);
  EXPECT_TRUE(mv::boxIntersectsBox(a, Box(Vector(2, 0), 2, 2))) << "shared right edge";
  EXPECT_TRUE(mv::boxIntersectsBox(a, Box(Vector(0, 2), 2, 2))) << "shared bottom edge";
  EXPECT_TRUE(mv::boxIntersectsBox(a, Box(Vector(2, 2), 1, 1))) << "shared corner";
  EXPECT_TRUE(mv::boxIntersectsBox(Box(Vector(-2, -2), 2, 2), a)) << "shared corner, top left";
  const float just_past = std::nextafter(2.0f, 3.0f);
  EXPECT_FALSE(mv::boxIntersectsBox(a, Box(Vector(just_past, 0), 2, 2)));
  EXPECT_FALSE(mv::boxIntersectsBox(a, Box(Vector(0, just_past), 2, 2)));
  EXPECT_FALSE(mv::boxIntersectsBox(Box(Vector(just_past, 0), 2, 2), a));

  const Box outer(Vector(1, 1), 10, 5);
  EXPECT_TRUE(mv::boxIntersectsBox(outer, Box(Vector(3, 2), 1, 1))) << "one inside the other";
  EXPECT_TRUE(mv::boxIntersectsBox(Box(Vector(3, 2), 1, 1), outer));
  EXPECT_TRUE(mv::boxContainsPosition(outer, Vector(11, 6))) << "the far corner belongs to it";
  EXPECT_TRUE(mv::boxContainsPosition(outer, Vector(1, 1)));
  EXPECT_FALSE(mv::boxContainsPosition(outer, Vector(11, std::nextafter(6.0f, 7.0f))));
  EXPECT_FALSE(mv::boxContainsPosition(outer, Vector(std::nextafter(1.0f, 0.0f), 1)));

  const Box point(Vector(4, 4), 0, 0);
  EXPECT_TRUE(mv::boxIntersectsBox(point, Box(Vector(4, 4), 0, 0)));
  EXPECT_FALSE(mv::boxIntersectsBox(point, Box(Vector(4, 4.5f), 0, 0)));

  const Box default_here(Vector(-0.5f, -0.5f), 0.99f, 0.99f);
  EXPECT_FALSE(mv::boxIntersectsBox(default_here, Box(Vector(0.5f, -0.5f), 0.99f, 0.99f)))
      << "default object boxes on neighbouring cells do not touch";
}

TEST(Geometry, ZeroNormalisesToZeroRangesHoldTheirEndsAndBoxesWriteShortly) {
  Vector zero;
  zero.normalize();
  EXPECT_TRUE(zero.isZero());
  EXPECT_TRUE(mv::valueInRange(2, 2, 2));
  EXPECT_EQ(Box(Vector(1, 2), 3.5f, 0).toString(), "(1,2) h: 3.5 v: 0");
}

}  // namespace
