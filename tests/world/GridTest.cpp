#include "Grid.h"

#include <gtest/gtest.h>

#include <cmath>

#include "Config.h"

#include "RecordingObject.h"
#include "WorldManager.h"
#include "WorldTest.h"

namespace {

using mv::Box;
using mv::Cell;
using mv::CellSet;
using mv::Vector;
using mv_test::RecordingObject;

class GridTest : public mv_test::WorldTest {
 protected:
  const mv::Grid& grid() { return mv::WorldManager::getInstance().getSceneGraph().getGrid(); }
};

// A 1 by 1 box whose top-left corner is at `corner`.
RecordingObject* unitBoxAt(const std::string& name, Vector corner) {
  auto* o = new RecordingObject(name, corner);
  o->setBox(Box(Vector(0, 0), 1, 1));
  return o;
}

TEST_F(GridTest, CellsFollowTheBoxAndItsFarEdge) {
  EXPECT_EQ(grid().getColumnCount(), 4) << "80 wide in cells of 20";
  EXPECT_EQ(grid().getRowCount(), 3) << "24 high in cells of 8";

  auto* o = unitBoxAt("o", Vector(0, 0));
  EXPECT_EQ(grid().getCells(o, Vector(19.5f, 0)), (CellSet{{0, 0}, {1, 0}}));
  EXPECT_EQ(grid().getCells(o, Vector(39, 3)), (CellSet{{1, 0}, {2, 0}}))
      << "a box ending exactly on 40 takes the third column";
  EXPECT_EQ(grid().getCells(o, Vector(19.5f, 7.5f)), (CellSet{{0, 0}, {1, 0}, {0, 1}, {1, 1}}));
  EXPECT_EQ(grid().getCells(o, Vector(-5, 3)), (CellSet{mv::OUT_OF_BOUNDS}))
      << "wholly left of the world: out of bounds alone";
  EXPECT_EQ(grid().getCells(o, Vector(79.5f, 23.5f)), (CellSet{mv::OUT_OF_BOUNDS, {3, 2}}));

  o->setBox(Box(Vector(-0.5f, -0.5f), 0.99f, 0.99f));
  EXPECT_EQ(grid().getCells(o, Vector(0, 0)), (CellSet{mv::OUT_OF_BOUNDS, {0, 0}}))
      << "a negative coordinate floors to cell -1 and clips";
}

TEST_F(GridTest, FarOffAndUndefinedPositionsLandOutOfBoundsSafely) {
  auto* o = unitBoxAt("o", Vector(0, 0));
  EXPECT_EQ(grid().getCells(o, Vector(1e30f, -1e30f)), (CellSet{mv::OUT_OF_BOUNDS}));
  EXPECT_EQ(grid().getCells(o, Vector(std::nanf(""), 3)), (CellSet{mv::OUT_OF_BOUNDS}));
  EXPECT_EQ(grid().getCells(o, Vector(-1e30f, 1e30f)), (CellSet{mv::OUT_OF_BOUNDS}));
}

TEST_F(GridTest, CollisionsComeOnceEachInCellOrderAndNeverIncludeTheAsker) {
  auto* big = new RecordingObject("big", Vector(20, 8));
  big->setBox(Box(Vector(-2, -2), 4, 4));  // spans four cells
  auto* row_below = unitBoxAt("row below", Vector(21.5f, 9));
  auto* outside = unitBoxAt("outside", Vector(17, -1.5f));
  auto* asker = unitBoxAt("asker", Vector(0, 0));

  const mv::ObjectList hits = grid().getCollisions(asker, Vector(19.5f, 7.5f));
  std::vector<std::string> types;
  for (int i = 0; i < hits.getCount(); i++) {
    types.push_back(hits[i]->getType());
  }
  EXPECT_EQ(types, (std::vector<std::string>{"big"}));

  const mv::ObjectList around = grid().getCollisions(big, Vector(20, 8));
  types.clear();
  for (int i = 0; i < around.getCount(); i++) {
    types.push_back(around[i]->getType());
  }
  EXPECT_EQ(types, (std::vector<std::string>{"row below"}))
      << "the asker is not in its own result; others stay at their current places";
  EXPECT_EQ(grid().getCollisions(outside, Vector(17, -1.5f)).getCount(), 0);
  (void)row_below;
}

TEST_F(GridTest, ObjectsOutsideTheBoundaryStillCollide) {
  auto* a = unitBoxAt("a", Vector(-10, -10));
  auto* b = unitBoxAt("b", Vector(-9.5f, -9.5f));
  EXPECT_EQ(grid().getCollisions(a, a->getPosition()).getCount(), 1);
  EXPECT_EQ(grid().getCollisions(a, a->getPosition())[0], b);
}

TEST_F(GridTest, MovesTouchOnlyTheCellsWhoseMembershipChanges) {
  auto* first = unitBoxAt("first", Vector(2, 2));
  auto* second = unitBoxAt("second", Vector(3, 2));
  first->setPosition(Vector(4, 3));
  const mv::ObjectList cell = grid().objectsInCell(Cell{0, 0});
  ASSERT_EQ(cell.getCount(), 2);
  EXPECT_EQ(cell[0], first) << "a move within a cell keeps the object's place in its list";

  first->setPosition(Vector(-1.5f, 3));
  EXPECT_EQ(grid().objectsInCell(mv::OUT_OF_BOUNDS).getCount(), 1);
  first->setPosition(Vector(4, 3));
  EXPECT_EQ(grid().objectsInCell(mv::OUT_OF_BOUNDS).getCount(), 0);
  EXPECT_EQ(grid().objectsInCell(Cell{0, 0})[0], second) << "re-entering a cell goes last";
  mv_test::expectSceneGraphConsistent({first, second});
}

TEST_F(GridTest, AnEmptyWorldPutsEverySolidObjectOutOfBounds) {
  setWorldSize(0, 0);
  EXPECT_TRUE(grid().isStarted());
  EXPECT_EQ(grid().getColumnCount(), 0);
  auto* o = new RecordingObject("o", Vector(5, 5));
  EXPECT_EQ(grid().objectsInCell(mv::OUT_OF_BOUNDS).getCount(), 1);
  mv_test::expectSceneGraphConsistent({o});
}

TEST(GridSettings, CellSizesThatAreNoSizesFallBackToTheDefaults) {
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", "grid_width:0,grid_height:-3,");
  mv::Config::getInstance().loadConfig();
  testing::internal::CaptureStderr();
  mv::Grid grid;
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_NE(errors.find("grid_width 0 is not a cell size. Using 20."), std::string::npos);
  EXPECT_NE(errors.find("grid_height -3 is not a cell size. Using 8."), std::string::npos);
}

TEST(GridSettings, AGridNotStartedRefusesWorkAndSaysSo) {
  mv_test::ScratchDirectory scratch;
  mv::Grid grid;
  testing::internal::CaptureStderr();
  EXPECT_EQ(grid.insertObject(nullptr), -1);
  EXPECT_EQ(grid.getCollisions(nullptr, Vector()).getCount(), 0);
  ASSERT_EQ(grid.startUp(), 0);
  EXPECT_EQ(grid.startUp(), -1);
  EXPECT_EQ(grid.removeObject(nullptr), -1);
  const std::string errors = testing::internal::GetCapturedStderr();
  EXPECT_NE(errors.find("Grid::insertObject(): Error! grid is NULL"), std::string::npos);
  EXPECT_NE(errors.find("Grid::getCollisions(): Error! grid is NULL"), std::string::npos);
  EXPECT_NE(errors.find("Grid::startUp(): Warning! Grid allocated. Not proceeding."),
            std::string::npos);
  EXPECT_NE(errors.find("Grid::removeObject(): Error! Object is NULL"), std::string::npos);
}

}  // namespace
