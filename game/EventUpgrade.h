// Asks the hero for one of his upgrades, by its name.
#pragma once

#include <string>

#include "Event.h"

inline const std::string UPGRADE_EVENT = "rl::upgrade";

class EventUpgrade : public mv::Event {
 public:
  explicit EventUpgrade(std::string name);

  std::string getName() const;

 private:
  std::string name;
};
