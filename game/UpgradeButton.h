// One upgrade of an offer: a button that names the upgrade and the stat as it
// stands, and gives the hero the upgrade when clicked.
#pragma once

#include <string>

#include "Button.h"

class Hero;

class UpgradeButton : public mv::Button {
 public:
  // `value` is the stat as it stands now; the button shows it and nothing else reads it.
  UpgradeButton(std::string name, int value, mv::ViewObjectLocation location);

  // Gives the hero the upgrade, with a chime, and leaves. Once the end screen
  // is up the hero is gone, and a click does nothing.
  void onClick() override;

  std::string getName() const;

 private:
  std::string name;
  int value;
  Hero* hero;
};
