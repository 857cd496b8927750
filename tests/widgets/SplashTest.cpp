#include "Splash.h"

#include <gtest/gtest.h>

#include "EventKeyboard.h"
#include "EventStep.h"
#include "GameManager.h"
#include "InputManager.h"
#include "ScratchDirectory.h"
#include "WorldManager.h"
#include "logLines.h"

namespace {

using mv::GameManager;
using mv::WorldManager;

mv::Object* only(const std::string& type) {
  const mv::ObjectList found = WorldManager::getInstance().objectsOfType(type);
  return found.getCount() == 1 ? found[0] : nullptr;
}

TEST(Splash, AnyKeyEndsItOtherwiseTheNameSlidesInAndTheEmblemClimbsStepByStep) {
  mv_test::ScratchDirectory scratch;
  scratch.write("mv-config.txt", "headless:true,networking:false,");
  ASSERT_EQ(GameManager::getInstance().startUp(), 0);
  int step = 0;
  // Frames as the loop runs them, without the sleep: the step, then the world.
  const auto framesUpTo = [&](int last) {
    for (; step <= last; step++) {
      const mv::EventStep event(step);
      GameManager::getInstance().onEvent(&event);
      WorldManager::getInstance().update();
    }
  };
  new mv::Splash;
  framesUpTo(0);
  mv::EventKeyboard undefined_key;
  mv::InputManager::getInstance().onEvent(&undefined_key);
  EXPECT_TRUE(GameManager::getInstance().getGameOver());
  WorldManager::getInstance().update();
  EXPECT_TRUE(WorldManager::getInstance().getAllObjects(true).isEmpty()) << "and leaves no emblem";

  GameManager::getInstance().setGameOver(false);
  step = 0;
  new mv::Splash;
  mv::Object* name = only("Splash");
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->getPosition(), mv::Vector(103.5f, 12)) << "just beyond the view's right edge";
  framesUpTo(13);
  EXPECT_EQ(only("SplashMorvane"), nullptr);
  framesUpTo(14);
  EXPECT_EQ(name->getPosition(), mv::Vector(38.3125f, 12)) << "14 moves, then it stops";
  EXPECT_EQ(name->getAnimation().getIndex(), 1) << "and shows its second lettering";
  mv::Object* emblem = only("SplashMorvane");
  ASSERT_NE(emblem, nullptr);
  EXPECT_FLOAT_EQ(emblem->getPosition().getX(), 62.3125f);
  framesUpTo(44);
  EXPECT_NEAR(emblem->getPosition().getY(), 13, 1e-4) << "30 moves up to its place";
  framesUpTo(45);
  EXPECT_EQ(emblem->getSpeed(), 0.0f);
  framesUpTo(59);
  EXPECT_EQ(emblem->getBox().getHorizontal(), 9) << "at rest, in its line drawing";
  framesUpTo(88);
  EXPECT_FALSE(GameManager::getInstance().getGameOver());
  framesUpTo(89);
  EXPECT_TRUE(GameManager::getInstance().getGameOver());
  EXPECT_TRUE(WorldManager::getInstance().getAllObjects(true).isEmpty()) << "both end together";
  GameManager::getInstance().shutDown();
}

TEST(Splash, RunsNinetyStepsInItsOwnLoopAndNeedsAStartedEngine) {
  mv_test::ScratchDirectory scratch;
  EXPECT_TRUE(mv_test::hasMessage(
      mv_test::stderrOf([] { EXPECT_EQ(mv::splash(), -1); }),
      "splash(): Error! Cannot run splash screen until game manger is started."));
  scratch.write("mv-config.txt", "headless:true,networking:false,frame_time:1,");
  GameManager& game = GameManager::getInstance();
  ASSERT_EQ(game.startUp(), 0);
  EXPECT_EQ(mv::splash(), 0);
  EXPECT_EQ(game.getStepCount(), 90);
  game.shutDown();
}

}  // namespace
