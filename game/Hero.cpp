#include "Hero.h"

#include <cmath>
#include <cstdlib>
#include <iostream>

#include "Bullet.h"
#include "EventUpgrade.h"
#include "GameOver.h"
#include "Keyboard.h"
#include "Mouse.h"
#include "ObjectListIterator.h"
#include "Reticle.h"
#include "Room.h"
#include "UpgradeButton.h"
#include "WorldManager.h"
#include "game.h"
#include "particles.h"

namespace {

constexpr int HURT_TIME = 90;
// A room that follows another without an offer starts with the hero safe this long.
constexpr int NEW_ROOM_GRACE = 45;
// A volley's other bullets stray from the aim by up to this many degrees either way.
constexpr int SPREAD_DEGREES = 15;
constexpr double RADIANS_PER_DEGREE = 0.0174532925;
constexpr int LARGEST_BULLET = 3;
// "fire rate" is offered no more once volleys come this often.
constexpr int FASTEST_FIRE_SLOWDOWN = 7;
constexpr int STEPS_BETWEEN_OFFER_CHECKS = 10;

struct Upgrade {
  const char* label;
  void (*apply)(HeroStats&);
  // What the button says the stat is now.
  int (*shown)(const HeroStats&);
};

// The index is what the draw of an offer yields.
const Upgrade UPGRADES[] = {
    {"health", [](HeroStats& s) { s.health += 1; }, [](const HeroStats& s) { return s.health; }},
    {"bullet damage", [](HeroStats& s) { s.bullet_damage += 1; },
     [](const HeroStats& s) { return s.bullet_damage; }},
    {"bullet speed", [](HeroStats& s) { s.bullet_speed += 1.0f; },
     [](const HeroStats& s) { return static_cast<int>(s.bullet_speed); }},
    {"player speed",
     [](HeroStats& s) { s.player_speed = static_cast<float>(s.player_speed + 0.3); },
     [](const HeroStats& s) { return static_cast<int>(s.player_speed); }},
    {"fire rate", [](HeroStats& s) { s.fire_slowdown -= 4; },
     [](const HeroStats& s) { return s.fire_slowdown; }},
    {"add bullets", [](HeroStats& s) { s.bullet_count += 1; },
     [](const HeroStats& s) { return s.bullet_count; }},
    {"bullet size", [](HeroStats& s) { s.bullet_size += 1; },
     [](const HeroStats& s) { return s.bullet_size; }},
    {"bullet bounces", [](HeroStats& s) { s.bullet_bounces += 1; },
     [](const HeroStats& s) { return s.bullet_bounces; }},
};
constexpr int UPGRADE_COUNT = sizeof UPGRADES / sizeof UPGRADES[0];
constexpr int FIRE_RATE = 4;
constexpr int BULLET_SIZE = 6;

// The keys that give an upgrade at any moment of a game.
struct UpgradeKey {
  mv::Keyboard::Key key;
  const char* upgrade;
};
constexpr UpgradeKey UPGRADE_KEYS[] = {
    {mv::Keyboard::O, "add bullets"},
    {mv::Keyboard::P, "bullet bounces"},
    {mv::Keyboard::I, "bullet speed"},
};

mv::WorldManager& world() { return mv::WorldManager::getInstance(); }

bool canHurt(const mv::Object* o) {
  const std::string type = o->getType();
  return type == "Enemy" || type == "EnemyBullet" || type == "Wrench";
}

// The direction turned by a whole number of degrees, drawn at random.
mv::Vector strayed(mv::Vector direction) {
  const int degrees = std::rand() % (2 * SPREAD_DEGREES + 1) - SPREAD_DEGREES;
  const float a = static_cast<float>(degrees * RADIANS_PER_DEGREE);
  const float x = direction.getX();
  const float y = direction.getY();
  mv::Vector turned(x * std::cos(a) - y * std::sin(a), y * std::cos(a) + x * std::sin(a));
  turned.normalize();
  return turned;
}

mv::ViewObject* newDisplay(mv::ViewObjectLocation location, const std::string& label, int value) {
  auto* display = new mv::ViewObject;
  display->setLocation(location);
  display->setViewString(label);
  display->setValue(value);
  display->setColor(mv::GREEN);
  return display;
}

// Everything but the hero, his reticle and the displays goes: the old room,
// its walls and scenery, and every shot in the air.
void sweepTheRoom() {
  const mv::ObjectList everything = world().getAllObjects(true);
  mv::ObjectListIterator it(&everything);
  for (it.first(); !it.isDone(); it.next()) {
    mv::Object* o = it.currentObject();
    const std::string type = o->getType();
    if (type != "Hero" && type != "ViewObject" && type != "Reticle" &&
        world().markForDelete(o) != 0) {
      std::cout << type << std::endl;
    }
  }
}

int drawUpgrade() { return std::rand() % UPGRADE_COUNT; }

// Draws again while the draw is an upgrade left out.
int redrawWhile(int drawn, int left_out, int also_left_out) {
  while (drawn == left_out || drawn == also_left_out) {
    drawn = drawUpgrade();
  }
  return drawn;
}

}  // namespace

Hero::Hero()
    : reticle(nullptr),
      health_view(nullptr),
      room_view(nullptr),
      fire_countdown(30),
      move_slowdown(2),
      move_countdown(2),
      hurt_time(HURT_TIME),
      hurt_countdown(0),
      room(1),
      move_up(false),
      move_left(false),
      move_down(false),
      move_right(false),
      upgrading(false) {
  setSprite("hero");
  registerInterest(mv::KEYBOARD_EVENT);
  registerInterest(mv::MOUSE_EVENT);
  registerInterest(UPGRADE_EVENT);
  registerInterest(mv::STEP_EVENT);
  setType("Hero");
  const mv::Box boundary = world().getBoundary();
  setPosition(mv::Vector(7, boundary.getVertical() / 2));
  reticle = new Reticle;
  reticle->setPosition(mv::Vector(boundary.getHorizontal() / 2, boundary.getVertical() / 2));
  health_view = newDisplay(mv::TOP_LEFT, "Health", stats.health);
  room_view = newDisplay(mv::TOP_CENTER, "Room:", room);
  std::srand(static_cast<unsigned>(gameSeconds()));
}

Hero::~Hero() {
  playSound("game_over");
  if (worldIsOpen()) {
    const mv::Vector here = getPosition();
    mv::addParticles(mv::SPARKS, here, 2.0f, mv::BLUE);
    mv::addParticles(mv::SPARKS, here, 2.0f, mv::YELLOW);
    mv::addParticles(mv::SPARKS, here, 3.0f, mv::RED);
    mv::addParticles(mv::SPARKS, here, 3.0f, mv::RED);
  }
  world().markForDelete(reticle);
}

int Hero::eventHandler(const mv::Event* event) {
  const std::string type = event->getType();
  if (type == mv::KEYBOARD_EVENT) {
    keyboard(static_cast<const mv::EventKeyboard*>(event));
  } else if (type == mv::MOUSE_EVENT) {
    mouse(static_cast<const mv::EventMouse*>(event));
  } else if (type == mv::STEP_EVENT) {
    step(static_cast<const mv::EventStep*>(event));
  } else if (type == UPGRADE_EVENT) {
    applyUpgrade(static_cast<const EventUpgrade*>(event)->getName());
  } else if (type == mv::COLLISION_EVENT) {
    if (hurt_countdown == 0) {
      hit(static_cast<const mv::EventCollision*>(event));
    }
  } else {
    return 0;
  }
  return 1;
}

void Hero::keyboard(const mv::EventKeyboard* event) {
  upgradeByKey(event);
  // Escape ends the game, yet the move that a held key has due is still taken.
  if (event->getKey() == mv::Keyboard::ESCAPE && event->getKeyboardAction() == mv::KEY_DOWN) {
    new GameOver;
    world().markForDelete(this);
  } else {
    holdMovementKey(event);
  }
  move();
}

void Hero::upgradeByKey(const mv::EventKeyboard* event) {
  if (event->getKeyboardAction() != mv::KEY_PRESSED) {
    return;
  }
  for (const UpgradeKey& upgrade_key : UPGRADE_KEYS) {
    if (event->getKey() == upgrade_key.key) {
      const EventUpgrade upgrade(upgrade_key.upgrade);
      eventHandler(&upgrade);
    }
  }
}

void Hero::holdMovementKey(const mv::EventKeyboard* event) {
  const int action = event->getKeyboardAction();
  if (action != mv::KEY_DOWN && action != mv::KEY_RELEASED) {
    return;
  }
  const bool held = action == mv::KEY_DOWN;
  switch (event->getKey()) {
    case mv::Keyboard::W:
      move_up = held;
      break;
    case mv::Keyboard::S:
      move_down = held;
      break;
    case mv::Keyboard::A:
      move_left = held;
      break;
    case mv::Keyboard::D:
      move_right = held;
      break;
    default:
      break;
  }
}

// Up wins over down and left over right; a diagonal is as long on each axis as
// a straight move. The countdown alone sets the pace, as a held key comes
// every frame.
void Hero::move() {
  if (!move_up && !move_down && !move_left && !move_right) {
    return;
  }
  const int dy = move_up ? -1 : move_down ? 1 : 0;
  const int dx = move_left ? -2 : move_right ? 2 : 0;
  if (move_countdown > 0) {
    return;
  }
  move_countdown = move_slowdown;
  const mv::Vector target = getPosition() + mv::Vector(std::trunc(dx * stats.player_speed),
                                                       std::trunc(dy * stats.player_speed));
  const mv::Box boundary = world().getBoundary();
  if (target.getY() > 3 && target.getY() < boundary.getVertical() - 1 && target.getX() > 3 &&
      target.getX() < boundary.getHorizontal() - 1) {
    world().moveObject(this, target);
  }
}

void Hero::mouse(const mv::EventMouse* event) {
  if (event->getMouseAction() == mv::PRESSED && event->getMouseButton() == mv::Mouse::LEFT) {
    fire(event->getMousePosition());
  }
}

// The first bullet goes straight at the target, each other one strays a little.
void Hero::fire(mv::Vector target) {
  if (fire_countdown > 0) {
    return;
  }
  fire_countdown = stats.fire_slowdown;
  mv::Vector direction = target - getPosition();
  direction.normalize();
  if (stats.bullet_size > LARGEST_BULLET) {
    stats.bullet_size = LARGEST_BULLET;
  }
  for (int i = 0; i < stats.bullet_count; i++) {
    mv::Vector velocity = i == 0 ? direction : strayed(direction);
    velocity.scale(stats.bullet_speed);
    fireBullet(velocity);
  }
  playSound("shoot");
}

void Hero::fireBullet(mv::Vector velocity) {
  auto* bullet = new Bullet(getPosition(), stats.bullet_size, stats.bullet_damage,
                            static_cast<int>(stats.bullet_speed), stats.bullet_bounces);
  bullet->setVelocity(velocity);
}

void Hero::step(const mv::EventStep* event) {
  countDown();
  blink();
  judgeRoom(event->getStepCount());
}

void Hero::countDown() {
  move_countdown = move_countdown > 0 ? move_countdown - 1 : 0;
  fire_countdown = fire_countdown > 0 ? fire_countdown - 1 : 0;
}

// While hurt the sprite swaps every 10 steps, and ends on "hero".
void Hero::blink() {
  if (hurt_countdown <= 0) {
    return;
  }
  if (hurt_countdown % 20 == 0) {
    setSprite("hero-hurt");
  } else if (hurt_countdown % 10 == 0) {
    setSprite("hero");
  }
  hurt_countdown--;
}

// A room is over when no enemy is left: after an odd room comes an offer of
// upgrades, after an even one the next room at once. An offer ends once a
// button is taken. Two buttons taken within one span between checks end it
// too, with both upgrades, so the game never waits in an empty room.
void Hero::judgeRoom(int step_count) {
  if (!upgrading && world().objectsOfType("Enemy").isEmpty()) {
    if (room % 2 == 1) {
      upgrading = true;
      offerUpgrades();
    } else {
      sweepTheRoom();
      hurt_countdown = NEW_ROOM_GRACE;
      new Room("parlor", room);
    }
    room++;
    room_view->setValue(room);
  }
  if (upgrading && step_count % STEPS_BETWEEN_OFFER_CHECKS == 0) {
    const mv::ObjectList buttons = world().objectsOfType("UpgradeButton");
    if (buttons.getCount() <= 1) {
      upgrading = false;
      if (buttons.getCount() == 1) {
        world().markForDelete(buttons[0]);
      }
      sweepTheRoom();
      new Room("parlor", room);
    }
  }
}

void Hero::hit(const mv::EventCollision* event) {
  if (!canHurt(event->getObject1()) && !canHurt(event->getObject2())) {
    return;
  }
  hurt_countdown = hurt_time;
  stats.health--;
  health_view->setValue(stats.health);
  playSound("damage");
  if (stats.health < 1) {
    new GameOver;
    world().markForDelete(this);
  }
}

int Hero::applyUpgrade(const std::string& name) {
  for (const Upgrade& upgrade : UPGRADES) {
    if (name == upgrade.label) {
      upgrade.apply(stats);
      health_view->setValue(stats.health);
      return 0;
    }
  }
  return -1;
}

// Two of the eight, drawn at random; a stat at its limit is left out of the draw.
void Hero::offerUpgrades() {
  int a = drawUpgrade();
  int b = drawUpgrade();
  while (b == a) {
    b = drawUpgrade();
  }
  const bool size_at_limit = stats.bullet_size >= LARGEST_BULLET;
  const bool rate_at_limit = stats.fire_slowdown < FASTEST_FIRE_SLOWDOWN;
  if (size_at_limit) {
    a = redrawWhile(a, BULLET_SIZE, BULLET_SIZE);
    b = redrawWhile(b, BULLET_SIZE, BULLET_SIZE);
  }
  if (rate_at_limit) {
    a = redrawWhile(a, FIRE_RATE, FIRE_RATE);
    b = redrawWhile(b, FIRE_RATE, FIRE_RATE);
  }
  if (size_at_limit && rate_at_limit) {
    a = redrawWhile(a, FIRE_RATE, BULLET_SIZE);
    b = redrawWhile(b, FIRE_RATE, BULLET_SIZE);
  }
  new UpgradeButton(UPGRADES[a].label, UPGRADES[a].shown(stats), mv::CENTER_CENTER);
  new UpgradeButton(UPGRADES[b].label, UPGRADES[b].shown(stats), mv::BOTTOM_CENTER);
}

const HeroStats& Hero::getStats() const { return stats; }

int Hero::getRoom() const { return room; }

bool Hero::isUpgrading() const { return upgrading; }

int Hero::getHurtCountdown() const { return hurt_countdown; }

int Hero::getFireCountdown() const { return fire_countdown; }
