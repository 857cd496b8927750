#include "EventCollision.h"

namespace mv {

EventCollision::EventCollision() : EventCollision(nullptr, nullptr, Vector()) {}

EventCollision::EventCollision(Object* new_obj1, Object* new_obj2, Vector new_pos)
    : pos(new_pos), obj1(new_obj1), obj2(new_obj2) {
  setType(COLLISION_EVENT);
}

void EventCollision::setObject1(Object* new_obj1) { obj1 = new_obj1; }
Object* EventCollision::getObject1() const { return obj1; }
void EventCollision::setObject2(Object* new_obj2) { obj2 = new_obj2; }
Object* EventCollision::getObject2() const { return obj2; }
void EventCollision::setPosition(Vector new_pos) { pos = new_pos; }
Vector EventCollision::getPosition() const { return pos; }

}  // namespace mv
