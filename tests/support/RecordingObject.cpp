#include "RecordingObject.h"

#include "EventCollision.h"

namespace mv_test {

std::vector<std::string> dispatch_log;

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
  std::string entry = event->getType();
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
  draw_count++;
  dispatch_log.push_back(getType() + ": draw");
  return mv::Object::draw();
}

}  // namespace mv_test
