#include "EnemyBullet.h"

EnemyBullet::EnemyBullet(mv::Vector position, int size, int speed, int bounces)
    : Shot("EnemyBullet", "Hero", "ouch", bounces) {
  const std::string sprite = spriteOfSize("redbullet", size);
  if (!sprite.empty()) {
    setSprite(sprite);
  }
  launch(muzzle(position), speed);
}
