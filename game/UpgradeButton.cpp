#include "UpgradeButton.h"

#include <utility>

#include "Hero.h"
#include "WorldManager.h"
#include "game.h"

UpgradeButton::UpgradeButton(std::string name, int value, mv::ViewObjectLocation location)
    : name(std::move(name)), value(value), hero(findHero()) {
  setType("UpgradeButton");
  setSolidness(mv::SOFT);
  setAltitude(3);
  setLocation(location);
  setBorder(true);
  setDefaultColor(mv::MAGENTA);
  setHighlightColor(mv::BLUE);
  setViewString("Upgrade to: " + this->name +
                ". \n The current value is: " + std::to_string(this->value));
}

void UpgradeButton::onClick() {
  if (hero == nullptr || endScreenIsUp() || hero->applyUpgrade(name) != 0) {
    return;
  }
  playSound("upgrade");
  mv::WorldManager::getInstance().markForDelete(this);
}

std::string UpgradeButton::getName() const { return name; }
