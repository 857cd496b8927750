// What every kind of foe shares: health that the hero's bullets take away,
// the points a kill is worth, a think every 10 steps, and the hero it hunts.
#pragma once

#include <string>

#include "EventCollision.h"
#include "Object.h"

class Hero;

class Enemy : public mv::Object {
 public:
  // Adds the enemy's points to the "Points" display, however it ended.
  ~Enemy() override;

  // A collision may hurt it; every 10th step it thinks. 1 for those, else 0.
  int eventHandler(const mv::Event* event) override;

  // Moves the enemy through the world, collisions and all: 0 if it moved.
  virtual int moveTo(mv::Vector where);

  int getHealth() const;

 protected:
  // Of type "Enemy", SOFT, with `sprite` and `health`, moved onto its spawn
  // point at `position`, and with the hero that is in the world now.
  Enemy(const std::string& sprite, int health, mv::Vector position);

  // The kind's decision, taken on every 10th step.
  virtual void think() = 0;

  // The hero while he is alive; null when there was none or the end screen is up.
  Hero* livingHero() const;
  // The living hero, to be hunted; without one the enemy stands still.
  Hero* huntedHero();
  // From here to `where`, worked out in double precision.
  float distanceTo(mv::Vector where) const;
  // Sets off towards `offset` from here: half a column or a quarter of a row a step.
  void walkTowards(mv::Vector offset);
  // Enemies aim their shots flatter up and down than across.
  static mv::Vector flattened(mv::Vector velocity);

  // A weapon's rhythm, counted in thinks: 0 is free to fire.
  struct Reload {
    int countdown;
    int slowdown;
    void tick();
    // True, and starts the next wait, if the weapon may fire now.
    bool fire();
  };

 private:
  void hit(const mv::EventCollision* collision);

  int health;
  int points;
  Hero* hero;
};
