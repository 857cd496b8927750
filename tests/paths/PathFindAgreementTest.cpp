// The engine's search against the plain one it was made from: in a world that
// holds still they must expand the same cells in the same order and find the
// same path, whatever the obstacles.
#include <gtest/gtest.h>

#include <random>

#include "PathFind.h"
#include "RecordingObject.h"
#include "ReferencePathFind.h"
#include "WorldManager.h"
#include "WorldTest.h"
#include "blockedWorld.h"

namespace {

using mv::Vector;

class PathFindAgreementTest : public mv_test::WorldTest {};

// Steps both searches in lockstep and answers how many expansions they agreed on.
int expectSameExpansions(mv::PathFind& fast, mv::ReferencePathFind& reference) {
  for (int expansion = 0;; expansion++) {
    const int fast_result = fast.cycleOnce();
    const int reference_result = reference.cycleOnce();
    EXPECT_EQ(fast_result, reference_result) << "expansion " << expansion;
    EXPECT_EQ(fast.getLastExpanded(), reference.getLastExpanded()) << "expansion " << expansion;
    if (fast_result != 1 || reference_result != 1 ||
        !(fast.getLastExpanded() == reference.getLastExpanded())) {
      EXPECT_EQ(fast.getPath().getNodes(), reference.getPath().getNodes());
      return expansion;
    }
  }
}

TEST_F(PathFindAgreementTest, TheEngineSearchesExactlyAsThePlainSearch) {
  std::mt19937 random(20261123);
  std::uniform_int_distribution<int> side(4, 30);
  std::uniform_real_distribution<double> share(0.0, 0.45);
  int expansions = 0;
  for (int world = 0; world < 300; world++) {
    SCOPED_TRACE(testing::Message() << "world " << world);
    mv::WorldManager::getInstance().shutDown();
    mv::WorldManager::getInstance().startUp();
    const int width = side(random);
    const int height = side(random);
    const mv::Cell from{0, static_cast<int>(random() % height)};
    const mv::Cell to{width - 1, static_cast<int>(random() % height)};
    mv_scenes::buildBlockedWorld(width, height, share(random), random(), {from, to});
    // SOFT objects never block; a HARD target ends the search where it is touched.
    new mv_test::RecordingObject("soft", Vector(width / 2.0f, height / 2.0f), mv::SOFT);
    auto* walker = new mv_test::RecordingObject(
        "walker", Vector(static_cast<float>(from.x), static_cast<float>(from.y)), mv::SOFT);
    mv::Object* target = nullptr;
    if (world % 3 == 0) {
      target = new mv_test::RecordingObject(
          "target", Vector(static_cast<float>(to.x), static_cast<float>(to.y)), mv::HARD);
    }
    const Vector goal(static_cast<float>(to.x), static_cast<float>(to.y));
    mv::PathFind fast(walker, goal, target);
    mv::ReferencePathFind reference(walker, goal, target);
    expansions += expectSameExpansions(fast, reference);
  }
  EXPECT_GT(expansions, 10000) << "the worlds should make the searches work";
}

// Walls reaching far past the world, as a long flight may leave them: both
// searches must see the same walls, and one past what an int holds must still
// block where it crosses the world. A walker of a whole cell touches walls on
// whole cells, where a span of cells cut short shows at once.
TEST_F(PathFindAgreementTest, HardObjectsFarBeyondTheWorldBlockAlike) {
  const float far = 3e9f;
  const float bound = mv::MAX_WORLD_MAGNITUDE;
  const auto box = [](float x, float y, float width, float height) {
    return mv::Box(Vector(x, y), width, height);
  };
  const mv::Box whole_cell = box(-0.5f, -0.5f, 1, 1);
  const struct {
    const char* what;
    Vector position;
    mv::Box box;
    bool way_through;
    mv::Box walker = mv::Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f);
    Vector world = {20, 12};
    Vector from = {2, 2};
    Vector to = {17, 10};
  } walls[] = {
      {"far off, touching nothing", Vector(far, -far), whole_cell, true},
      {"from far left to far right", Vector(10, 6), box(-far, -0.5f, 2 * far, 1), false},
      {"from far above to far below", Vector(10, 6), box(-0.5f, -far, 1, 2 * far), false},
      // A wall that holds the end blocks nothing.
      {"over all the world", Vector(-far, -far), box(0, 0, 2 * far, 2 * far), true},
      // Met from below, where the search comes from, by a box a row above its walker.
      {"in from the bound, short of the right", Vector(-bound, 6), box(0, -0.5f, bound + 12, 1),
       true, box(-0.5f, -1.5f, 1, 1), Vector(20, 12), Vector(2, 10), Vector(17, 2)},
      // Out there floats are 2 apart: the walker's box at 3 rounds onto the wall.
      {"met by a walker whose box stands 2^24 off", Vector(0x1p24f + 8, 6),
       box(0, -far, 64, 2 * far), false, box(0x1p24f, -0.5f, 3, 1)},
      {"across a corridor one cell tall", Vector(10, 0), whole_cell, false, whole_cell,
       Vector(20, 1), Vector(2, 0), Vector(17, 0)},
  };
  for (const auto& wall : walls) {
    SCOPED_TRACE(wall.what);
    mv::WorldManager::getInstance().shutDown();
    mv::WorldManager::getInstance().startUp();
    setWorldSize(wall.world.getX(), wall.world.getY());
    auto* hard = new mv_test::RecordingObject("wall", wall.position, mv::HARD);
    hard->setBox(wall.box);
    auto* walker = new mv_test::RecordingObject("walker", wall.from, mv::SOFT);
    walker->setBox(wall.walker);
    mv::PathFind fast(walker, wall.to);
    mv::ReferencePathFind reference(walker, wall.to);
    expectSameExpansions(fast, reference);
    EXPECT_EQ(fast.getPath().getNodes().empty(), !wall.way_through);
  }
}

}  // namespace
