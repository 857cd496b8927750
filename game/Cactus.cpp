#include "Cactus.h"

#include <cstdlib>

#include "EventOut.h"
#include "LogManager.h"
#include "game.h"

namespace {

constexpr float UPPER_ROW = 3;
constexpr float LOWER_ROW = 44;

}  // namespace

Cactus::Cactus(int type) : start(0, LOWER_ROW) {
  std::srand(static_cast<unsigned>(gameSeconds()));
  setVelocity(mv::Vector(1, 0));
  if (type == 1) {
    setSprite("tnt");
    setPosition(mv::Vector(static_cast<float>(40 - std::rand() % 50), UPPER_ROW));
  } else {
    setSprite("cactus");
    setPosition(mv::Vector(static_cast<float>(-(std::rand() % 50)), LOWER_ROW));
  }
  setSolidness(mv::SPECTRAL);
  setAltitude(4);
}

// Only a cactus that left at the world's right edge comes back.
int Cactus::eventHandler(const mv::Event* event) {
  if (event->getType() != mv::OUT_EVENT) {
    return 0;
  }
  if (getPosition().getX() > 10) {
    const float row = std::rand() % 2 == 1 ? start.getY() : UPPER_ROW;
    const float column = start.getX() - static_cast<float>(std::rand() % 30);
    setPosition(mv::Vector(column, row));
    mv::LogManager::getInstance().writeLog("Cactus respawn");
  }
  return 1;
}
