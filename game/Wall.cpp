#include "Wall.h"

Wall::Wall(const std::string& type, const std::string& sprite, mv::Vector position) {
  setSolidness(mv::HARD);
  setAltitude(3);
  setPosition(position);
  setSprite(sprite);
  setType(type);
}
