#include "WorldManager.h"

#include <gtest/gtest.h>

#include "RecordingObject.h"
#include "WorldTest.h"
#include "logLines.h"
#include "utility.h"

namespace {

using mv::Box;
using mv::Vector;
using mv::WorldManager;
using mv_test::RecordingObject;
using Log = std::vector<std::string>;

using WorldManagerTest = mv_test::WorldTest;

TEST_F(WorldManagerTest, CollisionsFollowTheSolidnessTableAndAMoveOntoTwoTellsEachInGridOrder) {
  // The mover's and obstacle's records after one step of the mover onto the obstacle.
  const auto collide = [](mv::Solidness mover_kind, mv::Solidness obstacle_kind, bool no_soft,
                          bool* moved) {
    auto* mover = new RecordingObject("mover", Vector(10, 10), mover_kind);
    auto* obstacle = new RecordingObject("obstacle", Vector(11, 10), obstacle_kind);
    mover->setNoSoft(no_soft);
    mover->setVelocity(Vector(1, 0));
    world().update();
    *moved = mover->getPosition() == Vector(11, 10);
    std::pair<Log, Log> logs{mover->received, obstacle->received};
    world().markForDelete(mover);
    world().markForDelete(obstacle);
    world().update();
    return logs;
  };
  const mv::Solidness kinds[] = {mv::HARD, mv::SOFT, mv::SPECTRAL};
  // Whether the mover moves, by row (mover) and column (obstacle), without and with no_soft.
  const bool moves[3][3] = {{false, true, true}, {true, true, true}, {true, true, true}};
  const bool moves_no_soft[3][3] = {{false, false, true}, {true, false, true}, {true, true, true}};
  for (int row = 0; row < 3; row++) {
    for (int column = 0; column < 3; column++) {
      for (bool no_soft : {false, true}) {
        SCOPED_TRACE(mv::solidnessToString(kinds[row]) + " onto " +
                     mv::solidnessToString(kinds[column]) + (no_soft ? " with no_soft" : ""));
        bool moved = false;
        const auto [mover, obstacle] = collide(kinds[row], kinds[column], no_soft, &moved);
        EXPECT_EQ(moved, no_soft ? moves_no_soft[row][column] : moves[row][column]);
        const bool collides = kinds[row] != mv::SPECTRAL && kinds[column] != mv::SPECTRAL;
        EXPECT_EQ(mover, collides ? Log{"mv-collision with obstacle"} : Log{});
        EXPECT_EQ(obstacle, collides ? Log{"mv-collision with mover"} : Log{});
      }
    }
  }

  mv_test::dispatch_log.clear();
  auto* right_cell = new RecordingObject("right cell", Vector(20.2f, 4));
  auto* left_cell = new RecordingObject("left cell", Vector(18.8f, 4));
  auto* mover = new RecordingObject("mover", Vector(17.5f, 4));
  for (RecordingObject* o : {right_cell, left_cell, mover}) {
    o->setBox(Box(Vector(0, 0), 1, 1));
  }

  EXPECT_EQ(world().moveObject(mover, Vector(19.5f, 4)), -1);
  EXPECT_EQ(mover->getPosition(), Vector(17.5f, 4));
  EXPECT_EQ(mv_test::dispatch_log,
            (Log{"mover: mv-collision with left cell", "left cell: mv-collision with mover",
                 "mover: mv-collision with right cell", "right cell: mv-collision with mover"}))
      << "cell (0,0) comes before cell (1,0), and the mover hears first";
}

TEST_F(WorldManagerTest, LeavingTheWorldIsToldOnceAndOnlyOnLeaving) {
  auto* runner = new RecordingObject("runner", Vector(78, 5), mv::SPECTRAL);
  runner->setVelocity(Vector(1, 0));
  for (int frame = 0; frame < 5; frame++) {
    world().update();
  }
  EXPECT_EQ(runner->received, Log{"mv-out"}) << "78 to 83: the box leaves 80 once";
  EXPECT_EQ(runner->getPosition(), Vector(83, 5)) << "nothing keeps it in the world";

  auto* stranger = new RecordingObject("stranger", Vector(-20, 5), mv::SPECTRAL);
  stranger->setVelocity(Vector(-1, 0));
  world().update();
  EXPECT_TRUE(stranger->received.empty()) << "moving about outside is not leaving";

  auto* edge = new RecordingObject("edge", Vector(80.5f, 5), mv::SPECTRAL);
  edge->setVelocity(Vector(1, 0));
  world().update();
  EXPECT_EQ(edge->received, Log{"mv-out"}) << "a box touching the boundary counted as inside";
}

TEST_F(WorldManagerTest, AvoidingObjectsSlideAlongHardObstacles) {
  auto* wall = new RecordingObject("wall", Vector(12, 10));
  wall->setBox(Box(Vector(-1, -5), 2, 10));
  auto* slider = new RecordingObject("slider", Vector(10, 10));
  slider->setAvoidCollisions(true);
  slider->setVelocity(Vector(1, 1));
  world().update();
  const float speed = Vector(1, 1).getMagnitude();
  EXPECT_EQ(slider->getPosition(), Vector(10, 10 + speed))
      << "the part into the wall is dropped, at full speed";
  EXPECT_TRUE(slider->received.empty()) << "the wall is not in the way of the slide";

  slider->setVelocity(Vector(1, 0));
  mv_test::stderrOf([&] {
    EXPECT_EQ(world().moveObject(slider, slider->predictPosition()), 0)
        << "straight into a flat wall: the slide is no move at all";
  });
  EXPECT_EQ(slider->getPosition(), Vector(10, 10 + speed));

  auto* corner = new RecordingObject("corner", Vector(10, 12));
  corner->setBox(Box(Vector(-1, 0), 2, 1));
  slider->setVelocity(Vector(1, 1));
  EXPECT_EQ(world().moveObject(slider, slider->predictPosition()), -1)
      << "both ways blocked: a double collision, and no event";
  EXPECT_TRUE(corner->received.empty());
  EXPECT_TRUE(wall->received.empty());
}

TEST_F(WorldManagerTest, DeletionsHappenAtTheEndOfUpdateOnceEachAndCascade) {
  auto* doomed = new RecordingObject("doomed");
  auto* second = new RecordingObject("second");
  auto* third = new RecordingObject("third");
  int destroyed = 0;
  doomed->on_destroy = [&] {
    destroyed++;
    world().markForDelete(second);
  };
  second->on_destroy = [&] {
    destroyed++;
    world().markForDelete(third);
    world().markForDelete(second);
  };
  third->on_destroy = [&] { destroyed++; };

  EXPECT_EQ(world().markForDelete(doomed), 0);
  EXPECT_EQ(world().markForDelete(doomed), 0);
  EXPECT_EQ(world().getAllObjects().getCount(), 3) << "marked objects live until update";
  world().update();
  EXPECT_EQ(destroyed, 3);
  EXPECT_EQ(world().getAllObjects(true).getCount(), 0);

  EXPECT_NE(mv_test::stderrOf([&] {
              EXPECT_EQ(world().markForDelete(nullptr), -1);
            }).find("WorldManager::markForDelete(): Error! unable to add Object"),
            std::string::npos);
}

TEST_F(WorldManagerTest, EngineLabelsAreRefusedAndKeysGoToTheInputManager) {
  auto* listener = new RecordingObject("listener");
  const std::string errors = mv_test::stderrOf([&] {
    EXPECT_EQ(listener->registerInterest("mv-collision"), -1);
    EXPECT_EQ(world().registerInterest(listener, "mv-keyboard"), -1)
        << "keys belong to the input manager";
  });
  EXPECT_TRUE(mv_test::inOrder(
      mv_test::logMessages(errors),
      {"WorldManager::isValid(): Event mv-collision handled automatically.",
       "Manager(WorldManager)::registerInterest(): Event 'mv-collision' not valid for "
       "this Manager",
       "WorldManager::isValid(): WorldManager does not handle mv-keyboard"}));
  EXPECT_EQ(listener->registerInterest("mv-keyboard"), 0);
  EXPECT_EQ(listener->getEventCount(), 1);
}

TEST_F(WorldManagerTest, TheViewFollowsOutOfItsSlackZoneEachWayAndKeepsToTheBoundary) {
  setWorldSize(200, 100);
  world().setView(Box(Vector(0, 0), 80, 24));
  world().setViewSlack(Vector(0.5f, 0.5f));
  auto* hero = new RecordingObject("hero", Vector(100, 50), mv::SPECTRAL);
  // Centred on (100,50), the slack zone runs from 80 to 120 across and from 44 to 56 down.
  const struct {
    const char* what;
    Vector velocity;
    Vector third_corner;  // the first two moves stay inside the zone
  } cases[] = {
      {"right: 120 is the zone's edge, 130 pushes it by 10", {10, 0}, {70, 38}},
      {"left", {-10, 0}, {50, 38}},
      {"up", {0, -3}, {60, 35}},
      {"down", {0, 3}, {60, 41}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    hero->setPosition(Vector(100, 50));
    ASSERT_EQ(world().setViewFollowing(hero), 0);
    EXPECT_EQ(world().getView().getCorner(), Vector(60, 38)) << "following starts centred";
    hero->setVelocity(c.velocity);
    for (const Vector& corner : {Vector(60, 38), Vector(60, 38), c.third_corner}) {
      world().update();
      EXPECT_EQ(world().getView().getCorner(), corner) << hero->getPosition().toString();
    }
  }
  world().moveObject(hero, Vector(199, 99.5f));
  EXPECT_EQ(world().getView().getCorner(), Vector(120, 76)) << "held inside the boundary";
  world().moveObject(hero, Vector(0, 0));
  EXPECT_EQ(world().getView().getCorner(), Vector(0, 0));

  world().markForDelete(hero);
  world().update();
  EXPECT_EQ(world().getViewFollowing(), nullptr) << "a deleted object is no longer followed";

  setWorldSize(100, 50);
  world().setView(Box(Vector(0, 0), 400, 200));
  world().setViewPosition(Vector(50, 25));
  EXPECT_EQ(world().getView().getCorner(), Vector(0, 0)) << "a view larger than the world";

  EXPECT_TRUE(mv_test::hasMessage(
      mv_test::stderrOf([&] { world().setViewSlack(Vector(1.5f, 0)); }),
      "WorldManager::setViewSlack(): Warning! view slack units out of range [0-1]"));

  auto* o = new RecordingObject("o", Vector(5, 5));
  world().setBoundary(Box(Vector(0, 0), 100, 50));
  EXPECT_EQ(world().getCollisions(new RecordingObject("p", Vector(5, 5)), Vector(5, 5))[0], o)
      << "an equal boundary leaves the grid as it was";
}

TEST_F(WorldManagerTest, DrawingGoesByAltitudeAndSkipsWhatTheViewMisses) {
  world().setView(Box(Vector(20, 10), 40, 12));
  auto* top = new RecordingObject("top", Vector(25, 15), mv::SPECTRAL);
  auto* bottom = new RecordingObject("bottom", Vector(26, 15), mv::SPECTRAL);
  (new RecordingObject("hidden", Vector(27, 15), mv::SPECTRAL))->setVisible(false);
  top->setAltitude(4);
  bottom->setAltitude(0);
  // Boxes of 2 by 2 about each side of the view: those that reach into it by
  // any amount, or touch its edge, are drawn.
  const struct {
    const char* name;
    Vector at;
  } around[] = {{"past left", {17.9f, 15}},   {"on left", {18, 15}},
                {"past top", {30, 7.9f}},     {"on top", {30, 8}},
                {"over right", {59, 15}},     {"past right", {60.1f, 15}},
                {"over bottom", {30, 21.5f}}, {"past bottom", {30, 22.1f}}};
  for (const auto& a : around) {
    auto* o = new RecordingObject(a.name, a.at, mv::SPECTRAL);
    o->setBox(Box(Vector(0, 0), 2, 2));
    o->setAltitude(1);
  }
  mv_test::dispatch_log.clear();
  world().draw();
  EXPECT_EQ(mv_test::dispatch_log, (Log{"bottom: draw", "on left: draw", "on top: draw",
                                        "over right: draw", "over bottom: draw", "top: draw"}));
}

}  // namespace
