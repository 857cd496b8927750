// A fixture for the game's rules: the engine started headless in a scratch
// directory laid out like the game's own (the working directory one level
// below the sprites), a 200 by 48 world seen through a 157 by 48 view, input
// from the test, and the game's clock fixed so that every random draw repeats.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "FakeInput.h"
#include "Hero.h"
#include "Object.h"
#include "ScratchDirectory.h"

namespace mv {

// Vectors read as (x,y) in the messages of failed tests.
inline void PrintTo(const Vector& v, std::ostream* out) {
  *out << "(" << v.getX() << "," << v.getY() << ")";
}

}  // namespace mv

class GameTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The step alone of the next frame, so that what it builds is seen where it was built.
  void step();
  // One frame of the game loop without its sleep: the step, the input, then the world's update.
  void frame();
  void frames(int count);

  // A fresh world with a hero in it and an enemy that was there before him
  // and so never hunts him: the room is never over, and no offer comes.
  Hero* heroAlone();
  // A new start screen, and P held for one frame.
  void startGame();
  // Holds `keys` down for `count` frames, then lets them go.
  void hold(const std::set<sf::Keyboard::Key>& keys, int count);
  // Marks every object for deletion and carries it out; steps count from 0 again.
  void emptyTheWorld();
  // Marks every object of `type` for deletion; "Enemy" as if the hero had shot them all.
  void markAll(const std::string& type);

  // A click of the left button at a place on the screen, in cells.
  void click(mv::Vector where);
  // Every object of `type` in the world, oldest first.
  std::vector<mv::Object*> all(const std::string& type) const;
  // The value of the display whose label is `label`.
  int shown(const std::string& label) const;
  // The steps among the next `count` at which objects of `type` were built.
  std::vector<int> stepsBuilding(const std::string& type, int count);
  // How many times the log holds the message `message`.
  int timesLogged(const std::string& message) const;

  // The game's own sprites in place of small ones of known sizes, which the
  // rules are reckoned with; the game's sounds are there either way.
  bool game_sprites = false;
  mv_test::ScratchDirectory scratch;
  mv_test::FakeInput input;
  int step_count = 0;
};

// A point on the screen as the fake mouse gives it, 8 by 16 pixels a cell.
sf::Vector2i pixelsOf(mv::Vector where);

// Health, fire slowdown, bullet size, damage, speed, count, bounces, player speed.
using Stats = std::array<double, 8>;
Stats statsOf(const Hero* hero);
// The names of the eight upgrades.
std::vector<std::string> upgradeNames();
// Gives `hero` the upgrade `name` `times` times over.
void applyUpgrade(Hero* hero, const std::string& name, int times);
// `stats` as the upgrade `name` leaves them.
Stats upgraded(Stats stats, const std::string& name);
