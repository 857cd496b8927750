#include "Enemy.h"

#include <string>
#include <vector>

#include "Bullet.h"
#include "Chair.h"
#include "Furnace.h"
#include "GameTest.h"
#include "Gunrobot.h"
#include "Points.h"
#include "WorldManager.h"
#include "Wrenchrobot.h"

namespace {

using mv::Vector;
using EnemyTest = GameTest;
using MakeEnemy = Enemy* (*)(Vector);

template <class Kind>
Enemy* make(Vector at) {
  return new Kind(at, 1);
}

void expectNear(Vector actual, Vector expected) {
  EXPECT_NEAR(actual.getX(), expected.getX(), 1e-5);
  EXPECT_NEAR(actual.getY(), expected.getY(), 1e-5);
}

// Every enemy answers the hero at (100,24) in the same step: chairs and
// robots close in from their own distances; a furnace wakes within ten of
// his row or column, and flames along the one within five.
TEST_F(EnemyTest, EachKindClosesInFromItsOwnDistanceAndAFurnaceFlamesAlongTheRowOrColumnNearIt) {
  const Vector hero_at(100, 24);
  heroAlone()->setPosition(hero_at);
  const struct {
    MakeEnemy make;
    Vector hero_from_enemy;
    Vector velocity;
  } cases[] = {
      {make<Chair>, {99, 0}, {0.5, 0}},         {make<Chair>, {100, 0}, {0, 0}},
      {make<Chair>, {0, -60}, {0, -0.25}},      {make<Gunrobot>, {74, 0}, {0, 0}},
      {make<Gunrobot>, {75, 0}, {0.5, 0}},      {make<Gunrobot>, {0, 80}, {0, 0.25}},
      {make<Wrenchrobot>, {40, 40}, {0, 0.25}}, {make<Wrenchrobot>, {-40, -40}, {0, -0.25}},
      {make<Wrenchrobot>, {60, 0}, {0, 0}},     {make<Wrenchrobot>, {30, 30}, {0, 0}},
  };
  std::vector<Enemy*> enemies;
  for (const auto& c : cases) {
    enemies.push_back(c.make(hero_at - c.hero_from_enemy));
  }
  const struct {
    Vector at;
    bool flames;
    Vector flame;
    bool awake;
  } furnace_cases[] = {
      {{95, 8}, true, {0, 1.4}, true},    {{94.5, 8}, false, {}, true},
      {{100, 40}, true, {0, -1.4}, true}, {{70, 19}, true, {2, 0}, true},
      {{115, 24}, true, {-2, 0}, true},   {{104, 20}, true, {0, 1.4}, true},
      {{60, 2}, false, {}, false},
  };
  std::vector<Furnace*> furnaces;
  for (const auto& c : furnace_cases) {
    furnaces.push_back(new Furnace(c.at, 1));
  }
  step();
  for (std::size_t i = 0; i < enemies.size(); i++) {
    SCOPED_TRACE(i);
    expectNear(enemies[i]->getVelocity(), cases[i].velocity);
  }
  for (std::size_t i = 0; i < furnaces.size(); i++) {
    const auto& c = furnace_cases[i];
    SCOPED_TRACE(testing::Message() << "the furnace at " << c.at.toString());
    std::vector<mv::Object*> flames;
    for (mv::Object* flame : all("EnemyBullet")) {
      if (flame->getPosition() == c.at) {
        flames.push_back(flame);
      }
    }
    ASSERT_EQ(flames.size(), c.flames ? 1u : 0u);
    if (c.flames) {
      expectNear(flames[0]->getVelocity(), c.flame);
    }
    EXPECT_EQ(furnaces[i]->getActiveCountdown() > 0, c.awake);
  }
}

TEST_F(EnemyTest, RobotsAndFurnacesKeepTheirRhythmOfFireAndAimFlatterUpAndDownThanAcross) {
  const struct {
    MakeEnemy make;
    Vector hero_from_enemy;
    const char* shot;
    int steps;
    std::vector<int> firing;
    std::vector<Vector> volley;
  } cases[] = {
      {make<Gunrobot>, {40, 30}, "EnemyBullet", 101, {0, 50, 100}, {{0.8, 0.42}}},
      {make<Wrenchrobot>, {40, 30}, "Wrench", 201, {0, 200}, {{0.8, 0.42}, {-0.8, -0.42}}},
      {make<Furnace>, {0, 20}, "EnemyBullet", 201, {0, 200}, {{0, 1.4}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.shot);
    const Vector hero_at(120, 40);
    heroAlone()->setPosition(hero_at);
    c.make(hero_at - c.hero_from_enemy);
    EXPECT_EQ(stepsBuilding(c.shot, c.steps), c.firing);
    const std::vector<mv::Object*> shots = all(c.shot);
    ASSERT_GE(shots.size(), c.volley.size());
    for (std::size_t i = 0; i < c.volley.size(); i++) {
      expectNear(shots[shots.size() - c.volley.size() + i]->getVelocity(), c.volley[i]);
    }
  }
}

TEST_F(EnemyTest, AFurnaceGlowsFromTheThinkAfterItWakesUntilFiveThinksAfterTheHeroHasLeft) {
  Hero* hero = heroAlone();
  hero->setPosition(Vector(100, 40));
  auto* furnace = new Furnace(Vector(100, 10), 1);
  std::vector<std::string> sprites;
  for (int think = 1; think <= 7; think++) {
    if (think == 3) {
      hero->setPosition(Vector(10, 45));
    }
    frames(10);
    sprites.push_back(furnace->getAnimation().getName());
  }
  EXPECT_EQ(sprites, (std::vector<std::string>{"furnace", "furnace-active", "furnace-active",
                                               "furnace-active", "furnace-active", "furnace-active",
                                               "furnace"}));
}

TEST_F(EnemyTest, EveryEnemyDestroyedAddsTenPointsHoweverItGoes) {
  new Points;
  const MakeEnemy kinds[] = {make<Chair>, make<Gunrobot>, make<Wrenchrobot>, make<Furnace>};
  std::vector<Enemy*> enemies;
  for (MakeEnemy kind : kinds) {
    enemies.push_back(kind(Vector(20.0f + 10 * enemies.size(), 20)));
  }
  mv::WorldManager& world = mv::WorldManager::getInstance();
  world.moveObject(new Bullet(Vector(0, 0), 1, 1, 2, 0), enemies[0]->getPosition());
  world.moveObject(new Bullet(Vector(0, 0), 1, 5, 2, 0), enemies[1]->getPosition());
  world.update();
  EXPECT_EQ(enemies[0]->getHealth(), 2);
  EXPECT_EQ(shown("Points"), 10) << "one of 3 health hurt, one of 3 health killed";
  markAll("Enemy");
  world.update();
  EXPECT_EQ(shown("Points"), 40);
}

}  // namespace
