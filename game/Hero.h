// The player's object and the game's referee: he moves under W, A, S, D, fires
// at the mouse, blinks after a hit, holds every stat that upgrades change and
// the room counter, and his step decides when a room is over.
#pragma once

#include <string>

#include "EventCollision.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventStep.h"
#include "Object.h"
#include "ViewObject.h"

class Reticle;

// What upgrades change. A change counts from the next volley on.
struct HeroStats {
  int health = 5;
  // Steps between volleys.
  int fire_slowdown = 30;
  // 1 to 3: picks the bullet's sprite and so its box.
  int bullet_size = 1;
  int bullet_damage = 1;
  float bullet_speed = 2.0f;
  int bullet_count = 1;
  // Wall hits a bullet outlives.
  int bullet_bounces = 0;
  // Multiplies each move.
  float player_speed = 1.0f;
};

class Hero : public mv::Object {
 public:
  // Builds the hero at the room's left, his reticle and his two displays.
  Hero();
  // The sound and sparks of his end; the reticle goes with him.
  ~Hero() override;

  int eventHandler(const mv::Event* event) override;

  // 0 for one of the eight upgrades, which takes effect; -1 for any other name.
  int applyUpgrade(const std::string& name);

  const HeroStats& getStats() const;
  int getRoom() const;
  bool isUpgrading() const;
  int getHurtCountdown() const;
  int getFireCountdown() const;

 private:
  void keyboard(const mv::EventKeyboard* event);
  void mouse(const mv::EventMouse* event);
  void step(const mv::EventStep* event);
  void hit(const mv::EventCollision* event);

  void upgradeByKey(const mv::EventKeyboard* event);
  void holdMovementKey(const mv::EventKeyboard* event);
  void move();
  void fire(mv::Vector target);
  void fireBullet(mv::Vector velocity);
  void countDown();
  void blink();
  void judgeRoom(int step_count);
  void nextRoom();
  void offerUpgrades();

  Reticle* reticle;
  mv::ViewObject* health_view;
  mv::ViewObject* room_view;
  int fire_countdown;
  int move_slowdown;
  int move_countdown;
  int hurt_time;
  int hurt_countdown;
  int room;
  HeroStats stats;
  bool move_up;
  bool move_left;
  bool move_down;
  bool move_right;
  // While an offer of upgrades stands.
  bool upgrading;
};
