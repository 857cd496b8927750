#include "Object.h"

#include <gtest/gtest.h>

#include "Attribute.h"
#include "EventPath.h"
#include "EventStep.h"
#include "GameManager.h"
#include "RecordingObject.h"
#include "ResourceManager.h"
#include "WorldTest.h"
#include "logLines.h"

namespace {

using mv::Vector;
using mv_test::RecordingObject;

class ObjectTest : public mv_test::WorldTest {};

TEST_F(ObjectTest, IdsCountUpFromOneAndOnlyAHigherIdMovesTheCounter) {
  mv::Object* first = new mv::Object;
  EXPECT_EQ(first->getId(), 1);
  first->setId(50);
  EXPECT_EQ((new mv::Object)->getId(), 51);
  first->setId(10);
  EXPECT_EQ((new mv::Object)->getId(), 52) << "a lower id does not lower the counter";
}

TEST_F(ObjectTest, SettersRefuseWhatIsOutOfRangeAndMarkOnlyRealChanges) {
  mv::Object* o = new mv::Object;
  o->setModified(0);
  o->setPosition(o->getPosition());
  o->setBox(o->getBox());
  EXPECT_EQ(o->setAltitude(2), 0);
  EXPECT_EQ(o->setSolidness(mv::HARD), 0);
  EXPECT_EQ(o->getModified(), 0u) << "setting what is already there changes nothing";

  const std::string errors = mv_test::stderrOf([&] {
    EXPECT_EQ(o->setAltitude(5), -1);
    EXPECT_EQ(o->setAltitude(-1), -1);
    EXPECT_EQ(o->setSolidness(static_cast<mv::Solidness>(3)), -1);
  });
  EXPECT_EQ(mv_test::logMessages(errors),
            (std::vector<std::string>{
                "Object::setAltitude(): Altitude 5 not in range [0,4].  Ignored.",
                "Object::setAltitude(): Altitude -1 not in range [0,4].  Ignored.",
                "Object::setSolidness(): Solidness 3 not one of HARD, SOFT or SPECTRAL."}));
  EXPECT_EQ(o->getAltitude(), 2);
  EXPECT_EQ(o->getModified(), 0u);
  EXPECT_EQ(o->setAltitude(0), 0) << "both ends of the range are altitudes";
  EXPECT_EQ(o->setAltitude(4), 0);

  o->setVelocity(Vector());
  EXPECT_EQ(o->getDirection(), Vector()) << "no direction from a standstill";
  o->setVelocity(Vector(1, 0));
  o->setAcceleration(Vector(0, 1));
  o->applyAcceleration();
  EXPECT_EQ(o->predictPosition(), Vector(2, 2));
}

TEST_F(ObjectTest, ASpriteFoundByItsLabelGivesTheObjectItsLooksAndItsBox) {
  ASSERT_EQ(mv::ResourceManager::getInstance().startUp(), 0);
  scratch.write("ship.txt", "1\n4\n3\n0\nred\n/##\\\n|><|\n\\##/\n");
  ASSERT_EQ(mv::ResourceManager::getInstance().loadSprite("ship.txt", "ship"), 0);
  mv::Object* o = new mv::Object;
  o->setModified(0);
  EXPECT_TRUE(mv_test::hasMessage(mv_test::stderrOf([&] { EXPECT_EQ(o->setSprite("shp"), -1); }),
                                  "Object::setSprite(): Warning! Sprite 'shp' not found"));
  EXPECT_EQ(o->getBox(), mv::Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f));
  EXPECT_EQ(o->getAnimation().getSprite(), nullptr);

  EXPECT_EQ(o->setSprite("ship"), 0);
  EXPECT_EQ(o->getBox(), mv::Box(Vector(-2, -1.5f), 4, 3));
  EXPECT_EQ(o->getModified(), static_cast<unsigned>(mv::BOX)) << "the animation is not marked";
  mv::ResourceManager::getInstance().shutDown();
}

TEST_F(ObjectTest, PathsAreFollowedWithinThreeQuartersOfAStepAndOnesFoundAreTakenUp) {
  mv::Object* o = new mv::Object;
  o->setPosition(Vector(5, 5));
  o->setSpeed(1);
  mv::Path path;
  path.setNodes({Vector(5.5f, 5)});
  o->setPath(path);
  o->setFollowPath(true);
  o->followPath();
  EXPECT_EQ(o->getPosition(), Vector(5.5f, 5)) << "0.5 away: stepped onto at once";
  EXPECT_FALSE(o->getFollowPath()) << "and the path is done in the same call";
  EXPECT_EQ(o->getDirection(), Vector());

  path.setNodes({Vector(6.25f, 5), Vector(7.01f, 5), Vector(20, 5)});
  o->setPath(path);
  o->setFollowPath(true);
  o->followPath();
  EXPECT_EQ(o->getPosition(), Vector(6.25f, 5)) << "exactly 0.75 away is within reach";
  EXPECT_EQ(o->getDirection(), Vector(1, 0)) << "0.76 away: the object walks";
  EXPECT_TRUE(o->getFollowPath());

  mv::Object* still = new mv::Object;
  still->setPosition(Vector(1, 5));
  still->setPath(path);
  still->setFollowPath(true);
  EXPECT_EQ(still->getDirection(), Vector(1, 0)) << "following turns towards the node at once";
  still->followPath();
  EXPECT_EQ(still->getPosition(), Vector(1, 5)) << "speed 0 reaches nothing";

  o->setPath(mv::Path());
  o->followPath();
  EXPECT_FALSE(o->getFollowPath()) << "an empty path ends following";
  EXPECT_EQ(o->getDirection(), Vector());

  mv::Object* searcher = new mv::Object;
  mv::Path found;
  found.setNodes({Vector(10, 1)});
  mv::EventPath event;
  event.setPath(found);
  event.setResult(0);
  EXPECT_EQ(searcher->eventHandler(&event), 1);
  EXPECT_FALSE(searcher->getFollowPath()) << "no path: motion is left alone";
  event.setResult(2);
  EXPECT_EQ(searcher->eventHandler(&event), 1);
  EXPECT_TRUE(searcher->getFollowPath());
  EXPECT_EQ(searcher->getDirection(), Vector(1, 0));

  mv::Event impostor;
  impostor.setType("mv-path");
  EXPECT_TRUE(mv_test::hasMessage(
      mv_test::stderrOf([&] { EXPECT_EQ(searcher->eventHandler(&impostor), 0); }),
      "Object::eventHandler(): Error! Dynamic cast to EventPath failed."));
  const mv::EventStep step(3);
  EXPECT_EQ(searcher->eventHandler(&step), 0);
}

TEST_F(ObjectTest, InterestsAreKeptPerObjectTheManagerHoldsEachOnceAndDeletedObjectsLeaveIt) {
  auto* o = new RecordingObject("o");
  EXPECT_EQ(o->registerInterest("rl::upgrade"), 0);
  EXPECT_EQ(o->registerInterest("rl::upgrade"), 0);
  mv::Event upgrade;
  upgrade.setType("rl::upgrade");
  EXPECT_EQ(world().onEvent(&upgrade), 1) << "the manager holds it once";
  EXPECT_EQ(o->unregisterInterest("rl::upgrade"), 0);
  EXPECT_EQ(world().onEvent(&upgrade), 0);
  EXPECT_EQ(o->unregisterInterest("rl::upgrade"), -1) << "the manager has nothing to remove";
  EXPECT_EQ(o->getEventCount(), 1) << "so the entry stays";
  for (int i = 1; i < 100; i++) {
    ASSERT_EQ(o->registerInterest("label " + std::to_string(i)), 0);
  }
  const std::vector<std::string> lines = mv_test::logMessages(mv_test::stderrOf([&] {
    EXPECT_EQ(o->registerInterest("one too many"), -1);
    EXPECT_EQ(o->unregisterInterest("never"), -1);
  }));
  EXPECT_EQ(lines, (std::vector<std::string>{
                       "Object::registerInterest(): maximum (100) reached, cannot register for "
                       "event 'one too many'",
                       "Object::unregisterInterest(): event 'never' not previously registered"}));
  EXPECT_EQ(o->getEventCount(), 100);

  // Steps go through the game manager alone.
  auto* stepper = new RecordingObject("stepper");
  ASSERT_EQ(stepper->registerInterest("mv-step"), 0);
  const mv::EventStep step(7);
  EXPECT_EQ(mv::GameManager::getInstance().onEvent(&step), 1);
  EXPECT_EQ(world().onEvent(&step), 0);
  EXPECT_EQ(stepper->received, std::vector<std::string>{"mv-step"});

  world().markForDelete(stepper);
  world().update();
  EXPECT_EQ(mv::GameManager::getInstance().onEvent(&step), 0)
      << "the destructor unregistered the interest";
}

}  // namespace
