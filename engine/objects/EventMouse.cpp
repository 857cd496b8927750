#include "EventMouse.h"

namespace mv {

EventMouse::EventMouse() : mouse_action(-1), mouse_button(-1) { setType(MOUSE_EVENT); }

void EventMouse::setMouseAction(int new_mouse_action) { mouse_action = new_mouse_action; }
int EventMouse::getMouseAction() const { return mouse_action; }
void EventMouse::setMouseButton(int new_mouse_button) { mouse_button = new_mouse_button; }
int EventMouse::getMouseButton() const { return mouse_button; }
void EventMouse::setMousePosition(Vector new_mouse_xy) { mouse_xy = new_mouse_xy; }
Vector EventMouse::getMousePosition() const { return mouse_xy; }

}  // namespace mv
