// A fixture for tests of the world: a scratch working directory, a started
// world of the given boundary with the view over all of it, and the shutdown
// that deletes whatever objects a test leaves behind.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Box.h"
#include "Object.h"
#include "ObjectList.h"
#include "ScratchDirectory.h"
#include "WorldManager.h"

namespace mv_test {

class WorldTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Restarts the grid for a world of this size, with the view on all of it.
  void setWorldSize(float width, float height);

  static mv::WorldManager& world() { return mv::WorldManager::getInstance(); }

  ScratchDirectory scratch;
};

// The objects of a list in its order.
std::vector<mv::Object*> toVector(const mv::ObjectList& list);

// Checks that the scene graph lists every object where its state says it
// belongs, and nowhere else; `objects` is everything in the world.
void expectSceneGraphConsistent(const std::vector<mv::Object*>& objects);

}  // namespace mv_test
