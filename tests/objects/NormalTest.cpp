#include <gtest/gtest.h>

#include "RecordingObject.h"
#include "WorldManager.h"
#include "WorldTest.h"
#include "geometry.h"

namespace {

using mv::Box;
using mv::Vector;
using mv_test::RecordingObject;

class NormalTest : public mv_test::WorldTest {
 protected:
  RecordingObject* block(const char* name, Vector position) {
    auto* o = new RecordingObject(name, position);
    o->setBox(Box(Vector(0, 0), 2, 2));
    return o;
  }
};

TEST_F(NormalTest, TheSideOfRestIsFoundVerticalSidesFirst) {
  RecordingObject* hit = block("hit", Vector(10, 10));
  RecordingObject* mover = block("mover", Vector(10, 6));
  mover->setVelocity(Vector(0, 3));
  EXPECT_EQ(mv::getNormal(mover, hit), Vector(0, -1)) << "coming down onto the top";

  mover->setPosition(Vector(6, 10));
  mover->setVelocity(Vector(3, 0));
  EXPECT_EQ(mv::getNormal(mover, hit), Vector(-1, 0)) << "coming in from the left";

  mover->setPosition(Vector(8, 8));
  mover->setVelocity(Vector());
  EXPECT_EQ(mv::getNormal(mover, hit), Vector(0, -1))
      << "touching the boxes above and to the left: above wins";

  mover->setPosition(Vector(30, 30));
  testing::internal::CaptureStderr();
  EXPECT_EQ(mv::getNormal(mover, hit), Vector());
  testing::internal::GetCapturedStderr();
}

TEST_F(NormalTest, WorldAndViewCoordinatesDifferByTheViewsCorner) {
  mv::WorldManager::getInstance().setView(Box(Vector(30, 10), 80, 24));
  EXPECT_EQ(mv::worldToView(Vector(35, 12)), Vector(5, 2));
  EXPECT_EQ(mv::viewToWorld(Vector(5, 2)), Vector(35, 12));
  RecordingObject* o = block("o", Vector(4, 5));
  EXPECT_EQ(mv::getWorldBox(o), Box(Vector(4, 5), 2, 2));
  EXPECT_EQ(mv::getWorldBox(o, Vector(-1, 0)), Box(Vector(-1, 0), 2, 2));
}

}  // namespace
