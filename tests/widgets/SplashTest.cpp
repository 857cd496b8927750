#include "Splash.h"

#include <gtest/gtest.h>

#include "EventKeyboard.h"
#include "EventStep.h"
#include "GameManager.h"
#include "InputManager.h"
#include "ScratchDirectory.h"
#include "WorldManager.h"

namespace {

using mv::GameManager;
using mv::Vector;
using mv::WorldManager;

class SplashTest : public ::testing::Test {
 protected:
  void SetUp() override {
    scratch.write("mv-config.txt", "headless:true,networking:false,");
    ASSERT_EQ(GameManager::getInstance().startUp(), 0);
  }
  void TearDown() override { GameManager::getInstance().shutDown(); }

  // One frame as the loop runs it, without the sleep: the step, then the world.
  void frame(int step) {
    const mv::EventStep event(step);
    GameManager::getInstance().onEvent(&event);
    WorldManager::getInstance().update();
  }

  mv::Object* only(const std::string& type) {
    const mv::ObjectList found = WorldManager::getInstance().objectsOfType(type);
    return found.getCount() == 1 ? found[0] : nullptr;
  }

  mv_test::ScratchDirectory scratch;
};

TEST_F(SplashTest, TheNameSlidesInAndTheEmblemClimbsToItsSideStepByStep) {
  new mv::Splash;
  mv::Object* name = only("Splash");
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->getPosition(), Vector(103.5f, 12)) << "just beyond the view's right edge";
  EXPECT_EQ(name->getVelocity(), Vector(-4.65625f, 0));
  EXPECT_EQ(name->getBox().getHorizontal(), 47);

  for (int step = 0; step < 14; step++) {
    frame(step);
  }
  EXPECT_EQ(only("SplashMorvane"), nullptr);
  frame(14);
  EXPECT_EQ(name->getPosition(), Vector(38.3125f, 12)) << "14 moves, then it stops";
  EXPECT_EQ(name->getAnimation().getIndex(), 1) << "and shows its second lettering";
  mv::Object* emblem = only("SplashMorvane");
  ASSERT_NE(emblem, nullptr);
  EXPECT_FLOAT_EQ(emblem->getPosition().getX(), 62.3125f);
  EXPECT_FLOAT_EQ(emblem->getVelocity().getY(), -17.0f / 30);

  for (int step = 15; step <= 44; step++) {
    frame(step);
  }
  EXPECT_NEAR(emblem->getPosition().getY(), 13, 1e-4) << "30 moves up to its place";
  frame(45);
  EXPECT_EQ(emblem->getSpeed(), 0.0f);

  for (int step = 46; step <= 59; step++) {
    frame(step);
  }
  EXPECT_EQ(emblem->getBox().getHorizontal(), 9) << "at rest, in its line drawing";
  EXPECT_FLOAT_EQ(emblem->getPosition().getX(), 61.3125f);

  for (int step = 60; step < 89; step++) {
    frame(step);
  }
  EXPECT_FALSE(GameManager::getInstance().getGameOver());
  frame(89);
  EXPECT_TRUE(GameManager::getInstance().getGameOver());
  EXPECT_TRUE(WorldManager::getInstance().getAllObjects(true).isEmpty()) << "both end together";
}

TEST_F(SplashTest, AnyKeyEndsTheRunAndAnEarlyOneLeavesNoEmblem) {
  new mv::Splash;
  frame(0);
  mv::EventKeyboard undefined_key;
  mv::InputManager::getInstance().onEvent(&undefined_key);
  EXPECT_TRUE(GameManager::getInstance().getGameOver());
  WorldManager::getInstance().update();
  EXPECT_TRUE(WorldManager::getInstance().getAllObjects(true).isEmpty());
}

TEST(Splash, RunsNinetyStepsInItsOwnLoopAndNeedsAStartedEngine) {
  mv_test::ScratchDirectory scratch;
  testing::internal::CaptureStderr();
  EXPECT_EQ(mv::splash(), -1);
  EXPECT_NE(testing::internal::GetCapturedStderr().find(
                "splash(): Error! Cannot run splash screen until game manger is started."),
            std::string::npos);

  scratch.write("mv-config.txt", "headless:true,networking:false,frame_time:1,");
  GameManager& game = GameManager::getInstance();
  ASSERT_EQ(game.startUp(), 0);
  EXPECT_EQ(mv::splash(), 0);
  EXPECT_EQ(game.getStepCount(), 90);
  game.shutDown();
}

}  // namespace
