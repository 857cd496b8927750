#include "Manager.h"

#include <utility>

#include "LogManager.h"

namespace mv {

Manager::Manager() : type("Manager"), started(false) {}

Manager::~Manager() {
  started = false;
}

bool Manager::isValid(std::string) const {
  return false;
}

int Manager::startUp() {
  if (started) {
    LogManager::getInstance().writeLog(1, "Manager::startUp(): Warning! %s already started.",
                                       type.c_str());
  }
  started = true;
  return 0;
}

void Manager::shutDown() {
  if (!started) {
    LogManager::getInstance().writeLog(1, "Manager::shutDown(): Warning! %s not started.",
                                       type.c_str());
  }
  started = false;
}

std::string Manager::getType() const {
  return type;
}

void Manager::setType(std::string new_type) {
  type = std::move(new_type);
}

bool Manager::isStarted() const {
  return started;
}

bool Manager::refuseSecondStart() const {
  if (!started) {
    return false;
  }
  LogManager::getInstance().writeLog("%s::startup(): Warning! %s already started.", type.c_str(),
                                     type.c_str());
  return true;
}

}  // namespace mv
