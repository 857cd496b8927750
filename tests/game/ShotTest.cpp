#include "Shot.h"

#include <algorithm>
#include <functional>

#include "Bullet.h"
#include "Chair.h"
#include "EnemyBullet.h"
#include "Firepath.h"
#include "GameTest.h"
#include "Room.h"
#include "WorldManager.h"
#include "Wrench.h"

namespace {

using mv::Vector;

class ShotTest : public GameTest {
 protected:
  bool exists(int id) const {
    const std::vector<mv::Object*> objects = all("");
    return std::any_of(objects.begin(), objects.end(), [&](auto* o) { return o->getId() == id; });
  }
  // Moves `shot` onto `where`, then the world goes on for one update: whether the shot is left.
  bool survives(mv::Object* shot, Vector where) {
    world.moveObject(shot, where);
    return survivesAnUpdate(shot);
  }
  bool survivesAnUpdate(mv::Object* shot) {
    const int id = shot->getId();
    world.update();
    return exists(id);
  }
  mv::WorldManager& world = mv::WorldManager::getInstance();
};

TEST_F(ShotTest, WallsTurnAShotBackOneAxisEachUntilItsBouncesAreSpent) {
  new Room("hall", 1);
  const Vector left(0, 23);
  const Vector right(156, 23);
  const Vector top_left_corner(0, 7);
  const struct {
    int max_bounces;
    std::vector<Vector> walls;
    int bounces;
    Vector velocity;
    bool survives;
  } cases[] = {
      {0, {left}, 1, {2, -1}, false},          {1, {left}, 1, {2, -1}, true},
      {1, {left, right}, 2, {-2, -1}, false},  {1, {left, left}, 2, {-2, -1}, false},
      {3, {top_left_corner}, 2, {2, 1}, true},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.walls.size() << " walls, " << c.max_bounces << " bounces");
    auto* bullet = new Bullet(Vector(50, 24), 1, 1, 2, c.max_bounces);
    bullet->setVelocity(Vector(-2, -1));
    for (const Vector& wall : c.walls) {
      world.moveObject(bullet, wall);
    }
    EXPECT_EQ(bullet->getBounces(), c.bounces);
    EXPECT_EQ(bullet->getVelocity(), c.velocity);
    world.update();
    EXPECT_EQ(all("Bullet").size(), c.survives ? 1u : 0u);
    markAll("Bullet");
  }
}

TEST_F(ShotTest, ABulletEndsOnTheEnemyItHurtsWhateverItsBouncesAndPassesThroughEnemyShots) {
  auto* chair = new Chair(Vector(60, 30), 1);
  new EnemyBullet(Vector(27, 30), 1, 1, 0);
  auto* bullet = new Bullet(Vector(0, 0), 1, 1, 2, 5);
  EXPECT_TRUE(survives(bullet, Vector(30, 30)));
  EXPECT_EQ(all("EnemyBullet").size(), 1u);
  EXPECT_FALSE(survives(bullet, chair->getPosition()));
  EXPECT_EQ(chair->getHealth(), 2);

  auto* standing = new Bullet(Vector(0, 0), 1, 1, 2, 5);
  const int standing_id = standing->getId();
  EXPECT_TRUE(survives(chair, standing->getPosition()));
  EXPECT_FALSE(exists(standing_id));
  EXPECT_EQ(chair->getHealth(), 1) << "an enemy that runs into a bullet is hurt as well";
}

TEST_F(ShotTest, EnemyShotsEndOnTheHeroWithOuchesButForFlamesAndEveryShotEndsOutsideTheWorld) {
  Hero* hero = heroAlone();
  const struct {
    const char* kind;
    std::function<mv::Object*(Vector)> make;
    bool ends_on_hero;
    int ouches;
  } shots[] = {
      {"Bullet", [](Vector at) { return new Bullet(at, 1, 1, 2, 0); }, false, 0},
      {"EnemyBullet", [](Vector at) { return new EnemyBullet(at, 1, 1, 0); }, true, 1},
      {"Wrench", [](Vector at) { return new Wrench(at, 1, 2); }, true, 1},
      {"Firepath", [](Vector at) { return new Firepath(at, 2, 0); }, true, 0},
  };
  for (const auto& shot : shots) {
    SCOPED_TRACE(shot.kind);
    const int ouches = timesLogged("ouch");
    const int health = shown("Health");
    EXPECT_EQ(survives(shot.make(Vector(100, 10)), hero->getPosition()), !shot.ends_on_hero);
    EXPECT_EQ(timesLogged("ouch") - ouches, shot.ouches);
    EXPECT_EQ(health - shown("Health"), shot.ends_on_hero ? 1 : 0);

    mv::Object* leaving = shot.make(Vector(190, 10));
    leaving->setVelocity(Vector(20, 0));
    EXPECT_FALSE(survivesAnUpdate(leaving));
    frames(90);
  }
}

}  // namespace
