#include "SceneGraph.h"

#include <gtest/gtest.h>

#include "GameManager.h"
#include "RecordingObject.h"
#include "WorldManager.h"
#include "WorldTest.h"
#include "logLines.h"

namespace {

using mv::Vector;
using mv_test::RecordingObject;

using SceneGraphTest = mv_test::WorldTest;

TEST_F(SceneGraphTest, EverySetterKeepsTheIndexConsistent) {
  auto* a = new RecordingObject("a", Vector(10, 5));
  auto* b = new RecordingObject("b", Vector(30, 12), mv::SOFT);
  auto* c = new RecordingObject("c", Vector(70, 20), mv::SPECTRAL);
  const std::vector<mv::Object*> all = {a, b, c, new mv::Object};
  mv_test::expectSceneGraphConsistent(all);

  const auto step = [&](const char* what, const std::function<void()>& change) {
    SCOPED_TRACE(what);
    change();
    mv_test::expectSceneGraphConsistent(all);
  };
  step("move", [&] { a->setPosition(Vector(45, 9)); });
  step("hard to spectral", [&] { a->setSolidness(mv::SPECTRAL); });
  step("spectral to soft", [&] { c->setSolidness(mv::SOFT); });
  step("soft to hard", [&] { b->setSolidness(mv::HARD); });
  step("altitude", [&] { b->setAltitude(4); });
  step("invisible", [&] { b->setVisible(false); });
  step("altitude while invisible", [&] { b->setAltitude(0); });
  step("visible", [&] { b->setVisible(true); });
  step("type", [&] { c->setType("renamed"); });
  step("box", [&] { c->setBox(mv::Box(Vector(-5, -5), 10, 10)); });
  step("deactivate", [&] { c->setActive(false); });
  step("changes while inactive", [&] {
    c->setPosition(Vector(5, 5));
    c->setAltitude(1);
    c->setVisible(false);
    c->setSolidness(mv::HARD);
  });
  step("type while inactive", [&] { c->setType("again"); });
  step("reactivate", [&] { c->setActive(true); });
  step("visible again", [&] { c->setVisible(true); });
}

TEST_F(SceneGraphTest, KeepsOrdersAndRefusesBadAltitudesAndStrangers) {
  mv::SceneGraph& graph = world().getSceneGraph();
  auto* first = new RecordingObject("same", Vector(5, 5));
  auto* second = new RecordingObject("same", Vector(6, 5), mv::SOFT);
  first->setActive(false);
  first->setActive(true);
  EXPECT_EQ(graph.activeObjects()[1], first);
  EXPECT_EQ(graph.objectsOfType("same")[1], first);
  EXPECT_EQ(graph.solidObjects()[1], first);
  EXPECT_EQ(graph.visibleObjects(2)[1], first);
  EXPECT_EQ(graph.getGrid().objectsInCell(mv::Cell{0, 0})[1], first);

  second->setSolidness(mv::HARD);
  EXPECT_EQ(graph.solidObjects()[0], second) << "soft to hard keeps its place";
  EXPECT_EQ(graph.objectsOfType("nobody").getCount(), 0);

  // Out-of-range altitudes are refused; a stranger is quiet in updates once the game is over.
  RecordingObject* stranger = new RecordingObject("stranger");
  graph.removeObject(stranger);  // now the graph has lost track of it

  mv::GameManager::getInstance().setGameOver(true);
  const std::string errors = mv_test::stderrOf([&] {
    EXPECT_EQ(graph.visibleObjects(5).getCount(), 0);
    EXPECT_EQ(graph.visibleObjects(-1).getCount(), 0);
    EXPECT_EQ(graph.updateType(stranger, "other"), 0);
    EXPECT_EQ(graph.removeObject(stranger), -1);
  });
  const std::vector<std::string> messages = mv_test::logMessages(errors);
  ASSERT_EQ(messages.size(), 3u) << "no word of the type's update";
  EXPECT_EQ(messages[0], "SceneGraph::visibleObjects(): Warning! altitude 5 not in [0,4].");
  EXPECT_EQ(messages[1], "SceneGraph::visibleObjects(): Warning! altitude -1 not in [0,4].");
  EXPECT_EQ(messages[2].rfind("SceneGraph::removeObject(): Error removing Object", 0), 0u);
  graph.insertObject(stranger);
}

// Records may bring a new type with every object: the index must not keep
// the lists of types that no active object has.
TEST_F(SceneGraphTest, ATypeIsIndexedOnlyWhileAnActiveObjectHasIt) {
  const mv::SceneGraph& graph = world().getSceneGraph();
  const int types = graph.getTypeCount();
  auto* first = new RecordingObject("visitor");
  auto* second = new RecordingObject("visitor");
  EXPECT_EQ(graph.getTypeCount(), types + 1);
  delete first;
  EXPECT_EQ(graph.getTypeCount(), types + 1) << "one visitor is left";
  second->setActive(false);
  EXPECT_EQ(graph.getTypeCount(), types) << "an inactive object is in no type's list";
  EXPECT_TRUE(mv_test::hasMessage(mv_test::stderrOf([&] { second->setType("renamed"); }),
                                  "SceneGraph::updateType(): Error! Unable to remove Object (" +
                                      std::to_string(second->getId()) + ") type visitor"));
  second->setActive(true);
  EXPECT_EQ(graph.objectsOfType("renamed").getCount(), 1) << "it comes back under its new type";
  second->setType("again");
  EXPECT_EQ(graph.getTypeCount(), types + 1) << "the old type went as the new one came";
  delete second;
  EXPECT_EQ(graph.getTypeCount(), types);
}

}  // namespace
