#include "Room.h"

#include <cstdlib>
#include <utility>

#include "Cactus.h"
#include "Chair.h"
#include "Furnace.h"
#include "Gunrobot.h"
#include "Wall.h"
#include "WorldManager.h"
#include "Wrenchrobot.h"
#include "game.h"

namespace {

// What a room may spend on enemies; a wrench robot costs 2, any other kind 1.
constexpr int ENEMY_BUDGET = 6;
constexpr int SPAWN_SLOTS = 6;

// The spawn points as offsets from the middle of the world.
const mv::Vector SPAWN_OFFSETS[SPAWN_SLOTS] = {
    {-10, 0}, {0, 10}, {-10, -10}, {30, 0}, {20, 10}, {30, -10},
};

// The walls close columns 0 to 156 and rows 7 to 40: the screen's width, and
// room for scenery above and below.
constexpr float ROOM_MIDDLE_COLUMN = 78.5f;
constexpr float ROOM_RIGHT_COLUMN = 156;
constexpr float ROOM_MIDDLE_ROW = 23;
constexpr double TOP_WALL_SHARE = 0.15;
constexpr double BOTTOM_WALL_SHARE = 0.85;

}  // namespace

Room::Room(std::string name, int number) : name(std::move(name)), number(number) {
  setType("Room");
  setAltitude(0);
  build();
  std::srand(static_cast<unsigned>(gameSeconds()));
}

void Room::build() {
  spawnEnemies(name);
  new Cactus(1);
  new Cactus(2);
  buildWalls();
}

void Room::spawnEnemies(const std::string& kind_of_room) {
  if (kind_of_room != "parlor") {
    return;
  }
  const int scale = number / 5 + 1;
  const mv::Box boundary = mv::WorldManager::getInstance().getBoundary();
  const mv::Vector middle(boundary.getHorizontal() / 2, boundary.getVertical() / 2);
  int budget = ENEMY_BUDGET;
  for (const mv::Vector& offset : SPAWN_OFFSETS) {
    budget -= spawnEnemy(middle + offset, scale);
    if (budget < 1) {
      return;
    }
  }
}

int Room::spawnEnemy(mv::Vector where, int scale) {
  switch (std::rand() % 4) {
    case 0:
      new Chair(where, scale);
      return 1;
    case 1:
      new Gunrobot(where, scale);
      return 1;
    case 2:
      new Wrenchrobot(where, scale);
      return 2;
    default:
      new Furnace(where, scale);
      return 1;
  }
}

void Room::buildWalls() {
  const double height = mv::WorldManager::getInstance().getBoundary().getVertical();
  const float top_row = static_cast<float>(static_cast<int>(height * TOP_WALL_SHARE));
  const float bottom_row = static_cast<float>(static_cast<int>(height * BOTTOM_WALL_SHARE));
  new Wall("top wall", "wall-horizontal", mv::Vector(ROOM_MIDDLE_COLUMN, top_row));
  new Wall("bottom wall", "wall-horizontal", mv::Vector(ROOM_MIDDLE_COLUMN, bottom_row));
  new Wall("left wall", "wall-vertical", mv::Vector(0, ROOM_MIDDLE_ROW));
  new Wall("right wall", "wall-vertical", mv::Vector(ROOM_RIGHT_COLUMN, ROOM_MIDDLE_ROW));
}

int Room::getNumber() const { return number; }
