// Two solid objects met: the moving one and the one in its way. Both receive
// the same event, the mover first.
#pragma once

#include "Event.h"
#include "Vector.h"

namespace mv {

class Object;

inline const std::string COLLISION_EVENT = "mv-collision";

class EventCollision : public Event {
 public:
  EventCollision();
  // `obj1` moved, `obj2` was in the way, `pos` is where `obj1` moved to.
  EventCollision(Object* obj1, Object* obj2, Vector pos);

  void setObject1(Object* new_obj1);
  Object* getObject1() const;
  void setObject2(Object* new_obj2);
  Object* getObject2() const;
  void setPosition(Vector new_pos);
  Vector getPosition() const;

 private:
  Vector pos;
  Object* obj1;
  Object* obj2;
};

}  // namespace mv
