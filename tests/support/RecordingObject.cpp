#include "RecordingObject.h"

#include "EventCollision.h"
#include "EventKeyboard.h"
#include "EventMouse.h"
#include "EventNetwork.h"

namespace mv_test {

std::vector<std::string> dispatch_log;

namespace {

// "key 36 pressed", "mouse clicked 0 at (50,12)", "mv-network-sync 'hello'" and the like.
std::string describe(const mv::Event* event) {
  if (const auto* key = dynamic_cast<const mv::EventKeyboard*>(event)) {
    static const char* const actions[] = {"pressed", "released", "down"};
    const int action = key->getKeyboardAction();
    return "key " + std::to_string(key->getKey()) + " " +
           (action >= 0 && action <= 2 ? actions[action] : "undefined");
  }
  if (const auto* mouse = dynamic_cast<const mv::EventMouse*>(event)) {
    static const char* const actions[] = {"clicked", "pressed", "moved"};
    const int action = mouse->getMouseAction();
    return std::string("mouse ") + (action >= 0 && action <= 2 ? actions[action] : "undefined") +
           " " + std::to_string(mouse->getMouseButton()) + " at " +
           mouse->getMousePosition().toString();
  }
  const auto* network = dynamic_cast<const mv::EventNetwork*>(event);
  if (network != nullptr && network->getMessage() != nullptr) {
    return event->getType() + " '" +
           std::string(network->getMessage(), static_cast<std::size_t>(network->getBytes())) + "'";
  }
  return event->getType();
}

}  // namespace

RecordingObject::RecordingObject(const std::string& name, mv::Vector position,
                                 mv::Solidness solidness) {
  setType(name);
  setSolidness(solidness);
  setPosition(position);
}

RecordingObject::~RecordingObject() {
  if (on_destroy) {
    on_destroy();
  }
}

int RecordingObject::eventHandler(const mv::Event* event) {
  std::string entry = describe(event);
  if (const auto* collision = dynamic_cast<const mv::EventCollision*>(event)) {
    const mv::Object* other =
        collision->getObject1() == this ? collision->getObject2() : collision->getObject1();
    entry += " with " + other->getType();
  }
  received.push_back(entry);
  dispatch_log.push_back(getType() + ": " + entry);
  if (on_event) {
    on_event(event);
  }
  return mv::Object::eventHandler(event);
}

int RecordingObject::draw() {
  dispatch_log.push_back(getType() + ": draw");
  return mv::Object::draw();
}

}  // namespace mv_test
