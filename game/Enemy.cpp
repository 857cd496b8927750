#include "Enemy.h"

#include <cmath>

#include "Bullet.h"
#include "EventStep.h"
#include "EventView.h"
#include "WorldManager.h"
#include "game.h"

namespace {

constexpr int STEPS_PER_THINK = 10;
constexpr int POINTS_PER_KILL = 10;
constexpr double FLAT_AIM = 0.7;

}  // namespace

Enemy::Enemy(const std::string& sprite, int health, mv::Vector position)
    : health(health), points(POINTS_PER_KILL), hero(nullptr) {
  setType("Enemy");
  setSolidness(mv::SOFT);
  setSprite(sprite);
  moveTo(position);
  hero = findHero();
  registerInterest(mv::STEP_EVENT);
}

Enemy::~Enemy() {
  const mv::EventView score("Points", points, true);
  mv::WorldManager::getInstance().onEvent(&score);
}

int Enemy::eventHandler(const mv::Event* event) {
  if (event->getType() == mv::COLLISION_EVENT) {
    hit(static_cast<const mv::EventCollision*>(event));
    return 1;
  }
  if (event->getType() == mv::STEP_EVENT) {
    if (static_cast<const mv::EventStep*>(event)->getStepCount() % STEPS_PER_THINK == 0) {
      think();
    }
    return 1;
  }
  return 0;
}

int Enemy::moveTo(mv::Vector where) {
  return mv::WorldManager::getInstance().moveObject(this, where);
}

// Only the hero's bullets hurt; the bullet sees to itself.
void Enemy::hit(const mv::EventCollision* collision) {
  mv::Object* bullet = collision->getObject1();
  if (bullet->getType() != "Bullet") {
    bullet = collision->getObject2();
    if (bullet->getType() != "Bullet") {
      return;
    }
  }
  health -= static_cast<Bullet*>(bullet)->getDamage();
  if (health < 1) {
    mv::WorldManager::getInstance().markForDelete(this);
  }
}

int Enemy::getHealth() const { return health; }

Hero* Enemy::livingHero() const { return endScreenIsUp() ? nullptr : hero; }

Hero* Enemy::huntedHero() {
  Hero* hunted = livingHero();
  if (hunted == nullptr) {
    setVelocity(mv::Vector());
  }
  return hunted;
}

float Enemy::distanceTo(mv::Vector where) const {
  const double dx = where.getX() - getPosition().getX();
  const double dy = where.getY() - getPosition().getY();
  return static_cast<float>(std::sqrt(dx * dx + dy * dy));
}

void Enemy::walkTowards(mv::Vector offset) {
  offset.normalize();
  offset.setY(offset.getY() * 0.5f);
  offset.scale(0.5f);
  setVelocity(offset);
}

mv::Vector Enemy::flattened(mv::Vector velocity) {
  return mv::Vector(velocity.getX(), static_cast<float>(velocity.getY() * FLAT_AIM));
}

void Enemy::Reload::tick() { countdown = countdown > 0 ? countdown - 1 : 0; }

bool Enemy::Reload::fire() {
  if (countdown > 0) {
    return false;
  }
  countdown = slowdown;
  return true;
}
