// A mouse button or movement, with the position in cells relative to the window.
#pragma once

#include "Event.h"
#include "Vector.h"

namespace mv {

inline const std::string MOUSE_EVENT = "mv-mouse";

enum EventMouseAction : int {
  UNDEFINED_MOUSE_ACTION = -1,
  CLICKED = 0,  // once, when a button goes down
  PRESSED = 1,  // every frame while it is held
  MOVED = 2,
};

class EventMouse : public Event {
 public:
  // No action, no button, at (0,0).
  EventMouse();

  void setMouseAction(int new_mouse_action);
  int getMouseAction() const;
  void setMouseButton(int new_mouse_button);
  int getMouseButton() const;
  void setMousePosition(Vector new_mouse_xy);
  Vector getMousePosition() const;

 private:
  int mouse_action;
  int mouse_button;
  Vector mouse_xy;
};

}  // namespace mv
