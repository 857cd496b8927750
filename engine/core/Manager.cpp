#include "Manager.h"

#include <algorithm>
#include <utility>

#include "Event.h"
#include "LogManager.h"
#include "Object.h"
#include "ObjectListIterator.h"

namespace mv {

namespace {

// A manager knows at most this many distinct labels.
constexpr std::size_t MAX_EVENT_LABELS = 100;

}  // namespace

Manager::Manager() : type("Manager"), started(false) {}

Manager::~Manager() { started = false; }

bool Manager::isValid(std::string) const { return false; }

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

int Manager::onEvent(const Event* event) const {
  const std::string event_type = event->getType();
  LogManager& log = LogManager::getInstance();
  if (event_type == UNDEFINED_EVENT) {
    log.writeLog(1, "Manager(%s)::onEvent(): Warning! Event type %s is undefined.", type.c_str(),
                 event_type.c_str());
    return 0;
  }
  if (!isValid(event_type)) {
    log.writeLog(1, "Manager(%s)::onEvent(): Error! Event type %s not valid.", type.c_str(),
                 event_type.c_str());
    return 0;
  }
  // Handlers may add or drop labels, which moves the table: take the listeners
  // out of it before the first handler runs.
  const auto found = std::find_if(interests.begin(), interests.end(), [&](const Interest& interest) {
    return interest.event_type == event_type;
  });
  if (found == interests.end()) {
    return 0;
  }
  const ObjectList listeners = found->obj_list;
  int count = 0;
  ObjectListIterator it(&listeners);
  for (it.first(); !it.isDone(); it.next()) {
    if (it.currentObject()->isActive()) {
      it.currentObject()->eventHandler(event);
      count++;
    }
  }
  return count;
}

std::vector<Manager::Interest>::iterator Manager::findInterest(const std::string& event_type) {
  return std::find_if(interests.begin(), interests.end(),
                      [&](const Interest& interest) { return interest.event_type == event_type; });
}

int Manager::registerInterest(Object* object, std::string event_type) {
  LogManager& log = LogManager::getInstance();
  if (!isValid(event_type)) {
    log.writeLog("Manager(%s)::registerInterest(): Event '%s' not valid for this Manager",
                 type.c_str(), event_type.c_str());
    return -1;
  }
  const auto found = findInterest(event_type);
  if (found != interests.end()) {
    ObjectList& listeners = found->obj_list;
    for (int i = 0; i < listeners.getCount(); i++) {
      if (listeners[i] == object) {
        log.writeLog(
            1, "Manager::registerInterest(): Warning! Not adding id %d (%s) twice for event %s.",
            object->getId(), object->getType().c_str(), event_type.c_str());
        return 0;
      }
    }
    return listeners.insert(object);
  }
  if (interests.size() == MAX_EVENT_LABELS) {
    return -1;
  }
  Interest interest{std::move(event_type), ObjectList()};
  if (interest.obj_list.insert(object) != 0) {
    return -1;
  }
  interests.push_back(std::move(interest));
  return 0;
}

int Manager::unregisterInterest(Object* object, std::string event_type) {
  const auto found = findInterest(event_type);
  if (found == interests.end() || found->obj_list.remove(object) != 0) {
    return -1;
  }
  if (found->obj_list.isEmpty()) {
    interests.erase(found);
  }
  return 0;
}

std::string Manager::getType() const { return type; }

void Manager::setType(std::string new_type) { type = std::move(new_type); }

bool Manager::isStarted() const { return started; }

bool Manager::refuseSecondStart() const {
  if (!started) {
    return false;
  }
  LogManager::getInstance().writeLog("%s::startup(): Warning! %s already started.", type.c_str(),
                                     type.c_str());
  return true;
}

}  // namespace mv
