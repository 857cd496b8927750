// What our player sees of Rustline in one frame, read from the world the way
// a person reads the screen: where things stand, how they move, and what the
// displays and buttons say.
#pragma once

#include <string>
#include <vector>

#include "Vector.h"

// Something drawn on the screen: the middle of its picture, half its size,
// and how far it goes in one step.
struct Seen {
  mv::Vector middle;
  mv::Vector half_size;
  mv::Vector velocity;
  // The sprite it shows, which tells a furnace from a robot.
  std::string picture;
};

struct SeenButton {
  mv::Vector middle;
  std::string text;
  int id;
};

enum class Screen { NOTHING, START, GAME, END };

struct Sight {
  Screen screen = Screen::NOTHING;
  // The window, in cells.
  mv::Vector screen_size;
  Seen hero;
  std::vector<Seen> enemies;
  // Everything the enemies throw: shots, wrenches and flames.
  std::vector<Seen> shots;
  std::vector<SeenButton> buttons;
  // What the displays "Room:" and "Health" show.
  int room = 0;
  int health = 0;
};

Sight look();
