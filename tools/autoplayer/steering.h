// Where our player walks and aims. A move is one of the nine ways of holding
// W, A, S and D; each is weighed by what the next steps would bring if it were
// held: shots and enemies close to the hero, the distance to the nearest
// enemy, the walls, the rows and columns that furnaces breathe flame along.
#pragma once

#include <random>

#include "Sight.h"
#include "Vector.h"

// -1, 0 or 1 across (A, D) and down (W, S).
struct Move {
  int across = 0;
  int down = 0;
};

bool operator==(Move a, Move b);

// In a fight: clear of shots and enemies, at a good firing distance from the
// nearest enemy. With no enemy about: towards the quiet end of the room.
// `random` adds a person's small unevenness.
Move chooseMove(const Sight& sight, Move last, std::mt19937& random);

// Where to put the mouse, in cells inside the window, for a bullet of
// `bullet_speed` to meet the nearest enemy. The sight must hold an enemy.
mv::Vector aimAt(const Sight& sight, float bullet_speed, std::mt19937& random);
