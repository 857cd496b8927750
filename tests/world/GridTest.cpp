#include "Grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "Config.h"
#include "RecordingObject.h"
#include "WorldTest.h"
#include "logLines.h"

namespace {

using mv::Box;
using mv::CellSet;
using mv::Vector;
using mv_test::RecordingObject;

class GridTest : public mv_test::WorldTest {
 protected:
  static const mv::Grid& grid() { return world().getSceneGraph().getGrid(); }
};

// The types of a list's objects, in its order.
std::vector<std::string> typesOf(const mv::ObjectList& list) {
  std::vector<std::string> types;
  for (const mv::Object* o : mv_test::toVector(list)) {
    types.push_back(o->getType());
  }
  return types;
}

// A 1 by 1 box whose top-left corner is at `corner`.
RecordingObject* unitBoxAt(const std::string& name, Vector corner) {
  auto* o = new RecordingObject(name, corner);
  o->setBox(Box(Vector(0, 0), 1, 1));
  return o;
}

TEST_F(GridTest, CellsFollowTheBoxAndItsFarEdge) {
  // 80 by 24 in cells of 20 by 8: four columns and three rows.
  auto* o = unitBoxAt("o", Vector(0, 0));
  const struct {
    const char* what;
    Vector at;
    CellSet cells;
  } cases[] = {
      {"across a column edge", {19.5f, 0}, {{0, 0}, {1, 0}}},
      {"a box ending exactly on 40 takes the third column", {39, 3}, {{1, 0}, {2, 0}}},
      {"across a corner", {19.5f, 7.5f}, {{0, 0}, {1, 0}, {0, 1}, {1, 1}}},
      {"wholly left of the world: out of bounds alone", {-5, 3}, {mv::OUT_OF_BOUNDS}},
      {"over the far corner", {79.5f, 23.5f}, {mv::OUT_OF_BOUNDS, {3, 2}}},
      {"far off", {1e30f, -1e30f}, {mv::OUT_OF_BOUNDS}},
      {"far off the other way", {-1e30f, 1e30f}, {mv::OUT_OF_BOUNDS}},
      {"not a number", {std::nanf(""), 3}, {mv::OUT_OF_BOUNDS}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(grid().getCells(o, c.at), c.cells) << c.what;
  }
  o->setBox(Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f));
  EXPECT_EQ(grid().getCells(o, Vector(0, 0)), (CellSet{mv::OUT_OF_BOUNDS, {0, 0}}))
      << "a negative coordinate floors to cell -1 and clips";
}

TEST_F(GridTest, AnEmptyWorldPutsEverySolidObjectOutOfBounds) {
  setWorldSize(0, 0);
  auto* o = new RecordingObject("o", Vector(5, 5));
  EXPECT_EQ(grid().objectsInCell(mv::OUT_OF_BOUNDS).getCount(), 1);
  mv_test::expectSceneGraphConsistent({o});
}

TEST_F(GridTest, CollisionsComeOnceEachAndNeverIncludeTheAskerInsideOrOutside) {
  auto* big = new RecordingObject("big", Vector(20, 8));
  big->setBox(Box(Vector(-2, -2), 4, 4));  // spans four cells
  unitBoxAt("row below", Vector(21.5f, 9));
  auto* outside = unitBoxAt("outside", Vector(17, -1.5f));
  auto* asker = unitBoxAt("asker", Vector(0, 0));
  EXPECT_EQ(typesOf(grid().getCollisions(asker, Vector(19.5f, 7.5f))),
            std::vector<std::string>{"big"});
  EXPECT_EQ(typesOf(grid().getCollisions(big, Vector(20, 8))),
            std::vector<std::string>{"row below"})
      << "the asker is not in its own result; others stay at their current places";
  EXPECT_EQ(grid().getCollisions(outside, Vector(17, -1.5f)).getCount(), 0);

  auto* a = unitBoxAt("a", Vector(-10, -10));
  unitBoxAt("b", Vector(-9.5f, -9.5f));
  EXPECT_EQ(typesOf(grid().getCollisions(a, a->getPosition())), std::vector<std::string>{"b"})
      << "objects outside the boundary still collide";
}

TEST_F(GridTest, MovesTouchOnlyTheCellsWhoseMembershipChanges) {
  auto* first = unitBoxAt("first", Vector(2, 2));
  auto* second = unitBoxAt("second", Vector(3, 2));
  first->setPosition(Vector(4, 3));
  EXPECT_EQ(typesOf(grid().objectsInCell(mv::Cell{0, 0})),
            (std::vector<std::string>{"first", "second"}))
      << "a move within a cell keeps the object's place in its list";
  first->setPosition(Vector(-1.5f, 3));
  EXPECT_EQ(grid().objectsInCell(mv::OUT_OF_BOUNDS).getCount(), 1);
  first->setPosition(Vector(4, 3));
  EXPECT_EQ(grid().objectsInCell(mv::OUT_OF_BOUNDS).getCount(), 0);
  EXPECT_EQ(grid().objectsInCell(mv::Cell{0, 0})[0], second) << "re-entering a cell goes last";
  mv_test::expectSceneGraphConsistent({first, second});
}

TEST(GridSettings, CellSizesThatAreNoSizesFallBackAndAGridNotStartedRefusesWork) {
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", "grid_width:0,grid_height:-3,");
  mv::Config::getInstance().loadConfig();
  const std::string errors = mv_test::stderrOf([] {
    mv::Grid grid;
    EXPECT_EQ(grid.insertObject(nullptr), -1);
    EXPECT_EQ(grid.getCollisions(nullptr, Vector()).getCount(), 0);
    ASSERT_EQ(grid.startUp(), 0);
    EXPECT_EQ(grid.startUp(), -1);
    EXPECT_EQ(grid.removeObject(nullptr), -1);
  });
  const std::string width = "Grid::Grid(): Warning! grid_width 0 is not a cell size. Using 20.";
  const std::string height = "Grid::Grid(): Warning! grid_height -3 is not a cell size. Using 8.";
  EXPECT_EQ(mv_test::logMessages(errors),
            (std::vector<std::string>{width, height, "Grid::insertObject(): Error! grid is NULL",
                                      "Grid::getCollisions(): Error! grid is NULL", width,
                                      height,  // the start reads the sizes anew
                                      "Grid::startUp(): Warning! Grid allocated. Not proceeding.",
                                      "Grid::removeObject(): Error! Object is NULL"}));
}

}  // namespace
