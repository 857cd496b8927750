#include <gtest/gtest.h>

#include "RecordingObject.h"
#include "WorldTest.h"
#include "geometry.h"
#include "logLines.h"

namespace {

using mv::Box;
using mv::Vector;
using mv_test::RecordingObject;

class NormalTest : public mv_test::WorldTest {};

RecordingObject* block(const char* name, Vector position) {
  auto* o = new RecordingObject(name, position);
  o->setBox(Box(Vector(0, 0), 2, 2));
  return o;
}

TEST_F(NormalTest, TheSideOfRestIsFoundVerticalSidesFirstAndViewCoordinatesDifferByItsCorner) {
  RecordingObject* hit = block("hit", Vector(10, 10));
  RecordingObject* mover = block("mover", Vector());
  const struct {
    const char* what;
    Vector from, velocity, normal;
  } cases[] = {
      {"coming down onto the top", {10, 6}, {0, 3}, {0, -1}},
      {"coming up from below", {10, 14}, {0, -3}, {0, 1}},
      {"coming in from the left", {6, 10}, {3, 0}, {-1, 0}},
      {"coming in from the right", {14, 10}, {-3, 0}, {1, 0}},
      {"touching above and to the left: above wins", {8, 8}, {}, {0, -1}},
      {"touching below and to the right: below wins", {12, 12}, {}, {0, 1}},
      {"overlapping the right side alone", {13, 10}, {}, {1, 0}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    mover->setPosition(c.from);
    mover->setVelocity(c.velocity);
    EXPECT_EQ(mv::getNormal(mover, hit), c.normal);
  }
  mover->setPosition(Vector(30, 30));
  mv_test::stderrOf([&] { EXPECT_EQ(mv::getNormal(mover, hit), Vector()); });

  world().setView(Box(Vector(30, 10), 80, 24));
  EXPECT_EQ(mv::worldToView(Vector(35, 12)), Vector(5, 2));
  EXPECT_EQ(mv::viewToWorld(Vector(5, 2)), Vector(35, 12));
  RecordingObject* o = block("o", Vector(4, 5));
  EXPECT_EQ(mv::getWorldBox(o), Box(Vector(4, 5), 2, 2));
  EXPECT_EQ(mv::getWorldBox(o, Vector(-1, 0)), Box(Vector(-1, 0), 2, 2));
}

}  // namespace
