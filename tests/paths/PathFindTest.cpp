#include "PathFind.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "PathManager.h"
#include "RecordingObject.h"
#include "WorldManager.h"
#include "WorldTest.h"

namespace {

using mv::Vector;
using mv_test::RecordingObject;

class PathFindTest : public mv_test::WorldTest {
 protected:
  void SetUp() override {
    WorldTest::SetUp();
    ASSERT_EQ(mv::PathManager::getInstance().startUp(), 0);
  }
  void TearDown() override {
    mv::PathManager::getInstance().shutDown();
    WorldTest::TearDown();
  }

  static RecordingObject* walker(Vector at) { return new RecordingObject("walker", at, mv::SOFT); }
  static void walls(std::initializer_list<Vector> cells) {
    for (const Vector& cell : cells) {
      new RecordingObject("wall", cell, mv::HARD);
    }
  }
  // Runs the searches until every one has ended.
  static void searchToTheEnd() {
    for (int i = 0; i < 10000; i++) {
      mv::PathManager::getInstance().cycle(1);
    }
  }
  static std::vector<Vector> nodes(const mv::Object* o) { return o->getPath().getNodes(); }
};

TEST_F(PathFindTest, WaysAroundWallsAndCornersEndWhereTheyShould) {
  const struct {
    const char* what;
    std::initializer_list<Vector> walls;
    Vector from, to;
    std::vector<Vector> path;
  } cases[] = {
      {"start is the end", {}, {5, 5}, {5, 5}, {{5, 5}}},
      {"ends round to cells", {}, {5.4f, 5.6f}, {6.5f, 5.2f}, {{5, 6}, {6, 6}, {7, 5}}},
      {"past one blocked corner", {{6, 5}}, {5, 5}, {6, 6}, {{5, 5}, {6, 6}}},
      {"never between two", {{6, 5}, {5, 6}}, {5, 5}, {6, 6}, {{5, 5}, {6, 4}, {7, 5}, {6, 6}}},
      // Two ways of equal cost reach (5,7); the later one, by (4,6), replaces the first.
      {"equal cost", {{5, 6}}, {5, 5}, {5, 8}, {{5, 5}, {4, 6}, {5, 7}, {5, 8}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    mv::WorldManager::getInstance().shutDown();
    mv::WorldManager::getInstance().startUp();
    setWorldSize(20, 12);
    walls(c.walls);
    RecordingObject* o = walker(c.from);
    ASSERT_EQ(o->findPath(c.to), 0);
    searchToTheEnd();
    EXPECT_EQ(nodes(o), c.path);
  }
}

TEST_F(PathFindTest, SearchesEndWhereAnObjectIsFirstTouchedAndSafelyWhateverTheirObjectsDo) {
  auto* target = new RecordingObject("target", {10, 5}, mv::HARD);
  target->setBox(mv::Box(Vector(-1.5f, -0.5f), 3, 1));
  RecordingObject* o = walker({2, 5});
  ASSERT_EQ(o->findPath(target), 0);
  delete target;
  searchToTheEnd();
  ASSERT_FALSE(nodes(o).empty());
  EXPECT_EQ(nodes(o).back(), Vector(9, 5)) << "the walker's box met the target's there";

  setWorldSize(60, 20);
  RecordingObject* quick = walker({5, 5});
  RecordingObject* doomed = walker({5, 10});
  RecordingObject* far = walker({1, 15});
  ASSERT_EQ(quick->findPath(Vector(5, 5)), 0);
  ASSERT_EQ(doomed->findPath(Vector(50, 10)), 0);
  ASSERT_EQ(far->findPath(Vector(58, 15)), 0);
  // The first to end deletes the next one's object, and with it its search.
  quick->on_event = [&](const mv::Event*) { delete doomed; };
  searchToTheEnd();
  EXPECT_EQ(nodes(far).back(), Vector(58, 15));

  RecordingObject* deleted = walker({5, 5});
  ASSERT_EQ(deleted->findPath(Vector(50, 5)), 0);
  delete deleted;
  searchToTheEnd();

  RecordingObject* again = walker({5, 5});
  ASSERT_EQ(again->findPath(Vector(50, 5)), 0);
  ASSERT_EQ(again->findPath(Vector(6, 5)), 0) << "a new search replaces the old one";
  searchToTheEnd();
  EXPECT_EQ(again->received, std::vector<std::string>{"mv-path"});
  EXPECT_EQ(mv::PathManager::getInstance().removePathFind(nullptr), -1);
}

TEST_F(PathFindTest, AFoundPathIsWalkedToItsEndAndTheWalkerStops) {
  RecordingObject* o = walker({2, 2});
  o->setSpeed(1);
  ASSERT_EQ(o->findPath(Vector(6, 4)), 0);
  // A frame with no time left still gives the searches their least time.
  for (int i = 0; i < 20 && nodes(o).empty(); i++) {
    mv::PathManager::getInstance().cycle(0);
  }
  ASSERT_FALSE(nodes(o).empty());
  for (int frame = 0; frame < 20; frame++) {
    mv::WorldManager::getInstance().update();
  }
  EXPECT_EQ(o->getPosition(), Vector(6, 4));
  EXPECT_EQ(o->getDirection(), Vector(0, 0));
  EXPECT_FALSE(o->getFollowPath());
}

// A walled-in walker's search fails, an end outside the world is refused, and a
// world shrunk under a search ends it: each leaves its walker as it was.
TEST_F(PathFindTest, ASearchThatCannotEndWellLeavesTheWalkerAsItWas) {
  walls({{4, 4}, {5, 4}, {6, 4}, {4, 5}, {6, 5}, {4, 6}, {5, 6}, {6, 6}});
  RecordingObject* boxed = walker({5, 5});
  boxed->setVelocity(Vector(0.5f, 0));
  EXPECT_EQ(boxed->findPath(Vector(80, 5)), -1);
  EXPECT_EQ(boxed->findPath(Vector(-0.6f, 5)), -1);
  EXPECT_EQ(boxed->findPath(Vector(1e20f, 5)), -1) << "far past what an int holds";
  EXPECT_EQ(boxed->findPath(Vector(5, std::nanf(""))), -1);
  ASSERT_EQ(boxed->findPath(Vector(15, 5)), 0);
  searchToTheEnd();
  EXPECT_EQ(boxed->getVelocity(), Vector(0.5f, 0));
  RecordingObject* o = walker({8, 8});
  EXPECT_EQ(o->findPath(Vector(79.4f, 23.4f)), 0) << "rounds to the last cell";
  setWorldSize(10, 10);
  searchToTheEnd();
  for (const RecordingObject* searcher : {boxed, o}) {
    EXPECT_EQ(searcher->received, std::vector<std::string>{"mv-path"});
    EXPECT_TRUE(nodes(searcher).empty());
  }
}

}  // namespace
