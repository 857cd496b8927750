// One fight: a room builds its enemies, its scenery and its walls, and then
// stands by until the next room sweeps it away. The hero judges when it is over.
#pragma once

#include <string>

#include "Object.h"

class Room : public mv::Object {
 public:
  // A "parlor" holds enemies whose health grows with `number`; a room of any
  // other name holds none.
  Room(std::string name, int number);

  int getNumber() const;

 private:
  void build();
  void spawnEnemies(const std::string& kind_of_room);
  // Builds a kind drawn at random at `where`; answers what it costs of the budget.
  int spawnEnemy(mv::Vector where, int scale);
  void buildWalls();

  std::string name;
  // Sets the enemies' scale.
  int number;
};
