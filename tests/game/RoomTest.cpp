#include "Room.h"

#include <cstdlib>
#include <set>

#include "Cactus.h"
#include "Furnace.h"
#include "GameTest.h"
#include "UpgradeButton.h"
#include "WorldManager.h"
#include "Wrenchrobot.h"

namespace {

class RoomTest : public GameTest {
 protected:
  // Clears the room whose id is `room` and plays on, taking an offered upgrade,
  // until the next room stands alone.
  void playOnFrom(int room) {
    markAll("Enemy");
    for (int i = 0; i < 20; i++) {
      frame();
      const std::vector<mv::Object*> buttons = all("UpgradeButton");
      if (buttons.size() == 2) {
        static_cast<UpgradeButton*>(buttons[0])->onClick();
      }
      const std::vector<mv::Object*> rooms = all("Room");
      if (rooms.size() == 1 && rooms[0]->getId() != room) {
        return;
      }
    }
    ADD_FAILURE() << "no room follows room " << room;
  }
};

TEST_F(RoomTest, AParlorSpendsABudgetOfSixOnThreeToSixEnemiesEachOnASpawnPointOfItsOwn) {
  const mv::Vector spawn_points[] = {{90, 24},  {100, 34}, {90, 14},
                                     {130, 24}, {120, 34}, {130, 14}};
  std::set<std::size_t> counts;
  bool wrench_robot_in_the_last_slot_on_the_last_of_the_budget = false;
  for (unsigned seed = 1; seed <= 200; seed++) {
    SCOPED_TRACE(seed);
    std::srand(seed);
    new Room("parlor", 1);
    const std::vector<mv::Object*> enemies = all("Enemy");
    counts.insert(enemies.size());
    int spent = 0;
    for (std::size_t slot = 0; slot < enemies.size(); slot++) {
      EXPECT_EQ(enemies[slot]->getPosition(), spawn_points[slot]);
      EXPECT_LT(spent, 6) << "built with the budget spent";
      spent += dynamic_cast<Wrenchrobot*>(enemies[slot]) != nullptr ? 2 : 1;
      wrench_robot_in_the_last_slot_on_the_last_of_the_budget |= slot == 5 && spent == 7;
    }
    EXPECT_TRUE(spent >= 6 || enemies.size() == 6) << "budget left over";
    emptyTheWorld();
  }
  EXPECT_EQ(counts, (std::set<std::size_t>{3, 4, 5, 6}));
  EXPECT_TRUE(wrench_robot_in_the_last_slot_on_the_last_of_the_budget);
}

TEST_F(RoomTest, TheCounterGoesFightOfferFightAndEnemiesGetHealthierAfterEveryFewOffers) {
  startGame();
  // A room that comes without an offer finds the hero blinking, and safe, for 45 steps.
  // The rows that differ in kind: the first room, the first offer, the last
  // rooms of one health and the first of the next, and a large room.
  const struct {
    int shown;
    int number;
    int scale;
    bool safe;
  } rooms[] = {{1, 1, 1, false}, {2, 2, 1, false},   {3, 2, 1, true},    {5, 4, 1, true},
               {6, 6, 2, false}, {10, 10, 3, false}, {16, 16, 4, false}, {17, 16, 4, true}};
  const auto* hero = static_cast<const Hero*>(all("Hero")[0]);
  for (const auto& r : rooms) {
    SCOPED_TRACE(r.shown);
    while (shown("Room:") < r.shown && !HasFailure()) {
      playOnFrom(all("Room")[0]->getId());
    }
    const std::vector<mv::Object*> room = all("Room");
    ASSERT_EQ(room.size(), 1u);
    ASSERT_EQ(shown("Room:"), r.shown);
    EXPECT_EQ(static_cast<Room*>(room[0])->getNumber(), r.number);
    EXPECT_EQ(hero->getHurtCountdown() == 45, r.safe);
    for (mv::Object* enemy : all("Enemy")) {
      const int health_per_scale = dynamic_cast<Furnace*>(enemy) != nullptr ? 5 : 3;
      EXPECT_EQ(static_cast<Enemy*>(enemy)->getHealth(), health_per_scale * r.scale);
    }
  }
}

TEST_F(RoomTest, ACactusLeavingOnTheRightComesBackFromTheLeftAboveOrBelowTheRoom) {
  auto* cactus = new Cactus(2);
  EXPECT_GE(cactus->getPosition().getX(), -49);
  EXPECT_LE(cactus->getPosition().getX(), 0);
  EXPECT_EQ(cactus->getPosition().getY(), 44);
  std::set<float> columns;
  std::set<float> rows;
  for (int respawn = 1; respawn <= 200; respawn++) {
    cactus->setPosition(mv::Vector(199, 44));
    mv::WorldManager::getInstance().update();
    mv::WorldManager::getInstance().update();
    columns.insert(cactus->getPosition().getX());
    rows.insert(cactus->getPosition().getY());
  }
  EXPECT_EQ(timesLogged("Cactus respawn"), 200) << "one step in, one step out, each time";
  EXPECT_EQ(columns.size(), 30u);
  EXPECT_EQ(*columns.begin(), -29);
  EXPECT_EQ(*columns.rbegin(), 0);
  EXPECT_EQ(rows, (std::set<float>{3, 44}));
}

}  // namespace
