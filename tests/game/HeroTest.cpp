#include "Hero.h"

#include <cmath>
#include <set>

#include "Bullet.h"
#include "Chair.h"
#include "GameTest.h"
#include "Gunrobot.h"
#include "InputManager.h"
#include "WorldManager.h"

namespace {

using mv::Vector;
using HeroTest = GameTest;
using Key = sf::Keyboard;

TEST_F(HeroTest, AMoveEveryOtherStepByTheFirstFittingRowOfHeldKeysAndOnlyInsideTheLimits) {
  const struct {
    std::set<Key::Key> held;
    int speed_upgrades;
    Vector from;
    int steps;
    Vector moved;
  } cases[] = {
      {{Key::W, Key::S}, 0, {50, 24}, 2, {0, -1}},
      {{Key::A, Key::D}, 0, {50, 24}, 2, {-2, 0}},
      {{Key::W, Key::A, Key::D}, 0, {50, 24}, 2, {-2, -1}},
      {{Key::S, Key::D}, 0, {50, 24}, 2, {2, 1}},
      {{Key::D}, 0, {50, 24}, 6, {6, 0}},
      {{Key::S, Key::D}, 1, {50, 24}, 2, {2, 1}},
      {{Key::S, Key::D}, 2, {50, 24}, 2, {3, 1}},
      {{Key::S, Key::D}, 4, {50, 24}, 2, {4, 2}},
      {{Key::A}, 0, {5, 24}, 2, {0, 0}},
      {{Key::W, Key::A}, 0, {5, 24}, 2, {0, 0}},
      {{Key::W}, 0, {50, 4}, 2, {0, 0}},
      {{Key::S, Key::D}, 0, {50, 46}, 2, {0, 0}},
      {{Key::D}, 0, {196, 24}, 2, {2, 0}},
      {{Key::D}, 0, {197, 24}, 2, {0, 0}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "case " << &c - cases);
    Hero* hero = heroAlone();
    hero->setPosition(c.from);
    applyUpgrade(hero, "player speed", c.speed_upgrades);
    hold(c.held, c.steps);
    EXPECT_EQ(hero->getPosition() - c.from, c.moved);
  }

  // Escape ends the game and still takes the move that the held D has due.
  Hero* hero = heroAlone();
  hero->setPosition(Vector(50, 24));
  hold({Key::D}, 1);
  step();
  input.held_keys = {Key::Escape};
  mv::InputManager::getInstance().getInput();
  EXPECT_EQ(all("GameOver").size(), 1u);
  EXPECT_EQ(hero->getPosition(), Vector(52, 24));
}

TEST_F(HeroTest, AVolleyGoesAtTheMouseEveryThirtyStepsWithItsOtherBulletsStrayingALittle) {
  Hero* hero = heroAlone();
  applyUpgrade(hero, "add bullets", 7);
  applyUpgrade(hero, "bullet size", 3);
  applyUpgrade(hero, "bullet speed", 1);
  input.held_buttons = {sf::Mouse::Left};
  input.mouse = pixelsOf(Vector(57, 24));
  EXPECT_EQ(stepsBuilding("Bullet", 60), (std::vector<int>{29, 59}));

  const std::vector<mv::Object*> volley = all("Bullet");
  ASSERT_EQ(volley.size(), 16u);
  EXPECT_EQ(volley[8]->getVelocity(), Vector(3, 0)) << "the first bullet goes straight";
  EXPECT_EQ(volley[8]->getPosition(), Vector(13, 24)) << "built 3 columns right of him, moved once";
  std::set<float> angles;
  for (mv::Object* o : volley) {
    const auto* bullet = static_cast<Bullet*>(o);
    EXPECT_EQ(bullet->getSize(), 3) << "a size above 3 is fired as 3";
    const Vector v = bullet->getVelocity();
    EXPECT_NEAR(v.getMagnitude(), 3, 1e-5);
    const float degrees = std::atan2(v.getY(), v.getX()) * 180 / static_cast<float>(M_PI);
    EXPECT_LE(std::fabs(degrees), 15.001f);
    angles.insert(std::round(degrees));
  }
  EXPECT_GT(angles.size(), 3u) << "the others are drawn one by one";
}

TEST_F(HeroTest, AHitCostsOneHealthAndNinetyStepsOfBlinkingAndTheLastOneEndsTheGame) {
  Hero* hero = heroAlone();
  auto* chair = new Chair(hero->getPosition(), 1);
  new Gunrobot(hero->getPosition(), 1);
  EXPECT_EQ(shown("Health"), 4) << "two touches in one frame cost one health";

  mv::WorldManager& world = mv::WorldManager::getInstance();
  const auto touch = [&] { world.moveObject(chair, hero->getPosition()); };
  const auto run_into = [&] { world.moveObject(hero, chair->getPosition()); };
  std::string blinks;
  std::string sprite = "hero";
  for (int after = 1; after <= 90; after++) {
    frame();
    touch();
    if (hero->getAnimation().getName() != sprite) {
      sprite = hero->getAnimation().getName();
      blinks += std::to_string(after) + " " + sprite + ", ";
    }
  }
  EXPECT_EQ(blinks,
            "11 hero-hurt, 21 hero, 31 hero-hurt, 41 hero, 51 hero-hurt, 61 hero, 71 hero-hurt, "
            "81 hero, ");
  EXPECT_EQ(shown("Health"), 3) << "no hit counts while he blinks, and the first after does";

  for (int health = 2; health >= 1; health--) {
    frames(90);
    run_into();
    EXPECT_EQ(shown("Health"), health);
  }
  EXPECT_TRUE(all("GameOver").empty());
  frames(90);
  run_into();
  EXPECT_EQ(all("GameOver").size(), 1u);
  frame();
  EXPECT_TRUE(all("Hero").empty());
}

TEST_F(HeroTest, EachUpgradeChangesItsOwnStatAndTheKeysOPAndIGiveThreeOfThemOncePerPress) {
  Hero* hero = heroAlone();
  for (const std::string& name : upgradeNames()) {
    SCOPED_TRACE(name);
    const Stats expected = upgraded(statsOf(hero), name);
    EXPECT_EQ(hero->applyUpgrade(name), 0);
    EXPECT_EQ(statsOf(hero), expected);
  }
  EXPECT_EQ(shown("Health"), 6);

  const Stats all_eight = statsOf(hero);
  EXPECT_EQ(hero->applyUpgrade("Health"), -1);
  EXPECT_EQ(statsOf(hero), all_eight);

  const std::pair<Key::Key, const char*> upgrade_keys[] = {
      {Key::O, "add bullets"}, {Key::P, "bullet bounces"}, {Key::I, "bullet speed"}};
  Stats expected = all_eight;
  for (const auto& [key, name] : upgrade_keys) {
    input.queueKey(sf::Event::KeyPressed, key);
    expected = upgraded(expected, name);
  }
  hold({Key::O, Key::P, Key::I}, 5);
  EXPECT_EQ(statsOf(hero), expected);
}

}  // namespace
