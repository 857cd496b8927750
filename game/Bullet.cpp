#include "Bullet.h"

#include "particles.h"

Bullet::Bullet(mv::Vector position, int size, int damage, int speed, int bounces)
    : Shot("Bullet", "Enemy", "", bounces), size(size), damage(damage) {
  const std::string sprite = spriteOfSize("bullet", size);
  if (!sprite.empty()) {
    setSprite(sprite);
  }
  launch(muzzle(position), speed);
}

void Bullet::leaveTheWorld() {
  mv::addParticles(mv::SMOKE, getPosition(), 2.0f, mv::BLUE);
  mv::addParticles(mv::SPARKS, getPosition(), 2.0f, mv::BLUE);
}

int Bullet::getSize() const { return size; }

int Bullet::getDamage() const { return damage; }
