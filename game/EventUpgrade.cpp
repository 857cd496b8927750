#include "EventUpgrade.h"

#include <utility>

EventUpgrade::EventUpgrade(std::string name) : name(std::move(name)) { setType(UPGRADE_EVENT); }

std::string EventUpgrade::getName() const { return name; }
