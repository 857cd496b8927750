// What every shot of the game shares: it is built beside its shooter, flies
// with the velocity the shooter gives it, ends on its target, bounces off
// walls until its allowance is spent, and ends when it leaves the world.
#pragma once

#include <string>

#include "EventCollision.h"
#include "Object.h"

class Shot : public mv::Object {
 public:
  // "mv-collision" and "mv-out" give 1, anything else 0.
  int eventHandler(const mv::Event* event) override;

  int getBounces() const;
  int getMaxBounces() const;

 protected:
  // `target_type` is what the shot ends on; `target_line`, if not empty, is
  // logged when it does. The shot may still bounce `max_bounces` times.
  Shot(std::string type, std::string target_type, std::string target_line, int max_bounces);

  // Puts the shot where it starts, with a speed that the shooter's velocity then replaces.
  void launch(mv::Vector position, int speed);

  // Where a shot starts that the shooter at `shooter` fires: a little to his right.
  static mv::Vector muzzle(mv::Vector shooter);

  // What a shot leaves behind when it flies out of the world: nothing, unless a kind says so.
  virtual void leaveTheWorld();

 private:
  void hit(const mv::EventCollision* collision);
  bool touches(const mv::EventCollision* collision, const char* type, const char* other) const;

  std::string target_type;
  std::string target_line;
  int max_bounces;
  int bounces;
};

// The sprite of a shot of `size` 1 to 3: "<family>-small", "-med" or "-large";
// empty for any other size.
std::string spriteOfSize(const std::string& family, int size);
