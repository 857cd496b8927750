#include "WorldTest.h"

#include <algorithm>

#include "Cell.h"
#include "GameManager.h"
#include "ObjectListIterator.h"
#include "RecordingObject.h"
#include "SceneGraph.h"

namespace mv_test {

namespace {

bool contains(const mv::ObjectList& list, mv::Object* o) {
  const std::vector<mv::Object*> objects = toVector(list);
  const auto found = std::count(objects.begin(), objects.end(), o);
  EXPECT_LE(found, 1) << "listed twice: " << o->getType();
  return found == 1;
}

std::vector<mv::Cell> allCells(const mv::Grid& grid) {
  std::vector<mv::Cell> cells = {mv::OUT_OF_BOUNDS};
  for (int y = 0; y < grid.getRowCount(); y++) {
    for (int x = 0; x < grid.getColumnCount(); x++) {
      cells.push_back(mv::Cell{x, y});
    }
  }
  return cells;
}

}  // namespace

void WorldTest::SetUp() {
  dispatch_log.clear();
  ASSERT_EQ(mv::WorldManager::getInstance().startUp(), 0);
  setWorldSize(80, 24);
}

void WorldTest::TearDown() {
  mv::GameManager::getInstance().setGameOver(true);
  mv::WorldManager::getInstance().shutDown();
}

void WorldTest::setWorldSize(float width, float height) {
  mv::WorldManager& world = mv::WorldManager::getInstance();
  world.setBoundary(mv::Box(mv::Vector(0, 0), width, height));
  world.setView(mv::Box(mv::Vector(0, 0), width, height));
}

std::vector<mv::Object*> toVector(const mv::ObjectList& list) {
  std::vector<mv::Object*> objects;
  mv::ObjectListIterator it(&list);
  for (it.first(); !it.isDone(); it.next()) {
    objects.push_back(it.currentObject());
  }
  return objects;
}

void expectSceneGraphConsistent(const std::vector<mv::Object*>& objects) {
  const mv::SceneGraph& graph = mv::WorldManager::getInstance().getSceneGraph();
  const mv::Grid& grid = graph.getGrid();
  int active_count = 0;
  for (mv::Object* o : objects) {
    SCOPED_TRACE("object " + o->getType());
    const bool active = o->isActive();
    active_count += active ? 1 : 0;
    EXPECT_EQ(contains(graph.activeObjects(), o), active);
    EXPECT_EQ(contains(graph.inactiveObjects(), o), !active);
    EXPECT_EQ(contains(graph.objectsOfType(o->getType()), o), active);
    EXPECT_EQ(contains(graph.solidObjects(), o), active && o->isSolid());
    for (int altitude = 0; altitude <= 4; altitude++) {
      EXPECT_EQ(contains(graph.visibleObjects(altitude), o),
                active && o->isVisible() && o->getAltitude() == altitude)
          << "altitude " << altitude;
    }
    const std::vector<mv::Cell> own = grid.getCells(o, o->getPosition());
    for (const mv::Cell& cell : allCells(grid)) {
      const bool belongs =
          active && o->isSolid() && std::find(own.begin(), own.end(), cell) != own.end();
      EXPECT_EQ(contains(grid.objectsInCell(cell), o), belongs)
          << "cell " << cell.x << "," << cell.y;
    }
  }
  EXPECT_EQ(graph.activeObjects().getCount(), active_count) << "the graph holds strangers";
  EXPECT_EQ(graph.activeObjects().getCount() + graph.inactiveObjects().getCount(),
            static_cast<int>(objects.size()));
}

}  // namespace mv_test
